#pragma once

#include <QString>

namespace vasclip::databook {

/// A letter behind a non-letter (or at the beginning) upper case, all other letters lower case; digits count
/// as non-letters: "12TH ST" gives "12Th St".
[[nodiscard]] QString ProperCase(const QString& text);

/// An address as ADDRESSCASE wants it: 0 upper case, 1 proper case, anything else as it is; trimmed in every
/// case.
[[nodiscard]] QString AddressInCase(const QString& address, int addressCase);

} // namespace vasclip::databook
