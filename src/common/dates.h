#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

namespace vasclip::common {

/// Date text as the Databook stores it.
/// @param text   a date as typed; blank gives blank
/// @param today  decides what lies in the future
/// @return M/D/YYYY without leading zeros; "01/01/1900" (pending) for a year of 100 to 1899, below 0 or after
/// today's
/// @throws RuntimeError 13  the text can't be read as a date
/// Rule: dates. A future year counts as no date.
[[nodiscard]] QString FixDate(const QString& text, const QDate& today);

/// The same for a date that is read already. A year of 0 to 99 is printed as today's two-digit year, behind
/// "20" up to it and behind "19" above it.
[[nodiscard]] QString FixDate(const QDate& date, const QDate& today);

/// The program's own test: at least 6 characters after trimming, readable as a date, and not the null date
/// 12/30/1899. Never throws. `today` supplies the year of a date without one.
[[nodiscard]] bool IsDate(const QString& text, const QDate& today);

/// How FixDate takes a text. Loose: as a date that it does not spell out, because a part is missing, stands in another
/// order or is a two-digit year of the last century. The last three mean no date.
enum class DateSense { Blank, Plain, Loose, Unreadable, TooEarly, Future };
[[nodiscard]] DateSense SenseOf(const QString& text, const QDate& today);

struct DateParts
{
    qint16 year = 0, month = 0, day = 0;
    bool operator==(const DateParts&) const = default;
};

/// A time by the clock face: hour 1 to 12, and "AM" or "PM".
struct TimeParts
{
    qint16 hour = 0, minute = 0, second = 0;
    QString half;
    bool operator==(const TimeParts&) const = default;
};

[[nodiscard]] DateParts SepDate(const QDate& date);
[[nodiscard]] TimeParts SepTime(const QTime& time);
[[nodiscard]] std::pair<DateParts, TimeParts> SepDateTime(const QDateTime& value);

/// The date that a text begins with (up to its first blank), else the date that the whole text is, as
/// MM/DD/YY;
/// "" if neither is a date by IsDate.
[[nodiscard]] QString ExtractDate(const QString& text, const QDate& today);

} // namespace vasclip::common
