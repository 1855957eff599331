#pragma once

#include "platform/street/features.h"

#include <vector>

namespace vasclip::mapdata {

/// Cuts ways where another street meets them, so that every junction is an end of each street that is there. Drives,
/// tracks, paths and rails cut nothing and stay whole.
[[nodiscard]] std::vector<street::RoadEdge> CutAtJunctions(std::vector<street::RoadEdge> ways);

} // namespace vasclip::mapdata
