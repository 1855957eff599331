#pragma once

#include <QString>

namespace vasclip::common {

/// A letter that follows a non-letter, or stands first, in upper case, all other letters in lower case; the
/// rest as it is. Digits are no letters, so "12TH ST" becomes "12Th St".
[[nodiscard]] QString ProperCase(const QString& text);

/// An address in the case of the ADDRESSCASE setting: 0 upper case, 1 proper case, anything else as it is.
[[nodiscard]] QString AddressInCase(const QString& text, int addressCase);

} // namespace vasclip::common
