#include "platform/conduit/protocol.h"

#include "platform/text/runtime_error.h"

#include <QList>

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using namespace vasclip::conduit;

namespace {

QByteArray Chopped(const QByteArray& line)
{
    EXPECT_TRUE(line.endsWith('\n'));
    EXPECT_EQ(line.count('\n'), 1);
    return line.chopped(1);
}

TEST(Protocol, EveryKindOfLineSurvivesTheWire)
{
    const QString nasty =
        u"O'Brien \"x\" \\ C:\\A\r\n\t | é Ω 漢 "_s + QString::fromUcs4(U"\U0001F3E0") + QChar(0) + u" end"_s;
    for (const LinkMessage& sent :
         {LinkMessage{1, Verb::Request, u"KEL|"_s + nasty, nasty, {}},
          LinkMessage{2, Verb::Poke, u"KEL|R"_s, u"UA5|1|2"_s, nasty},
          LinkMessage{Q_INT64_C(9007199254740991), Verb::Execute, u"KEL|System"_s, {}, nasty}}) {
        const LinkMessage came = DecodeMessage(Chopped(Encode(sent)));
        EXPECT_EQ(came.id, sent.id);
        EXPECT_EQ(came.verb, sent.verb);
        EXPECT_EQ(came.topic, sent.topic);
        EXPECT_EQ(came.item, sent.item);
        EXPECT_EQ(came.text, sent.text);
    }
    for (const LinkAnswer& sent :
         {LinkAnswer{7, LinkAnswer::Kind::Text, nasty, 0}, LinkAnswer{8, LinkAnswer::Kind::Ok, {}, 0},
          LinkAnswer{0, LinkAnswer::Kind::Error, nasty, 285}}) {
        const LinkAnswer came = DecodeAnswer(Chopped(Encode(sent)));
        EXPECT_EQ(came.id, sent.id);
        EXPECT_EQ(came.kind, sent.kind);
        EXPECT_EQ(came.text, sent.text);
        EXPECT_EQ(came.number, sent.number);
    }
    const Hello hello = DecodeHello(Chopped(Encode(Hello{u"abc"_s, nasty, 4711})));
    EXPECT_EQ(hello.nonce, u"abc"_s);
    EXPECT_EQ(hello.program, nasty);
    EXPECT_EQ(hello.pid, 4711);
}

struct GarbageRow
{
    const char* name;
    QByteArray line;
    QString says;
};

void PrintTo(const GarbageRow& row, std::ostream* out)
{
    *out << row.name;
}

class Garbage : public testing::TestWithParam<GarbageRow>
{};

TEST_P(Garbage, IsRefusedAndQuoted)
{
    for (const bool asMessage : {true, false}) {
        try {
            if (asMessage)
                static_cast<void>(DecodeMessage(GetParam().line));
            else
                static_cast<void>(DecodeAnswer(GetParam().line));
            ADD_FAILURE() << "taken";
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.Number(), 289);
            EXPECT_TRUE(failure.Description().startsWith(u"Garbage on the link ("_s)) << failure.what();
            EXPECT_TRUE(failure.Description().contains(GetParam().says)) << failure.what();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, Garbage,
                         testing::Values(GarbageRow{"empty", "", u"\"\""_s},
                                         GarbageRow{"words", "hello there", u"\"hello there\""_s},
                                         GarbageRow{"array", "[1,2]", u"not a JSON object"_s},
                                         GarbageRow{"half", R"({"id":1,"te)", u"at byte"_s},
                                         GarbageRow{"badUtf8", "{\"id\":1,\"text\":\"\xff\xfe\"}",
                                                    u"at byte"_s},
                                         GarbageRow{"noId", R"({"text":"x","ok":true})", u"\"id\""_s},
                                         GarbageRow{"idText", R"({"id":"1","ok":true})", u"\"id\""_s},
                                         GarbageRow{"idHalf", R"({"id":1.5,"ok":true})", u"\"id\""_s},
                                         GarbageRow{"idNegative", R"({"id":-1,"ok":true})", u"\"id\""_s},
                                         GarbageRow{"idHuge", R"({"id":1e300,"ok":true})", u"\"id\""_s},
                                         GarbageRow{"controls", QByteArray("\x01\x02{", 3), u"\"??{\""_s},
                                         GarbageRow{"long", QByteArray(5000, 'x'), u"(5000 bytes)"_s}),
                         [](const auto& info) { return info.param.name; });

TEST(Protocol, MembersThatNobodyKnowsAreRefused)
{
    EXPECT_THROW(
        static_cast<void>(DecodeMessage(R"({"id":1,"do":"request","topic":"K|S","item":"x","more":1})")),
        RuntimeError);
    EXPECT_THROW(static_cast<void>(DecodeMessage(R"({"id":1,"do":"delete","topic":"K|S","item":"x"})")),
                 RuntimeError);
    EXPECT_THROW(
        static_cast<void>(DecodeMessage(R"({"id":1,"do":"poke","topic":"K|S","item":"x","text":5})")),
        RuntimeError);
    EXPECT_THROW(static_cast<void>(DecodeAnswer(R"({"id":1,"text":"a","ok":true})")), RuntimeError);
    EXPECT_THROW(static_cast<void>(DecodeAnswer(R"({"id":1,"error":"no"})")), RuntimeError);
    EXPECT_THROW(
        static_cast<void>(DecodeHello(R"({"hello":"other","version":1,"nonce":"a","program":"p","pid":1})")),
        RuntimeError);
}

TEST(Protocol, AnotherVersionIsNamed)
{
    try {
        static_cast<void>(
            DecodeHello(R"({"hello":"vasclip-link","version":2,"nonce":"a","program":"p","pid":1})"));
        ADD_FAILURE();
    } catch (const RuntimeError& failure) {
        EXPECT_TRUE(failure.Description().contains(u"version 2 of the protocol, this program speaks 1"_s));
    }
}

TEST(LineCutter, PutsLinesTogetherFromAnyPieces)
{
    const QByteArray stream = "one\n\nthree and a half\nrest";
    for (qsizetype piece = 1; piece <= stream.size(); ++piece) {
        LineCutter cutter;
        QList<QByteArray> lines;
        for (qsizetype at = 0; at < stream.size(); at += piece) {
            cutter.Append(stream.mid(at, piece));
            QByteArray line;
            while (cutter.Next(line))
                lines.append(line);
        }
        EXPECT_EQ(lines, (QList<QByteArray>{"one", "", "three and a half"})) << piece;
        EXPECT_EQ(cutter.Rest(), "rest");
        EXPECT_FALSE(cutter.Empty());
    }
}

TEST(LineCutter, AnEndlessLineIsGarbage)
{
    LineCutter cutter;
    QByteArray line;
    const QByteArray megabyte(1024 * 1024, 'x');
    for (int i = 0; i < 15; ++i) {
        cutter.Append(megabyte);
        EXPECT_FALSE(cutter.Next(line));
    }
    cutter.Append(megabyte);
    EXPECT_THROW(static_cast<void>(cutter.Next(line)), RuntimeError);
}

} // namespace
