#pragma once

#include <QChar>
#include <QString>

#include <span>

namespace vasclip::databook {

/// A kind of comp: its letter in APPRSLTYPE, its line in `cboapprslType`, its text when a record selects it,
/// and its entry screen.
struct CompType
{
    char letter;
    QLatin1StringView listText;
    QLatin1StringView selectText; ///< manufactured housing has an older name here
    QLatin1StringView entryForm;
};

/// The six types, in the order of the list.
[[nodiscard]] std::span<const CompType> CompTypes();

/// The letter that a type's text begins with, upper-cased: F, C, S, R, L, M, or a blank for a text that
/// begins with a blank; a null character for an empty text and for every other letter.
[[nodiscard]] QChar CompTypeLetter(const QString& text);

/// The entry screen of an APPRSLTYPE value; blank and unknown letters open the single family screen.
[[nodiscard]] QLatin1StringView EntryFormOf(const QString& apprslType);

} // namespace vasclip::databook
