#include "platform/text/text.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

#include <limits>

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
        {"blanks at both ends", QStringLiteral("  a b  "), QStringLiteral("a b")},
        {"the carriage return of the link stays", QStringLiteral(" SMITH\r "), QStringLiteral("SMITH\r")},
        {"tabs and line feeds stay", QStringLiteral("\t\n a \n"), QStringLiteral("\t\n a \n")},
        {"a hard blank stays", QStringLiteral("\u00A0a"), QStringLiteral("\u00A0a")},
        {"only blanks", QStringLiteral("    "), QString()},
        {"empty", QString(), QString()},
    };
    for (const TextRow& row : rows)
        EXPECT_EQ(Trim(row.given), row.wanted) << row.name;
    EXPECT_EQ(LTrim(QStringLiteral("  a ")), QStringLiteral("a "));
    EXPECT_EQ(RTrim(QStringLiteral(" a  ")), QStringLiteral(" a"));
}

TEST(Folded, IsTrimmedAndUpper)
{
    EXPECT_EQ(Folded(QStringLiteral(" 12 oak Str\u00E4ndchen ")), QStringLiteral("12 OAK STR\u00C4NDCHEN"));
    EXPECT_EQ(Folded(QStringLiteral("\tx")), QStringLiteral("\tX"));
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
        {"blanks drop out everywhere", QStringLiteral("1615 198th"), 1615198},
        {"tabs and line ends drop out too", QStringLiteral(" \t1\r\n2"), 12},
        {"plain", QStringLiteral("42"), 42},
        {"zeros in front", QStringLiteral("007"), 7},
        {"as many digits as a double holds", QStringLiteral("999999999999999"), 999999999999999},
        {"more digits than that", QStringLiteral("12345678901234567890"), 12345678901234567890.0},
        {"point first", QStringLiteral(".5"), 0.5},
        {"point last", QStringLiteral("5."), 5},
        {"second point stops", QStringLiteral("1.2.3"), 1.2},
        {"minus", QStringLiteral("-7 1"), -71},
        {"minus before a blank", QStringLiteral("- 3"), -3},
        {"plus", QStringLiteral("+3"), 3},
        {"two signs", QStringLiteral("--3"), 0},
        {"comma stops", QStringLiteral("1,234"), 1},
        {"dollar stops", QStringLiteral("$100"), 0},
        {"dollar behind", QStringLiteral("100$"), 100},
        {"exponent", QStringLiteral("1.5E3"), 1500},
        {"exponent with D and sign", QStringLiteral("2d-2"), 0.02},
        {"exponent in pieces", QStringLiteral("1 E 2"), 100},
        {"letter E without digits", QStringLiteral("12 East"), 12},
        {"sign without digits behind E", QStringLiteral("12E+"), 12},
        {"beyond a double", QStringLiteral("1E999"), 0},
        {"hexadecimal", QStringLiteral("&H1F"), 31},
        {"hexadecimal in small letters", QStringLiteral("&hff"), 255},
        {"sixteen bits are signed", QStringLiteral("&HFFFF"), -1},
        {"long by its mark", QStringLiteral("&HFFFF&"), 65535},
        {"thirty-two bits are signed", QStringLiteral("&HFFFFFFFF"), -1},
        {"five hex digits", QStringLiteral("&H10000"), 65536},
        {"hexadecimal stops at a letter", QStringLiteral("&H1G"), 1},
        {"octal", QStringLiteral("&O17"), 15},
        {"octal without letter", QStringLiteral("&17"), 15},
        {"lone ampersand", QStringLiteral("&"), 0},
        {"garbage", QStringLiteral("abc"), 0},
        {"only a point", QStringLiteral("."), 0},
        {"empty", QString(), 0},
        {"digits of another script", QStringLiteral("\u0663"), 0},
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
    EXPECT_EQ(Dec(-5), QStringLiteral("-5"));
    EXPECT_EQ(Dec(std::numeric_limits<qint64>::max()), QStringLiteral("9223372036854775807"));
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
