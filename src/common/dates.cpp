#include "common/dates.h"

#include "platform/text/dates.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::common {

namespace {

constexpr auto kPending = "01/01/1900"_L1;

QString Printed(const QDate& date, QLatin1StringView century, int yearOfCentury)
{
    return u"%1/%2/%3%4"_s.arg(date.month())
        .arg(date.day())
        .arg(century)
        .arg(yearOfCentury, 2, 10, QLatin1Char('0'));
}

/// Does a text say a day so that nobody can read another one? Month, day, year; or year, month, day; or day and year
/// beside the month's name.
bool SpellsOut(const QString& text, const QDate& date)
{
    static const QRegularExpression kDigits(u"[0-9]+"_s);
    static const QRegularExpression kMonthName(u"[A-Za-z]{3,}"_s);
    QStringList numbers;
    for (auto found = kDigits.globalMatch(text); found.hasNext();)
        numbers.append(found.next().captured());
    const auto isYear = [&date](const QString& digits) {
        const int number = digits.toInt();
        return number == date.year() || (digits.size() <= 2 && date.year() >= 2000 && number == date.year() % 100);
    };
    const auto is = [&numbers](qsizetype at, int number) { return numbers[at].toInt() == number; };
    if (numbers.size() == 2 && kMonthName.match(text).hasMatch())
        return (is(0, date.day()) && isYear(numbers[1])) || (is(0, date.year()) && is(1, date.day()));
    if (numbers.size() != 3)
        return false;
    return (is(0, date.month()) && is(1, date.day()) && isYear(numbers[2])) ||
           (is(0, date.year()) && is(1, date.month()) && is(2, date.day()));
}

} // namespace

QString FixDate(const QString& text, const QDate& today)
{
    if (text::Trim(text).isEmpty())
        return {};
    const auto read = text::ReadDate(text, today);
    if (!read)
        throw RuntimeError(error::kTypeMismatch, u"'%1' can't be read as a date"_s.arg(text));
    return FixDate(read->date(), today);
}

QString FixDate(const QDate& date, const QDate& today)
{
    const int year = date.year();
    const int current = today.year();
    if (year >= 0 && year <= 99)
        return Printed(date, year <= current % 100 ? "20"_L1 : "19"_L1, current % 100);
    if (year >= 1900 && year <= 1999)
        return Printed(date, "19"_L1, year % 100);
    if (year >= 2000 && year <= current)
        return Printed(date, "20"_L1, year % 100);
    return QString(kPending);
}

bool IsDate(const QString& text, const QDate& today)
{
    if (text::Trim(text).size() < 6)
        return false;
    const auto read = text::ReadDate(text, today);
    return read && read->date().isValid() && read->date() != text::SerialEpoch();
}

DateSense SenseOf(const QString& text, const QDate& today)
{
    if (text::Trim(text).isEmpty())
        return DateSense::Blank;
    const auto read = text::ReadDate(text, today);
    if (!read)
        return DateSense::Unreadable;
    const QDate date = read->date();
    if (date.year() > today.year())
        return DateSense::Future;
    if (date.year() < 1900)
        return DateSense::TooEarly;
    return SpellsOut(text, date) ? DateSense::Plain : DateSense::Loose;
}

DateParts SepDate(const QDate& date)
{
    return {static_cast<qint16>(date.year()), static_cast<qint16>(date.month()),
            static_cast<qint16>(date.day())};
}

TimeParts SepTime(const QTime& time)
{
    const int hour = time.hour() % 12;
    return {static_cast<qint16>(hour == 0 ? 12 : hour), static_cast<qint16>(time.minute()),
            static_cast<qint16>(time.second()), time.hour() < 12 ? u"AM"_s : u"PM"_s};
}

std::pair<DateParts, TimeParts> SepDateTime(const QDateTime& value)
{
    return {SepDate(value.date()), SepTime(value.time())};
}

QString ExtractDate(const QString& text, const QDate& today)
{
    const QString first = text.left(text.indexOf(u' '));
    for (const QString& candidate : {first, text}) {
        if (IsDate(candidate, today))
            return text::Format(*text::ReadDate(candidate, today), u"mm/dd/yy"_s);
    }
    return {};
}

} // namespace vasclip::common
