#pragma once

#include "platform/street/features.h"

#include <QString>

#include <vector>

namespace vasclip::tests {

/// A made-up town of straight streets, with house numbers, one highway, a lake and a park.
struct MadeTown
{
    /// @param corner   its south-west corner
    /// @param streets  this many from south to north and as many from west to east, a block of 110 m apart
    explicit MadeTown(street::Place corner = {32'000'000, -86'000'000}, int streets = 10);

    std::vector<street::RoadEdge> edges;
    std::vector<street::AddressPoint> houses;
    std::vector<street::MapArea> areas;
    std::vector<street::WaterLine> brooks;
    std::vector<street::PlaceName> places;
    std::vector<street::ZipArea> zips;
};

/// A rectangle as a ring, closed.
[[nodiscard]] std::vector<street::Place> Box(street::Place low, street::Place high);

} // namespace vasclip::tests
