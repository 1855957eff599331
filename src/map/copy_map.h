#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Draws the map as it stands and puts it into the report, as the location map, the general map or the fax page.
void cmdCopyMap_Click(MapDesk& desk);
/// One of the three is on.
void optMapAddendum_Click(MapDesk& desk, int index);
[[nodiscard]] int ChosenAddendum(const MapDesk& desk);

/// Draws it into a file of the program's directory. @return its drive path, "" if it failed, which has been told
[[nodiscard]] QString DrawMap(MapDesk& desk, const QString& name);

} // namespace vasclip::map
