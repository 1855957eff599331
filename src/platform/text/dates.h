#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>

#include <optional>

namespace vasclip::text {

/// Day 0 of the serials, "December 30, 1899".
[[nodiscard]] QDate SerialEpoch();
[[nodiscard]] qint64 DateSerial(const QDate& date); ///< days from SerialEpoch; midnights crossed
[[nodiscard]] QDate FromSerial(double serial);

/// Reads a date as the language's own conversion does in US settings, whatever the machine's locale: M/D/Y with
/// "/" or "-", month names ("March 7, 2004", "7-Mar-04"), two-digit years that turn at 29/30, an ISO date, a time
/// behind or instead of it, M/D (the year of `today`), M/Y where there is no such day ("2/30" is February 1930). Three numbers that are no
/// M/D/Y are taken as Y/M/D, and only then as D/M/Y: "13/2/4" is 4 February 2013. Dots separate times.
/// @return nullopt if it is no date; else the wall clock's date and time, in UTC so that no summer time moves it; a
///         time alone stands on the day of SerialEpoch
[[nodiscard]] std::optional<QDateTime> ReadDate(const QString& text, const QDate& today);

/// The date pictures in use, without regard to case: d, dd, ddd, dddd, m, mm, mmm, mmmm, yy, yyyy, h, hh, n, nn,
/// s, ss, AM/PM, "Short Date"; m after h is minutes; all else stands as it is.
[[nodiscard]] QString Format(const QDateTime& value, const QString& picture);

} // namespace vasclip::text
