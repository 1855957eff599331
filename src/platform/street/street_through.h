#pragma once

#include "platform/street/cell.h"

#include <vector>

namespace vasclip::street {

/// The street that runs past a place, as far as it can be followed under its name.
/// @return its pieces, each once; empty where no named street is within 300 feet
[[nodiscard]] std::vector<std::vector<Place>> StreetThrough(const CellSource& cells, Place place);

} // namespace vasclip::street
