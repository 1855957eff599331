#include "platform/text/text.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;

namespace vasclip::text {
namespace {

struct TextRow
{
    const char* name;
    QString given;
    QString wanted;
};

TEST(Trim, TakesBlanksAndNothingElse)
{
    const TextRow rows[] = {
        {"blanks at both ends", u"  a b  "_s, u"a b"_s},
        {"the carriage return of the link stays", u" SMITH\r "_s, u"SMITH\r"_s},
        {"tabs and line feeds stay", u"\t\n a \n"_s, u"\t\n a \n"_s},
        {"a hard blank stays", u"\u00A0a"_s, u"\u00A0a"_s},
        {"only blanks", u"    "_s, QString()},
        {"empty", QString(), QString()},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(Trim(row.given), row.wanted) << row.name;
    EXPECT_EQ(LTrim(u"  a "_s), u"a "_s);
    EXPECT_EQ(RTrim(u" a  "_s), u" a"_s);
}

TEST(Folded, IsTrimmedAndUpper)
{
    EXPECT_EQ(Folded(u" 12 oak Str\u00E4ndchen "_s), u"12 OAK STR\u00C4NDCHEN"_s);
    EXPECT_EQ(Folded(u"\tx"_s), u"\tX"_s);
}

TEST(Val, ReadsWhatTheTextBeginsWith)
{
    struct Row
    {
        const char* name;
        QString given;
        double wanted;
    };
    const Row rows[] = {
        {"blanks drop out everywhere", u"1615 198th"_s, 1615198},
        {"tabs and line ends drop out too", u" \t1\r\n2"_s, 12},
        {"plain", u"42"_s, 42},
        {"zeros in front", u"007"_s, 7},
        {"as many digits as a double holds", u"999999999999999"_s, 999999999999999},
        {"more digits than that", u"12345678901234567890"_s, 12345678901234567890.0},
        {"point first", u".5"_s, 0.5},
        {"point last", u"5."_s, 5},
        {"second point stops", u"1.2.3"_s, 1.2},
        {"minus", u"-7 1"_s, -71},
        {"minus before a blank", u"- 3"_s, -3},
        {"plus", u"+3"_s, 3},
        {"two signs", u"--3"_s, 0},
        {"comma stops", u"1,234"_s, 1},
        {"dollar stops", u"$100"_s, 0},
        {"dollar behind", u"100$"_s, 100},
        {"exponent", u"1.5E3"_s, 1500},
        {"exponent with D and sign", u"2d-2"_s, 0.02},
        {"exponent in pieces", u"1 E 2"_s, 100},
        {"letter E without digits", u"12 East"_s, 12},
        {"sign without digits behind E", u"12E+"_s, 12},
        {"beyond a double", u"1E999"_s, 0},
        {"hexadecimal", u"&H1F"_s, 31},
        {"hexadecimal in small letters", u"&hff"_s, 255},
        {"sixteen bits are signed", u"&HFFFF"_s, -1},
        {"long by its mark", u"&HFFFF&"_s, 65535},
        {"thirty-two bits are signed", u"&HFFFFFFFF"_s, -1},
        {"five hex digits", u"&H10000"_s, 65536},
        {"hexadecimal stops at a letter", u"&H1G"_s, 1},
        {"octal", u"&O17"_s, 15},
        {"octal without letter", u"&17"_s, 15},
        {"lone ampersand", u"&"_s, 0},
        {"garbage", u"abc"_s, 0},
        {"only a point", u"."_s, 0},
        {"empty", QString(), 0},
        {"digits of another script", u"\u0663"_s, 0},
    };
    for (const Row& row : rows)
        EXPECT_DOUBLE_EQ(Val(row.given), row.wanted) << row.name;
}

TEST(Str, LeavesRoomForTheSign)
{
    struct Row
    {
        double given;
        const char16_t* wanted;
    };
    const Row rows[] = {
        {12, u" 12"},
        {0, u" 0"},
        {-0.0, u" 0"},
        {-12, u"-12"},
        {0.5, u" .5"},
        {-0.5, u"-.5"},
        {1.25, u" 1.25"},
        {1e20, u" 1E+20"},
        {1e15, u" 1E+15"},
        {123456789012345, u" 123456789012345"},
        {1.0 / 3, u" .333333333333333"},
        {0.0001, u" .0001"},
        {1e-5, u" 1E-05"},
        {-1e-7, u"-1E-07"},
        {0.1 + 0.2, u" .3"},
        {3265, u" 3265"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Str(row.given), QString::fromUtf16(row.wanted)) << row.given;
    EXPECT_EQ(Dec(-5), u"-5"_s);
    EXPECT_EQ(Dec(std::numeric_limits<qint64>::max()), u"9223372036854775807"_s);
}

TEST(ToInt, RoundsHalfToEven)
{
    struct Row
    {
        double given;
        int wanted;
    };
    const Row rows[] = {{0.5, 0}, {1.5, 2}, {2.5, 2},   {-0.5, 0}, {-1.5, -2},       {-2.5, -2},
                        {2.4, 2}, {2.6, 3}, {-2.6, -3}, {7, 7},    {32767.4, 32767}, {-32768.5, -32768}};
    for (const Row& row : rows) {
        EXPECT_EQ(ToInt16(row.given), row.wanted) << row.given;
        EXPECT_EQ(ToInt32(row.given), row.wanted) << row.given;
    }
    EXPECT_EQ(ToInt32(2147483647.4), 2147483647);
    EXPECT_EQ(ToInt32(-2147483648.5), std::numeric_limits<qint32>::min());
}

TEST(ToInt, RefusesWhatDoesNotFit)
{
    const auto number = [](auto&& call) {
        try {
            call();
        } catch (const RuntimeError& failure) {
            return failure.Number();
        }
        return 0;
    };
    EXPECT_EQ(number([] { (void)ToInt16(32767.5); }), error::kOverflow);
    EXPECT_EQ(number([] { (void)ToInt16(-32769); }), error::kOverflow);
    EXPECT_EQ(number([] { (void)ToInt32(2147483647.5); }), error::kOverflow);
    EXPECT_EQ(number([] { (void)ToInt32(std::numeric_limits<double>::quiet_NaN()); }), error::kOverflow);
    EXPECT_EQ(number([] { (void)ToInt32(std::numeric_limits<double>::infinity()); }), error::kOverflow);
}

} // namespace
} // namespace vasclip::text
