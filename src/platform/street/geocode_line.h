#pragma once

#include "platform/street/types.h"

#include <vector>

namespace vasclip::street {

/// The sides of a line, looking along it.
enum class Side : qint8 { Right = -1, Middle = 0, Left = 1 };

/// Feet from one place to another on a plane at their latitude, good within a county.
[[nodiscard]] double PlaneFeet(Place from, Place to);
[[nodiscard]] double LengthFeet(const std::vector<Place>& line);

/// The place at a share of a line's length, `feet` beside it.
/// @param share  0 at its first place to 1 at its last
[[nodiscard]] Place PlaceBeside(const std::vector<Place>& line, double share, Side side, double feet);

/// Where a place lies along a line.
struct Foot
{
    double share = 0; ///< of the line's length
    double feet = 0; ///< from the line
    Side side = Side::Left;
};
/// @param line  at least one place
[[nodiscard]] Foot FootOf(Place place, const std::vector<Place>& line);

} // namespace vasclip::street
