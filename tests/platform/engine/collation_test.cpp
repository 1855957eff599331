#include "platform/engine/collation.h"
#include "platform/engine/text_values.h"
#include "platform/engine/values.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"
#include "support/standing_time.h"

#include <QDate>

#include <gtest/gtest.h>

namespace vasclip::engine {
namespace {

int Sign(int value)
{
    return value < 0 ? -1 : value > 0 ? 1 : 0;
}

TEST(Collation, ComparesWithoutCaseAndTrailingBlanks)
{
    const struct
    {
        std::string_view left, right;
        int answer;
    } rows[] = {
        {"", "", 0},
        {"", "   ", 0},
        {"a", "A", 0},
        {"12 Oak St", "12 OAK ST                ", 0},
        {" a", "a", -1},
        {"a b", "ab", -1},
        {"abc", "abd", -1},
        {"abd", "ABC", 1},
        {"ab", "abc", -1},
        {"a\t", "a", 1},
        {"Caf\xC3\xA9", "CAF\xC3\x89", 0},
        {"Caf\xC3\xA9", "CAFE", 1},
        {"\xC3\x85", "\xC3\xA5 ", 0},
        {"a\xC3\xA9", "b", -1},
        {"\xF0\x90\x90\x80", "\xF0\x90\x90\xA8", 0}, // Deseret long I, capital and small
        {"\xFF", "\xFF", 0},
        {"a\xC3", "a\xC3", 0},
        {"Z", "a", 1},
        {"_", "A", -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.left) + " / " + std::string(row.right));
        EXPECT_EQ(Sign(CompareText(row.left, row.right)), row.answer);
        EXPECT_EQ(Sign(CompareText(row.right, row.left)), -row.answer);
    }
}

TEST(Collation, PatternsMatch)
{
    const struct
    {
        std::string_view text, pattern;
        bool answer;
    } rows[] = {
        {"", "", true},
        {"", "*", true},
        {"a", "", false},
        {"abc", "ABC", true},
        {"abc", "a*c", true},
        {"abc", "*b*", true},
        {"abc", "*d*", false},
        {"abc", "a?c", true},
        {"abc", "a?", false},
        {"a1c", "a#c", true},
        {"abc", "a#c", false},
        {"a*c", "a[*]c", true},
        {"abc", "a[*]c", false},
        {"abc", "[!b-z]bc", true},
        {"abc", "[!a]bc", false},
        {"a-c", "a[x-]c", true},
        {"a]c", "a[]]c", true},
        {"abc", "[a", false},
        {"50%", "50%", true},
        {"500", "50%", false},
        {"a_c", "a_c", true},
        {"abc", "a_c", false},
        {"abc   ", "abc", true},
        {"abc   ", "*c", true},
        {"abc   ", "abc ???", false},
        {"abc   ", "abc???", true},
        {"aaaaab", "*a*a*b", true},
        {"caf\xC3\xA9", "CAF\xC3\x89", true},
        {"caf\xC3\xA9", "caf?", true},
        {"B", "[a-c]", true},
        {"\xC3\xA9", "[\xC3\xA0-\xC3\xAF]", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(MatchesPattern(row.text, row.pattern), row.answer) << row.text << " LIKE " << row.pattern;
    // Letters between two stars take a short way; a doubled star takes the long one, and they agree. A Kelvin
    // sign folds to k and a long s to s.
    for (const std::string text : {"", " ", "114 OAK ST      ", "oak", "o", "kk k",
                                   "7 CALLE PE\xC3\x91"
                                   "A   ",
                                   "\xE2\x84\xAA"
                                   "ELLY",
                                   "MI\xC5\xBF\xC5\xBF", "caf\xC3\xA9 oak", "broken \xC3", "aab"}) {
        for (const std::string letters :
             {"o", "OAK", "oak ", " ", "  ", "st   ", "k", "kelly", "Miss",
              "pe\xC3\xB1"
              "a",
              "oakk", "ab", "aab", "n", "%", "_", "\xC3", "114 oak st                                    "})
            EXPECT_EQ(MatchesPattern(text, "*" + letters + "*"), MatchesPattern(text, "**" + letters + "*"))
                << text << " LIKE " << letters;
    }
    EXPECT_TRUE(MatchesPattern("\xE2\x84\xAA"
                               "ELLY",
                               "*kell*"));
    EXPECT_FALSE(MatchesPattern("114 OAK ST   ", "*oak s?*t*"));
    // Stars do not multiply the work.
    EXPECT_FALSE(MatchesPattern(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*b"));
}

TEST(Functions, NumbersAreReadAsValReadsThem)
{
    for (const char* text :
         {"",         " ",     "0",    "12", " 12 ", "-7.5", "1 615", "12abc",           "$5",
          "1,000",    "1e3",   "&HFF", ".5", "5.",   "-",    ".",     "123456789012345", "1234567890123456",
          "0.000001", "1.2.3", "--1",  "+4", "12-",  "1d2"})
        EXPECT_DOUBLE_EQ(NumberOf(text), text::Val(QString::fromUtf8(text))) << text;
}

TEST(Functions, DatesAreReadAsTheLanguageReadsThem)
{
    const QDate today = tests::SomeTime().Today();
    for (const char* text : {"1/2/2004", "01/02/2004", "1/2/2004   ", "2/29/2000", "2/29/1900", "13/1/2004",
                             "12/31/1899", "1/1/0100", "1/1/99", "7-Mar-04", "", "n/a", "1/2", "0/1/2000",
                             "1/0/2000", "1/2/20044", "4/31/2001", " 1/2/2004", "1/2/2004 3:30 PM"}) {
        double serial = 0;
        const QString whole = text::Trim(QString::fromUtf8(text));
        const auto date = whole.isEmpty() ? std::nullopt : text::ReadDate(whole, today);
        EXPECT_EQ(SerialOf(text, tests::SomeTime(), serial), date.has_value()) << text;
        if (date) {
            EXPECT_DOUBLE_EQ(serial, ToSerial(*date)) << text;
        }
    }
}

TEST(Functions, SerialsGoThereAndBack)
{
    const QDateTime moments[] = {{QDate(1899, 12, 30), QTime(0, 0)},
                                 {QDate(1900, 1, 1), QTime(0, 0)},
                                 {QDate(2004, 2, 29), QTime(23, 59, 59)},
                                 {QDate(1850, 6, 1), QTime(12, 0)}};
    for (const QDateTime& moment : moments)
        EXPECT_EQ(FromSerial(ToSerial(moment)), moment) << moment.toString().toStdString();
    EXPECT_FALSE(FromSerial(1e300).isValid());
}

} // namespace
} // namespace vasclip::engine
