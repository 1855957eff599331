#include "platform/sheet/cell_values.h"

#include <gtest/gtest.h>

namespace vasclip::sheet {
namespace {

using namespace Qt::StringLiterals;

TEST(SheetDates, CountFrom1900WithTheDayThatWasNone)
{
    EXPECT_EQ(DateOfDays(1, DaySystem::From1900), u"1900-01-01"_s);
    EXPECT_EQ(DateOfDays(59, DaySystem::From1900), u"1900-02-28"_s);
    EXPECT_EQ(DateOfDays(60, DaySystem::From1900), QString());
    EXPECT_EQ(DateOfDays(61, DaySystem::From1900), u"1900-03-01"_s);
    EXPECT_EQ(DateOfDays(38053, DaySystem::From1900), u"2004-03-07"_s);
    EXPECT_EQ(DateOfDays(38053.5729166667, DaySystem::From1900), u"2004-03-07 13:45"_s);
    EXPECT_EQ(DateOfDays(38052.9999999, DaySystem::From1900), u"2004-03-07"_s) << "a day that lost a grain";
    EXPECT_EQ(DateOfDays(2958465, DaySystem::From1900), u"9999-12-31"_s);
    EXPECT_EQ(DateOfDays(2958466, DaySystem::From1900), QString());
    EXPECT_EQ(DateOfDays(-1, DaySystem::From1900), QString());
    EXPECT_EQ(DateOfDays(0, DaySystem::From1900), QString());
}

TEST(SheetDates, CountFrom1904)
{
    EXPECT_EQ(DateOfDays(0, DaySystem::From1904), u"1904-01-01"_s);
    EXPECT_EQ(DateOfDays(36591, DaySystem::From1904), u"2004-03-07"_s);
    EXPECT_EQ(DateOfDays(2957003, DaySystem::From1904), u"9999-12-31"_s);
    EXPECT_EQ(DateOfDays(2957004, DaySystem::From1904), QString());
}

TEST(SheetFormats, TellDatesFromNumbers)
{
    for (const QString& date : {u"m/d/yyyy"_s, u"yyyy\\-mm\\-dd;@"_s, u"[$-409]mmmm\\ d\\,\\ yyyy"_s, u"mmm-yy"_s, u"d.m.yy h:mm"_s,
                                u"[Red]dd/mm/yyyy"_s, u"MM/DD/YY"_s, u"\"sold \"d mmm"_s})
        EXPECT_EQ(ShownBy(date), Shown::Date) << date.toStdString();
    for (const QString& number : {u"General"_s, u"0.00"_s, u"#,##0\\ \"days\""_s, u"[Red]0.0"_s, u"\"yd\" 0"_s, u"[h]:mm"_s, u"0_d"_s,
                                  u"@"_s, u""_s, u"\"open"_s, u"[open"_s, u"$#,##0;[Red]-$#,##0"_s})
        EXPECT_EQ(ShownBy(number), Shown::Number) << number.toStdString();
    EXPECT_EQ(ShownBy(u"h:mm AM/PM"_s), Shown::Time);
    EXPECT_EQ(ShownByNumber(14), Shown::Date);
    EXPECT_EQ(ShownByNumber(21), Shown::Time);
    EXPECT_EQ(ShownByNumber(4), Shown::Number);
    EXPECT_EQ(LeadingZeros(u"00000"_s), 5);
    EXPECT_EQ(LeadingZeros(u"0"_s), 0);
    EXPECT_EQ(LeadingZeros(u"0.00"_s), 0);
}

TEST(SheetNumbers, AreWrittenWithAPointAndWithoutTheirTail)
{
    const auto text = [](const QString& written, NumberStyle style = {}) {
        return NumberCell(written, style, DaySystem::From1900).text;
    };
    EXPECT_EQ(text(u"250000"_s), u"250000"_s);
    EXPECT_EQ(text(u"0.10000000000000001"_s), u"0.1"_s);
    EXPECT_EQ(text(u"2.5E5"_s), u"250000"_s);
    EXPECT_EQ(text(u"-123.25"_s), u"-123.25"_s);
    EXPECT_EQ(text(u"1234.5"_s, {.zeros = 9}), u"1234.5"_s);
    EXPECT_EQ(text(u"1234"_s, {.zeros = 5}), u"01234"_s);
    EXPECT_EQ(text(u"0.5729166667"_s, {.shown = Shown::Time}), u"13:45"_s);
    for (const QString& bad : {u"abc"_s, u"1,5"_s, u"nan"_s, u"1e999"_s})
        EXPECT_EQ(NumberCell(bad, {}, DaySystem::From1900).kind, Cell::Kind::Error) << bad.toStdString();
    EXPECT_EQ(NumberCell(u"-3"_s, {.shown = Shown::Date}, DaySystem::From1900).text, u"-3 is shown as a date and is none"_s);
}

} // namespace
} // namespace vasclip::sheet
