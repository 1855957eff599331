#pragma once

#include <QChar>
#include <QString>

namespace vasclip::text {

/// Takes off blanks (code 32) at both ends and nothing else. `trimmed()` would also take the carriage return
/// that the link needs.
[[nodiscard]] QString Trim(const QString& text);
[[nodiscard]] QString LTrim(const QString& text);
[[nodiscard]] QString RTrim(const QString& text);

/// Trimmed and upper-cased: the form in which keys, names and captions are compared.
[[nodiscard]] QString Folded(const QString& text);

/// The number that a text begins with, blanks ignored everywhere; "&H" and "&O" forms, exponents with E or D.
/// Anything else gives 0. Stops at a comma or "$". Rule: `Val` of the language.
[[nodiscard]] double Val(const QString& text);

/// Number to text with a leading blank before positives and zero: 12 gives " 12", .5 gives " .5". At most 15
/// significant digits, exponents as "1E+20".
[[nodiscard]] QString Str(double value);

/// Trimmed decimal of a whole number.
[[nodiscard]] QString Dec(qint64 value);

/// Rounds half to even. @throws RuntimeError 6 when out of range
[[nodiscard]] qint16 ToInt16(double value);
[[nodiscard]] qint32 ToInt32(double value);

/// The number pictures in use: digits `0` and `#`, the point, grouping commas, `$` and other literals, `%`,
/// quoted and escaped literals, up to three sections. The point of a picture is always printed, so 5 in
/// "###.##" is "5." and 0 is "."; halves round away from zero; the minus stands before literals.
[[nodiscard]] QString Format(double value, const QString& picture);

} // namespace vasclip::text
