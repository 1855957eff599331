#include "common/dates.h"

#include "platform/text/dates.h"
#include "platform/text/runtime_error.h"
#include "platform/text/text.h"

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
