#pragma once

#include "forms/ports.h"

namespace vasclip::upkeep {

/// More records than these are printed after a question alone.
inline constexpr qint64 kMostUnasked = 500;

/// Asks where there are many records. @return may they be printed?
[[nodiscard]] bool MayPrint(forms::Prompter& prompter, qint64 count);

} // namespace vasclip::upkeep
