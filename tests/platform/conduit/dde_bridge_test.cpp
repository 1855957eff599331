#include "memo_partner.h"

#include "platform/conduit/dde/bridge.h"
#include "platform/conduit/dde/flat_object.h"
#include "platform/conduit/protocol.h"

#include <gtest/gtest.h>

#include <QRandomGenerator>

using namespace vasclip;
using namespace vasclip::conduit::dde;
using vasclip::test::MemoPartner;
using namespace Qt::StringLiterals;

namespace {

std::string Line(const QByteArray& encoded)
{
    return encoded.chopped(1).toStdString();
}

conduit::LinkAnswer AnswerOf(const std::string& line)
{
    EXPECT_TRUE(line.ends_with('\n'));
    return conduit::DecodeAnswer(QByteArray::fromStdString(line).chopped(1));
}

/// A bridge that has been greeted.
struct Greeted
{
    Greeted() { hello = bridge.Answer(Line(conduit::Encode(conduit::Hello{u"5f\"3c"_s, u"vasclip"_s, 12}))); }
    conduit::LinkAnswer Ask(conduit::Verb verb, const QString& topic, const QString& item, const QString& text = {})
    {
        return AnswerOf(bridge.Answer(Line(conduit::Encode({++id, verb, topic, item, text}))));
    }
    MemoPartner partner;
    Bridge bridge{partner, 4711};
    std::string hello;
    qint64 id = 0;
};

TEST(DdeBridge, GreetsAsTheLinkDoes)
{
    const Greeted greeted;
    const conduit::Hello hello = conduit::DecodeHello(QByteArray::fromStdString(greeted.hello).chopped(1));
    EXPECT_EQ(hello.nonce, u"5f\"3c"_s);
    EXPECT_EQ(hello.program, u"vasclip-bridge"_s);
    EXPECT_EQ(hello.pid, 4711);
    EXPECT_FALSE(greeted.bridge.Finished());
}

TEST(DdeBridge, AnotherGreetingEndsIt)
{
    for (const char* line : {"", "hello", "{\"hello\":\"other\",\"version\":1,\"nonce\":\"x\"}",
                             "{\"hello\":\"vasclip-link\",\"version\":2,\"nonce\":\"x\"}",
                             "{\"hello\":\"vasclip-link\",\"version\":1}"}) {
        MemoPartner partner;
        Bridge bridge(partner, 1);
        EXPECT_EQ(AnswerOf(bridge.Answer(line)).kind, conduit::LinkAnswer::Kind::Error) << line;
        EXPECT_TRUE(bridge.Finished()) << line;
    }
}

TEST(DdeBridge, CarriesTheThreeOperations)
{
    Greeted greeted;
    const QString text = u"1.2 Mi. NW\r\n\"é\" \\ \t"_s;
    EXPECT_EQ(greeted.Ask(conduit::Verb::Poke, u"KEL|R1"_s, u"UA5|14|2"_s, text).kind, conduit::LinkAnswer::Kind::Ok);
    EXPECT_EQ(greeted.Ask(conduit::Verb::Request, u"KEL|R1"_s, u"UA5|14|2"_s).text, text);
    EXPECT_EQ(greeted.Ask(conduit::Verb::Execute, u"KEL|System"_s, {}, u"[RunMacro(a.bas)]\r"_s).kind,
              conduit::LinkAnswer::Kind::Ok);
    EXPECT_EQ(greeted.partner.commands, u"[RunMacro(a.bas)]\r");
    EXPECT_EQ(greeted.partner.opened, (std::vector<std::u16string>{u"KEL|R1", u"KEL|System"}));
    const conduit::LinkAnswer last = greeted.Ask(conduit::Verb::Request, u"KEL|R1"_s, u"COMMANDS"_s);
    EXPECT_EQ(last.id, 4);
}

TEST(DdeBridge, TellsWhatBecameOfTheFormsProgramByNumber)
{
    Greeted greeted;
    const auto number = [&](const QString& topic, const QString& item) {
        const conduit::LinkAnswer answer = greeted.Ask(conduit::Verb::Request, topic, item);
        return answer.kind == conduit::LinkAnswer::Kind::Error ? answer.number : 0;
    };
    EXPECT_EQ(number(u"KEL|nobody"_s, u"X"_s), 282);
    EXPECT_EQ(number(u"KEL|A|B"_s, u"X"_s), 285);
    EXPECT_EQ(number(u"KEL|R1"_s, u"REFUSE"_s), 285);
    EXPECT_EQ(number(u"KEL|R1"_s, u"LATE"_s), 286);
    EXPECT_EQ(number(u"KEL|R1"_s, u"GONE"_s), 289);
    EXPECT_EQ(number(u"KEL|R1"_s, u"X"_s), 0);
}

TEST(DdeBridge, GarbageIsRefusedAndTheNextLineServed)
{
    Greeted greeted;
    for (const char* line : {"", "[]", "{}", "{\"id\":1}", "{\"id\":0,\"do\":\"request\",\"topic\":\"K|S\",\"item\":\"X\"}",
                             "{\"id\":1,\"do\":\"request\",\"topic\":\"K|S\"}", "{\"id\":1,\"id\":2}",
                             "{\"id\":1,\"do\":\"request\",\"topic\":\"K|S\",\"item\":\"X\",\"more\":1}",
                             "{\"id\":1,\"do\":\"sing\",\"topic\":\"K|S\",\"item\":\"X\"}", "{\"id\":1,\"do\":\"\xff\"}",
                             "{\"id\":1}x", "{\"id\":1,}", "{\"id\":01}"}) {
        const conduit::LinkAnswer answer = AnswerOf(greeted.bridge.Answer(line));
        EXPECT_EQ(answer.kind, conduit::LinkAnswer::Kind::Error) << line;
        EXPECT_EQ(answer.id, 0) << line;
    }
    EXPECT_FALSE(greeted.bridge.Finished());
    EXPECT_EQ(greeted.Ask(conduit::Verb::Request, u"KEL|R1"_s, u"X"_s).text, u"nothing"_s);
    EXPECT_EQ(AnswerOf(greeted.bridge.TooLong()).kind, conduit::LinkAnswer::Kind::Error);
    EXPECT_TRUE(greeted.bridge.Finished());
}

TEST(DdeBridge, ReadsWhateverTheLinkWrites)
{
    QRandomGenerator random(17);
    for (int round = 0; round < 500; ++round) {
        QString text;
        for (int i = random.bounded(40); i > 0; --i) {
            const char32_t c = random.bounded(2) == 0 ? random.bounded(0x80U) : random.bounded(0x10ffffU);
            if (c < 0xd800 || c > 0xdfff)
                text += QString::fromUcs4(&c, 1);
        }
        const std::string line = Line(conduit::Encode({round + 1, conduit::Verb::Poke, u"KEL|R1"_s, u"X"_s, text}));
        const std::optional<FlatObject> object = FlatObject::Read(line);
        ASSERT_TRUE(object) << line;
        ASSERT_TRUE(object->Text("text"));
        EXPECT_EQ(*object->Text("text"), text.toStdU16String());
        EXPECT_EQ(object->Number("id"), round + 1);
        // And the link reads what the bridge writes.
        const std::string back = "{\"id\":1,\"text\":" + JsonText(text.toStdU16String()) + "}";
        EXPECT_EQ(conduit::DecodeAnswer(QByteArray::fromStdString(back)).text, text);
    }
    const std::optional<FlatObject> escapes = FlatObject::Read("{ \"a\" : \"\\u00e9\\ud83d\\ude00\\/\\b\\f\\n\\r\\t\\\\\\\"\" }");
    ASSERT_TRUE(escapes);
    EXPECT_EQ(*escapes->Text("a"), u"\u00e9\U0001F600/\b\f\n\r\t\\\"");
    for (const char* line : {"{\"a\":\"\\u00g0\"}", "{\"a\":\"\\x\"}", "{\"a\":\"\\u00\"}", "{\"a\":\"x}", "{\"a\":\"\n\"}"})
        EXPECT_FALSE(FlatObject::Read(line)) << line;
}

} // namespace
