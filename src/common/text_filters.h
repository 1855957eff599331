#pragma once

#include "forms/controls.h"

#include <QString>

namespace vasclip::common {

/// Replaces every occurrence, with regard to case. A replacement that holds the search text isn't looked at
/// again; an empty search text changes nothing.
[[nodiscard]] QString ReplaceChar(const QString& text, const QString& search, const QString& replacement);

/// The common text filter: takes out the characters 1 to 31, 33 to 39, 42, 43, 47, 58 to 64, 92, 94, 96, 126
/// and 127. Comma, parentheses, hyphen, period, brackets and underscore pass.
[[nodiscard]] QString RemoveIllegalChars(const QString& text);

/// The trimmed text behind as many pad characters as fill `width`; a longer text loses its beginning.
[[nodiscard]] QString PadLeft(const QString& text, int width, QChar pad);

/// True for "0" to "9" and "-"; an empty text is not numeric. Only the first character counts.
[[nodiscard]] bool IsNumericChar(const QString& character);

/// Clears a field and puts the focus there.
void errClearFldSetFocus(forms::TextBox& field);
void errClearFldSetFocus(forms::ComboBox& field);

} // namespace vasclip::common
