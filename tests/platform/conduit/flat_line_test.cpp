#include "platform/conduit/flat_line.h"
#include "platform/conduit/protocol.h"
#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <QJsonDocument>
#include <QJsonObject>

namespace vasclip::conduit {
namespace {

using namespace Qt::Literals::StringLiterals;

struct LineRow
{
    const char* name;
    QByteArray line;
    bool plain;
};
class PlainLine : public testing::TestWithParam<LineRow>
{};
TEST_P(PlainLine, IsReadOrLeftToTheStrictReader)
{
    EXPECT_EQ(FlatReader::Read(GetParam().line).has_value(), GetParam().plain);
}
INSTANTIATE_TEST_SUITE_P(
    Rows, PlainLine,
    testing::Values(LineRow{"Answer", R"({"id":3,"ok":true})", true},
                    LineRow{"Zero", R"({"id":0,"ok":true})", true},
                    LineRow{"Blank", R"({"id": 3,"ok":true})", false},
                    LineRow{"LeadingZero", R"({"id":03,"ok":true})", false},
                    LineRow{"Negative", R"({"id":-3,"ok":true})", false},
                    LineRow{"Fraction", R"({"id":3.5,"ok":true})", false},
                    LineRow{"TooLarge", R"({"id":1234567890123456})", false},
                    LineRow{"Escape", R"({"id":3,"text":"a\n"})", false},
                    LineRow{"Control", QByteArray("{\"id\":3,\"text\":\"a\tb\"}"), false},
                    LineRow{"NotUtf8", QByteArray("{\"id\":3,\"text\":\"\xe9\"}"), false},
                    LineRow{"Twice", R"({"id":3,"id":4})", false},
                    LineRow{"Nested", R"({"id":{"a":1}})", false},
                    LineRow{"SevenMembers", R"({"a":1,"b":1,"c":1,"d":1,"e":1,"f":1,"g":1})", false},
                    LineRow{"CutOff", R"({"id":3,"text":"abc)", false},
                    LineRow{"Tail", R"({"id":3}x)", false}, LineRow{"Empty", "", false},
                    LineRow{"EmptyObject", "{}", false}, LineRow{"TrailingComma", R"({"id":3,})", false}),
    [](const auto& row) { return row.param.name; });

TEST(FlatWriterLines, AreTheDocumentsTheyStandFor)
{
    const QString text = u"a\"b\\c\td\r\n\u0001 caf\u00e9 \u65e5"_s;
    const QByteArray line = FlatWriter().Text("text", text).Number("id", 42).True("ok").Line();
    ASSERT_TRUE(line.endsWith("}\n"));
    EXPECT_EQ(line.count('\n'), 1);
    EXPECT_EQ(QJsonDocument::fromJson(line).object(),
              (QJsonObject{{u"id"_s, 42}, {u"ok"_s, true}, {u"text"_s, text}}));
}

TEST(PlainMessages, RefuseWhatTheStrictReaderRefuses)
{
    EXPECT_EQ(DecodeMessage(R"({"do":"poke","id":1,"item":"A|1|2","text":"x","topic":"KEL|S"})").text,
              u"x"_s);
    EXPECT_EQ(DecodeMessage(R"({"do":"request","id":1,"item":"ListForms","topic":"KEL|S"})").verb,
              Verb::Request);
    EXPECT_THROW((void)DecodeMessage(R"({"do":"poke","id":0,"item":"A|1|2","text":"x","topic":"KEL|S"})"),
                 RuntimeError);
    EXPECT_THROW((void)DecodeMessage(R"({"do":"poke","id":1,"item":"A|1|2","topic":"KEL|S"})"), RuntimeError);
    EXPECT_THROW((void)DecodeMessage(R"({"do":"poke","id":1,"item":"A","text":"x","topic":"K","more":true})"),
                 RuntimeError);
    EXPECT_THROW((void)DecodeMessage(R"({"do":"request","id":1,"item":"A","text":"x","topic":"K"})"),
                 RuntimeError);
    EXPECT_THROW((void)DecodeAnswer(R"({"id":1,"ok":true,"text":"x"})"), RuntimeError);
}

} // namespace
} // namespace vasclip::conduit
