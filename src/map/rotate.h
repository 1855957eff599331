#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Gives an arrow another direction, if there is a bitmap of it. Its anchor stays.
/// @param direction  1 to 8; @return false if nothing was turned
bool TurnArrow(MapDesk& desk, const MapPoint& point, int direction);

/// Turns the selected arrow on by one direction; houses have none.
void cmdRotate_Click(MapDesk& desk);

} // namespace vasclip::map
