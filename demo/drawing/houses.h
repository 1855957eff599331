#pragma once

#include "demo/drawing/facade.h"

namespace vasclip::demo {

/// Where houses stand in a picture.
inline constexpr double kGround = 832;       ///< foot of the house
inline constexpr double kPavementTop = 1024; ///< where lawn and drive end

/// How much room a house takes, so that trees stand beside it.
struct Footprint
{
    double left = 0;
    double right = 0;
    double ridge = 0; ///< the highest point
};

/// Draws house, drive and walk around the middle of the picture. Plants are not part of it.
Footprint DrawHouse(Scene& scene, const Look& look);
/// The same house from its garden.
Footprint DrawHouseRear(Scene& scene, const Look& look);

} // namespace vasclip::demo
