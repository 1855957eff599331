#include "common/dates.h"

#include "platform/text/runtime_error.h"

#include <gtest/gtest.h>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {
namespace {

const QDate kToday(2024, 5, 17);

struct Row
{
    const char* name;
    QString text;
    QString fixed;
};

class FixDateTest : public testing::TestWithParam<Row>
{};

TEST_P(FixDateTest, Fixes)
{
    EXPECT_EQ(FixDate(GetParam().text, kToday).toStdString(), GetParam().fixed.toStdString());
}

const Row kRows[] = {
    {"empty", u""_s, u""_s},
    {"blank", u"   "_s, u""_s},
    {"plain", u"3/7/2004"_s, u"3/7/2004"_s},
    {"leading_zeros_go", u"03/07/2004"_s, u"3/7/2004"_s},
    {"two_digit_year_of_this_century", u"3/7/04"_s, u"3/7/2004"_s},
    {"two_digit_year_of_the_last", u"3/7/85"_s, u"3/7/1985"_s},
    {"month_by_name", u"March 7, 2004"_s, u"3/7/2004"_s},
    {"first_year_of_the_century", u"1/1/1900"_s, u"1/1/1900"_s},
    {"last_year_of_the_century", u"12/31/1999"_s, u"12/31/1999"_s},
    {"first_of_the_next", u"1/1/2000"_s, u"1/1/2000"_s},
    {"later_this_year_is_fine", u"12/31/2024"_s, u"12/31/2024"_s},
    {"next_year", u"1/1/2025"_s, u"01/01/1900"_s},
    {"far_future", u"3/7/2099"_s, u"01/01/1900"_s},
    {"before_1900", u"12/31/1899"_s, u"01/01/1900"_s},
    {"null_date", u"12/30/1899"_s, u"01/01/1900"_s},
    {"year_100", u"5/6/0100"_s, u"01/01/1900"_s},
};

INSTANTIATE_TEST_SUITE_P(Rows, FixDateTest, testing::ValuesIn(kRows),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(FixDate, OfADateWithATwoDigitYearPrintsTodaysYear)
{
    EXPECT_EQ(FixDate(QDate(4, 3, 7), kToday), u"3/7/2024"_s);
    EXPECT_EQ(FixDate(QDate(24, 3, 7), kToday), u"3/7/2024"_s);
    EXPECT_EQ(FixDate(QDate(25, 3, 7), kToday), u"3/7/1924"_s);
    EXPECT_EQ(FixDate(QDate(99, 3, 7), QDate(2005, 1, 1)), u"3/7/1905"_s);
    EXPECT_EQ(FixDate(QDate(-5, 3, 7), kToday), u"01/01/1900"_s);
}

TEST(FixDate, RefusesWhatIsNoDate)
{
    for (const QString& text : {u"soon"_s, u"13/32/2004"_s, u"2/30/2004"_s}) {
        try {
            (void)FixDate(text, kToday);
            ADD_FAILURE() << text.toStdString();
        } catch (const RuntimeError& failure) {
            EXPECT_EQ(failure.Number(), error::kTypeMismatch);
            EXPECT_TRUE(failure.Description().contains(text));
        }
    }
}

TEST(IsDate, AsksForSixCharacters)
{
    EXPECT_TRUE(IsDate(u"1/1/04"_s, kToday));
    EXPECT_FALSE(IsDate(u"1/1/4"_s, kToday));
    EXPECT_FALSE(IsDate(u"  1/1/4  "_s, kToday));
    EXPECT_TRUE(IsDate(u"  1/1/04  "_s, kToday));
}

TEST(IsDate, KnowsADateFromOtherText)
{
    EXPECT_TRUE(IsDate(u"3/7/2004"_s, kToday));
    EXPECT_TRUE(IsDate(u"3/7/2099"_s, kToday));
    EXPECT_TRUE(IsDate(u"01/01/1900"_s, kToday));
    EXPECT_FALSE(IsDate(u""_s, kToday));
    EXPECT_FALSE(IsDate(u"pending"_s, kToday));
    EXPECT_FALSE(IsDate(u"2/30/2004"_s, kToday));
    EXPECT_FALSE(IsDate(u"12/30/1899"_s, kToday));
    EXPECT_FALSE(IsDate(u"10:30 PM"_s, kToday));
}

TEST(ExtractDate, TakesTheDateUpToTheFirstBlankElseTheWhole)
{
    EXPECT_EQ(ExtractDate(u"3/7/2004 closed"_s, kToday), u"03/07/04"_s);
    EXPECT_EQ(ExtractDate(u"3/7/2004"_s, kToday), u"03/07/04"_s);
    EXPECT_EQ(ExtractDate(u"March 7, 2004"_s, kToday), u"03/07/04"_s);
    EXPECT_EQ(ExtractDate(u"closed 3/7/2004 by"_s, kToday), QString());
    EXPECT_EQ(ExtractDate(u""_s, kToday), QString());
    EXPECT_EQ(ExtractDate(u"pending"_s, kToday), QString());
}

TEST(SepDate, GivesThePartsOfDateAndTime)
{
    EXPECT_EQ(SepDate(QDate(2004, 3, 7)), (DateParts{2004, 3, 7}));
    EXPECT_EQ(SepTime(QTime(0, 5, 9)), (TimeParts{12, 5, 9, u"AM"_s}));
    EXPECT_EQ(SepTime(QTime(11, 59)), (TimeParts{11, 59, 0, u"AM"_s}));
    EXPECT_EQ(SepTime(QTime(12, 0)), (TimeParts{12, 0, 0, u"PM"_s}));
    EXPECT_EQ(SepTime(QTime(22, 30, 1)), (TimeParts{10, 30, 1, u"PM"_s}));
    const auto [date, time] = SepDateTime(QDateTime(QDate(2004, 3, 7), QTime(13, 0)));
    EXPECT_EQ(date, (DateParts{2004, 3, 7}));
    EXPECT_EQ(time, (TimeParts{1, 0, 0, u"PM"_s}));
}

TEST(SenseOf, TellsHowATextIsTaken)
{
    const std::pair<QString, DateSense> rows[] = {
        {u""_s, DateSense::Blank},
        {u"  "_s, DateSense::Blank},
        {u"3/7/2004"_s, DateSense::Plain},
        {u"03-07-04"_s, DateSense::Plain},
        {u"2004-03-07"_s, DateSense::Plain},
        {u"March 7, 2004"_s, DateSense::Plain},
        {u"7-Mar-04"_s, DateSense::Plain},
        {u"2004 March 7"_s, DateSense::Plain},
        {u"01/01/1900"_s, DateSense::Plain},
        {u"12/31/2024"_s, DateSense::Plain},
        {u"2/30"_s, DateSense::Loose},
        {u"3/7"_s, DateSense::Loose},
        {u"3/2004"_s, DateSense::Loose},
        {u"25/3/2004"_s, DateSense::Loose},
        {u"13/2/4"_s, DateSense::Loose},
        {u"3/7/85"_s, DateSense::Loose},
        {u"7-Mar-85"_s, DateSense::Loose},
        {u"2004-13-07"_s, DateSense::Loose},
        {u"March 7"_s, DateSense::Loose},
        {u"March 2004"_s, DateSense::Loose},
        {u"3/7/2004 10:30"_s, DateSense::Loose},
        {u"13/45/2026"_s, DateSense::Unreadable},
        {u"soon"_s, DateSense::Unreadable},
        {u"3/7/1850"_s, DateSense::TooEarly},
        {u"10:30"_s, DateSense::TooEarly},
        {u"1/1/2025"_s, DateSense::Future}};
    for (const auto& [text, sense] : rows)
        EXPECT_EQ(SenseOf(text, kToday), sense) << text.toStdString();
}

} // namespace
} // namespace vasclip::common
