#pragma once

#include "platform/street/types.h"

#include <vector>

namespace vasclip::mapdata {

using Line = std::vector<street::Place>;

/// The sea beside coastlines, which have the water on their right: rings, filled by the even-odd rule, that end at the
/// edges of the ground. Lines that end within the ground, as those of a cut-out do, are led to its nearest edge.
/// @param coasts  in any order; those of islands are closed
[[nodiscard]] std::vector<Line> SeaOf(const std::vector<Line>& coasts, const street::Extent& ground);

/// Twice the surface within a closed ring, in squares of a millionth of a degree: positive where it goes round against
/// the clock.
[[nodiscard]] double TurnOf(const Line& ring);

} // namespace vasclip::mapdata
