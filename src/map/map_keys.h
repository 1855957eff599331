#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// A key went down on the map. @param keyCode, shift  as forms::Control::KeyPressed, letters by their capital
/// @return false for a key that means nothing here
bool mapview_KeyDown(MapDesk& desk, int keyCode, int shift);
void mapview_KeyUp(MapDesk& desk, int keyCode);

} // namespace vasclip::map
