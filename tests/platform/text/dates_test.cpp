#include "platform/text/dates.h"

#include <QLocale>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::text {
namespace {

const QDate kToday(2026, 5, 20);

struct ReadRow
{
    const char16_t* given;
    const char* wanted; ///< "" for no date
};

class DateTexts : public testing::TestWithParam<ReadRow>
{};

TEST_P(DateTexts, AreRead)
{
    const ReadRow& row = GetParam();
    const auto read = ReadDate(QString::fromUtf16(row.given), kToday);
    const QString answer =
        read ? read->toString(read->time() == QTime(0, 0) ? u"yyyy-MM-dd"_s : u"yyyy-MM-dd HH:mm:ss"_s)
             : QString();
    EXPECT_EQ(answer.toStdString(), row.wanted) << QString::fromUtf16(row.given).toStdString();
}

const ReadRow kReadRows[] = {
    {u"3/7/2004", "2004-03-07"},
    {u"03/07/2004", "2004-03-07"},
    {u" 3/7/04 ", "2004-03-07"},
    {u"3-7-2004", "2004-03-07"},
    {u"3/7-2004", "2004-03-07"},
    {u"3 7 2004", "2004-03-07"},
    {u"3 / 7 / 2004", "2004-03-07"},
    {u"25/12/2004", "2004-12-25"},
    {u"12/25/2004", "2004-12-25"},
    {u"13/25/2004", ""},
    // Three numbers that are no month, day and year: year first, then day first.
    {u"13/2/4", "2013-02-04"},
    {u"30/3/04", "1930-03-04"},
    {u"29/12/31", "2029-12-31"},
    {u"31/4/30", "1931-04-30"},
    {u"30/4/31", "1931-04-30"}, // April has no 31st as the day of 1930
    {u"4/31/5", ""},
    {u"2/30", "1930-02-01"},
    {u"30/2", "1930-02-01"},
    {u"4/31", "1931-04-01"},
    {u"2/29", "2029-02-01"},
    {u"February 30", "1930-02-01"},
    {u"13/25", ""},
    {u"2/30/04", ""},
    {u"2/30/2004", ""},
    {u"2/29/2004", "2004-02-29"},
    {u"2/29/2003", ""},
    {u"1/1/29", "2029-01-01"},
    {u"1/1/30", "1930-01-01"},
    {u"1/1/00", "2000-01-01"},
    {u"1/1/99", "1999-01-01"},
    {u"1/1/1900", "1900-01-01"},
    {u"12/30/1899", "1899-12-30"},
    {u"1/1/100", "0100-01-01"},
    {u"2004-03-07", "2004-03-07"},
    {u"2004/3/7", "2004-03-07"},
    {u"2004-13-07", "2004-07-13"},
    {u"45/3/7", "1945-03-07"},
    {u"2004-03-07 10:30", "2004-03-07 10:30:00"},
    {u"2004-03-07T10:30:15", "2004-03-07 10:30:15"},
    {u"March 7, 2004", "2004-03-07"},
    {u"march 7 2004", "2004-03-07"},
    {u"MAR 7, 04", "2004-03-07"},
    {u"7-Mar-04", "2004-03-07"},
    {u"7 March 2004", "2004-03-07"},
    {u"2004 March 7", "2004-03-07"},
    {u"Sunday, March 7, 2004", "2004-03-07"},
    {u"December 30, 1899", "1899-12-30"},
    {u"January 1, 1900", "1900-01-01"},
    {u"March 2004", "2004-03-01"},
    {u"March 7", "2026-03-07"},
    {u"March 32", "1932-03-01"},
    {u"3/2004", "2004-03-01"},
    {u"2004/3", "2004-03-01"},
    {u"3/7", "2026-03-07"},
    {u"25/12", "2026-12-25"},
    {u"12/45", "1945-12-01"},
    {u"3/7/2004 2:05 PM", "2004-03-07 14:05:00"},
    {u"3/7/2004 2:05:09pm", "2004-03-07 14:05:09"},
    {u"3/7/2004 12:00 AM", "2004-03-07"},
    {u"3/7/2004 12:30 PM", "2004-03-07 12:30:00"},
    {u"3/7/2004 5 PM", "2004-03-07 17:00:00"},
    {u"14:05 3/7/2004", "2004-03-07 14:05:00"},
    {u"3/7/2004, 14:05", "2004-03-07 14:05:00"},
    {u"10:30", "1899-12-30 10:30:00"},
    {u"3 pm", "1899-12-30 15:00:00"},
    {u"3.7", "1899-12-30 03:07:00"},
    {u"3.7.20", "1899-12-30 03:07:20"},
    {u"3.7.2004", ""},
    {u"13:00 AM", ""},
    {u"24:00", ""},
    {u"10:60", ""},
    {u"", ""},
    {u"   ", ""},
    {u"7", ""},
    {u"36526", ""},
    {u"20040307", ""},
    {u"PENDING", ""},
    {u"3/7/", ""},
    {u"/3/7", ""},
    {u"3//7", ""},
    {u"-3/7/2004", ""},
    {u"3/7/2004/1", ""},
    {u"0/7/2004", ""},
    {u"3/0/2004", ""},
    {u"Marsh 7, 2004", ""},
    {u"March March 7", ""},
    {u"3/7/12345", ""},
    {u"3/7/2004 PM", ""},
    {u"10:30 11:30", ""},
    {u"12 Oak Street", ""},
    {u"Sunday", ""},
    {u"March", ""},
    {u"AM", ""},
    {u"\u0663/7/2004", ""},
};

INSTANTIATE_TEST_SUITE_P(Rows, DateTexts, testing::ValuesIn(kReadRows),
                         [](const auto& row) { return "row_" + std::to_string(row.index); });

TEST(ReadDate, DoesNotAskTheMachine)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    const auto numeric = ReadDate(u"3/7/2004"_s, kToday);
    const auto german = ReadDate(u"7. M\u00E4rz 2004"_s, kToday);
    const QString shown = Format(QDateTime(QDate(2004, 3, 7), QTime()), u"mmmm d, ddd"_s);
    QLocale::setDefault(before);
    ASSERT_TRUE(numeric);
    EXPECT_EQ(numeric->date(), QDate(2004, 3, 7));
    EXPECT_FALSE(german);
    EXPECT_EQ(shown, u"March 7, Sun"_s);
}

TEST(Serials, CountFromTheEpoch)
{
    EXPECT_EQ(DateSerial(QDate(1899, 12, 30)), 0);
    EXPECT_EQ(DateSerial(QDate(1900, 1, 1)), 2);
    EXPECT_EQ(DateSerial(QDate(2000, 1, 1)), 36526);
    EXPECT_EQ(DateSerial(QDate(1899, 12, 29)), -1);
    EXPECT_EQ(FromSerial(2), QDate(1900, 1, 1));
    EXPECT_EQ(FromSerial(36526.99), QDate(2000, 1, 1));
    EXPECT_EQ(FromSerial(-1.25), QDate(1899, 12, 29));
}

struct FormatRow
{
    const char16_t* picture;
    const char16_t* wanted;
};

TEST(DatePicture, Prints)
{
    const QDateTime afternoon(QDate(2004, 3, 7), QTime(14, 5, 9));
    const FormatRow rows[] = {
        {u"mm/dd/yyyy", u"03/07/2004"},
        {u"MM/DD/YYYY", u"03/07/2004"},
        {u"mm/dd/yy", u"03/07/04"},
        {u"m/d/yy", u"3/7/04"},
        {u"Short Date", u"3/7/2004"},
        {u"short date", u"3/7/2004"},
        {u"Long Date", u"Sunday, March 7, 2004"},
        {u"Medium Date", u"07-Mar-04"},
        {u"hhnnss", u"140509"},
        {u"h:n:s", u"14:5:9"},
        {u"hh:mm", u"14:05"},
        {u"hh:mm:ss", u"14:05:09"},
        {u"mm/dd/yyyy hh:mm", u"03/07/2004 14:05"},
        {u"hh:nn mm/dd", u"14:05 03/07"},
        {u"h:nn AM/PM", u"2:05 PM"},
        {u"h:nn am/pm", u"2:05 pm"},
        {u"ddd dddd", u"Sun Sunday"},
        {u"mmm mmmm", u"Mar March"},
        {u"yyyymmddhhnnss", u"20040307140509"},
        {u"\"day\" d", u"day 7"},
        {u"\\d d", u"d 7"},
        {u"", u""},
        {u"Short Time", u"14:05"},
        {u"Long Time", u"2:05:09 PM"},
    };
    for (const FormatRow& row : rows)
        EXPECT_EQ(Format(afternoon, QString::fromUtf16(row.picture)), QString::fromUtf16(row.wanted));

    const QDateTime midnight(QDate(2004, 12, 25), QTime(0, 0));
    EXPECT_EQ(Format(midnight, u"h AM/PM"_s), u"12 AM"_s);
    EXPECT_EQ(Format(midnight, u"hhnnss"_s), u"000000"_s);
    EXPECT_EQ(Format(QDateTime(QDate(2004, 12, 25), QTime(12, 0)), u"h AM/PM"_s), u"12 PM"_s);
}

} // namespace
} // namespace vasclip::text
