#include "kelforms/core/macro.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::Literals::StringLiterals;
using namespace kelforms;
using vasclip::RuntimeError;

namespace {

struct Wire
{
    const char* name;
    QString command;
    QString means; ///< keyword(values) joined by "; "
};

void PrintTo(const Wire& wire, std::ostream* out)
{
    *out << wire.name;
}

QString Written(const Macro& macro)
{
    if (!macro.script.isEmpty())
        return u"script "_s + macro.script;
    QStringList statements;
    for (const MacroStatement& statement : macro.statements) {
        QStringList values;
        for (const MacroValue& value : statement.values) {
            switch (value.kind) {
            case MacroValue::Kind::Text:
                values.append(u"'%1'"_s.arg(value.text));
                break;
            case MacroValue::Kind::Number:
                values.append(value.text);
                break;
            case MacroValue::Kind::Call:
                values.append(u"%1<%2>"_s.arg(value.text, value.argument));
                break;
            }
        }
        statements.append(u"%1(%2)"_s.arg(statement.keyword, values.join(u", "_s)));
    }
    return statements.join(u"; "_s);
}

class WireString : public testing::TestWithParam<Wire>
{};

TEST_P(WireString, IsUnderstood)
{
    EXPECT_EQ(Written(ParseCommand(GetParam().command)), GetParam().means);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WireString,
    testing::Values(
        Wire{"script", u"[RunMacro(recalc.bas)]\r"_s, u"script recalc.bas"_s},
        Wire{"scriptUpper", u"[RunMacro(ADDPLUS.BAS)]\r"_s, u"script ADDPLUS.BAS"_s},
        Wire{"images", u"[RunMacro( SetRequest \"IMAGES\",  GetImages$(1))]"_s,
             u"SETREQUEST('IMAGES', GETIMAGES$<1>)"_s},
        Wire{"setImage",
             u"[RunMacro( SetImage \"CMP_1_3X5\", \"C:\\\\VASCLIPS\\\\JPG\\\\12345678.jpg\" ) ]\r"_s,
             u"SETIMAGE('CMP_1_3X5', 'C:\\VASCLIPS\\JPG\\12345678.jpg')"_s},
        Wire{"clearImage", u"[RunMacro( SetImage \"CMP_1_3X5\", \"\" ) ]\r"_s,
             u"SETIMAGE('CMP_1_3X5', '')"_s},
        Wire{"setImageWithPoint",
             u"[RunMacro( SetImage \"MAP_LOCATION\", \"C:\\\\A.B\\\\O'Brien (2).jpg\" ) ]\r"_s,
             u"SETIMAGE('MAP_LOCATION', 'C:\\A.B\\O'Brien (2).jpg')"_s},
        Wire{"swap",
             u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS 4,2\r\n)]\r"_s,
             u"SETREQUEST('LASTCOMPTYPE', 'SALES COMPARABLES'); SWAPCOMPS(4, 2)"_s},
        Wire{"lastCompType", u"[RUNMACRO(SetRequest \"LastCompType\", \"Sales Comparables\")]"_s,
             u"SETREQUEST('LastCompType', 'Sales Comparables')"_s},
        Wire{
            "environment",
            u"[RUNMACRO(InitEnvironment \"C:\\\\VAS2000\\\\test.rpt\"\nSetRequest \"RQ_CompForm\", "
            u"CompT$(Sales "
            "Comparables))]"_s,
            u"INITENVIRONMENT('C:\\VAS2000\\test.rpt'); SETREQUEST('RQ_CompForm', COMPT$<Sales Comparables>)"_s},
        Wire{"quoteInText", u"[RunMacro(SetRequest \"a\",\"say \\\"x\\\"\")]"_s,
             u"SETREQUEST('a', 'say \"x\"')"_s}),
    [](const auto& info) { return info.param.name; });

struct Wrong
{
    const char* name;
    QString command;
    QString words;
};

void PrintTo(const Wrong& wrong, std::ostream* out)
{
    *out << wrong.name;
}

class WrongString : public testing::TestWithParam<Wrong>
{};

TEST_P(WrongString, IsRefusedWithItsPlace)
{
    try {
        static_cast<void>(ParseCommand(GetParam().command));
        ADD_FAILURE() << "taken";
    } catch (const RuntimeError& refusal) {
        EXPECT_EQ(refusal.Number(), 285);
        EXPECT_EQ(refusal.Description().toStdString(),
                  (u"Macro not understood at character "_s + GetParam().words).toStdString());
    }
}

INSTANTIATE_TEST_SUITE_P(
    Rows, WrongString,
    testing::Values(
        Wrong{"empty", u""_s, u"1: \"[\" expected, the end of the command found"_s},
        Wrong{"noBracket", u"RunMacro(x.bas)"_s, u"1: \"[\" expected, \"RunMacro(x.bas)\" found"_s},
        Wrong{"otherWord", u"[DeleteAll(x.bas)]"_s,
              u"2: \"RunMacro\" expected, \"DeleteAll(x.bas)]\" found"_s},
        Wrong{"noBody", u"[RunMacro()]"_s, u"11: a statement expected, \")]\" found"_s},
        Wrong{"openText", u"[RunMacro(SetImage \"CMP_1, \"\"\r)]"_s,
              u"29: \",\", a line end or \")\" expected, \"\"?)]\" found"_s},
        Wrong{"loneBackslash", u"[RunMacro(SetImage \"A\", \"C:\\JPG\")]"_s,
              u"29: a second backslash expected, \"JPG\")]\" found"_s},
        Wrong{"noComma", u"[RunMacro(SWAPCOMPS 2 3)]"_s,
              u"23: \",\", a line end or \")\" expected, \"3)]\" found"_s},
        Wrong{"negative", u"[RunMacro(SWAPCOMPS -2,3)]"_s,
              u"21: a text in quotes, a number or a function expected, \"-2,3)]\" found"_s},
        Wrong{"trailing", u"[RunMacro(x.bas)] and more"_s, u"19: the end expected, \"and more\" found"_s},
        Wrong{"noClosing", u"[RunMacro(x.bas"_s,
              u"12: a text in quotes, a number or a function expected, \".bas\" found"_s},
        Wrong{"openCall", u"[RunMacro(SetRequest \"A\", GetImages$(1"_s,
              u"39: \")\" expected, the end of the command found"_s}),
    [](const auto& info) { return info.param.name; });

TEST(Macro, NoiseIsRefusedAndNothingElse)
{
    std::mt19937 random(1004);
    const QString seed =
        u"[RunMacro( SetRequest \"LASTCOMPTYPE\",\"SALES COMPARABLES\"\r\nSWAPCOMPS 4,2\r\n)]\r"_s;
    int taken = 0;
    for (int i = 0; i < 20000; ++i) {
        QString command = seed;
        for (unsigned changes = 1 + random() % 4; changes > 0; --changes) {
            const auto at = static_cast<qsizetype>(random() % static_cast<unsigned>(command.size()));
            if (random() % 3 == 0)
                command.remove(at, 1);
            else
                command[at] = QChar(static_cast<char16_t>(random() % 3 == 0 ? random() : 32 + random() % 95));
        }
        try {
            static_cast<void>(ParseCommand(command));
            ++taken;
        } catch (const RuntimeError& refusal) {
            ASSERT_EQ(refusal.Number(), 285);
        }
    }
    EXPECT_LT(taken, 20000);
}

TEST(Script, CommentsAndBlankLinesAreSkippedAndTheLineIsNamed)
{
    const QList<MacroStatement> statements =
        ParseScript(u"' a comment\r\n\r\n  Recalculate\r\nSWAPCOMPS 2,3\r\n"_s);
    ASSERT_EQ(statements.size(), 2);
    EXPECT_EQ(statements[0].keyword, u"RECALCULATE"_s);
    EXPECT_EQ(statements[1].values[1].text, u"3"_s);
    try {
        static_cast<void>(ParseScript(u"Recalculate\nRepaint now\n"_s));
        ADD_FAILURE();
    } catch (const RuntimeError& refusal) {
        EXPECT_TRUE(refusal.Description().startsWith(u"Line 2: "_s)) << refusal.what();
    }
}

} // namespace
