#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace vasclip::street {

/// The points of the compass as they stand before or behind a street's name.
enum class Direction : quint8 { None, N, NE, E, SE, S, SW, W, NW };

/// A word like "Street" by its number in the table of postal abbreviations; 0 for none. The numbers stand in
/// county files.
using StreetType = quint8;

/// The words of an address: upper case, without accents, full stops and apostrophes; a comma, a line end and the
/// like is a word "," of its own, and so is "#". Only the first 400 characters count.
[[nodiscard]] QStringList AddressWords(const QString& text);

/// "N", "NORTH", "NO" ...; None for any other word.
[[nodiscard]] Direction DirectionOf(QStringView word);
/// "" for None, else "N", "NE" ...
[[nodiscard]] QString DirectionText(Direction direction);
/// Whether one is the other or stands beside it, as NW stands beside N.
[[nodiscard]] bool DirectionsMeet(Direction one, Direction other);

/// "ST", "STREET", "STR" ...; 0 for any other word.
[[nodiscard]] StreetType TypeOf(QStringView word);
/// "ST" for Street; "" for 0 and for numbers that the table does not have.
[[nodiscard]] QString TypeText(StreetType type);
/// "STREET" for Street.
[[nodiscard]] QString TypeWhole(StreetType type);
/// Whether the word hardly ever is part of a name: a street of "Oak Creek" is often called so, one of
/// "Oak Street" never.
[[nodiscard]] bool TypeEndsName(StreetType type);

/// The two letters of a state at `words[at]`, taking up to three words; "" and a `count` of 0 for none.
[[nodiscard]] QString StateAt(const QStringList& words, qsizetype at, qsizetype& count);

/// "3RD" for "THIRD" and "3RD", "" for a word that is no ordinal. "23" gives "".
[[nodiscard]] QString OrdinalOf(QStringView word);
/// "103RD" for 103.
[[nodiscard]] QString OrdinalText(int number);
/// Whether the word begins a unit ("APT", "#"), which only counts when a number or letter follows.
[[nodiscard]] bool IsUnitWord(QStringView word);

} // namespace vasclip::street
