#pragma once

#include "house/include_graph.h"

namespace vasclip::house {

/// What a file of the house takes by itself though it should be handed it, or keeps though the program should own it:
/// the system's clock, state of the whole process. Empty when all is well.
[[nodiscard]] QStringList HandedViolations(const Sources& sources);

} // namespace vasclip::house
