#pragma once

#include <QString>

#include <optional>

namespace vasclip::databook {

/// A price or an area as it is stored: digits, and the cents behind a point. What people write around them goes: "$", the
/// commas of the thousands, blanks, and "sf" or "sq ft" behind an area.
/// @param field  SELLINGPR has two decimals at most; any other is an area
/// @return "" for a blank text; nullopt for one that is no number, such as "250K", "1,60" or "12-14"
[[nodiscard]] std::optional<QString> PlainNumber(const QString& text, const QString& field);

/// Is a field a price or an area, whose text has to be a number?
[[nodiscard]] bool WantsNumber(const QString& field);

/// Why a text is refused: names it, and what to type instead.
[[nodiscard]] QString NoNumberText(const QString& text, const QString& field);

} // namespace vasclip::databook
