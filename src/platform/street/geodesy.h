#pragma once

#include "platform/street/types.h"

namespace vasclip::street {

/// Length of the shortest way between two places on the WGS84 ellipsoid, in feet.
[[nodiscard]] double DistanceFeet(Place from, Place to);

/// Where one gets by `feet` in the direction of `azimuth` degrees, from north towards the east.
[[nodiscard]] Place Project(Place from, double azimuth, double feet);

} // namespace vasclip::street
