#pragma once

#include "map/map_desk.h"
#include "map/map_ranges.h"

#include <vector>

namespace vasclip::map {

/// The point of a comp of the report.
struct SlotPoint
{
    link::SlotRef slot;
    qint32 id = 0; ///< its number, also where the address was not found and no point stands
};
/// Which comps a range of points shows, in the order of their numbers. An arrow tells its slot itself; a comp that was
/// not found stands in the next box that is not empty, and one placed by hand is taken from where it was put.
[[nodiscard]] std::vector<SlotPoint> ComposeRange(MapDesk& desk, link::Group group, MapRange range);

/// Sends the proximity of every comp whose arrow was placed, and of nothing else.
void cmdProx_Click(MapDesk& desk);

} // namespace vasclip::map
