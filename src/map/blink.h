#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Shows the point of a caption and lets it blink; without one the record of that key is looked for on the map.
void MapFindAndBlink(MapDesk& desk, const QString& key);
/// The same for a point by its number. @return false if there is none
bool BlinkPoint(MapDesk& desk, qint32 id);
/// A click in the list of those within the circle.
void lstaddresses_Click(MapDesk& desk);

} // namespace vasclip::map
