#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Draws the map as it stands and puts it into the report, as the location map, the general map or the fax page.
void cmdCopyMap_Click(MapDesk& desk);
/// Shows the picture that would go there, from which it can be sent as it is.
void cmdPreviewMap_Click(MapDesk& desk);
/// Puts a picture that was drawn into the report. @param index  of optMapAddendum
void SendMap(MapDesk& desk, int index, const QString& file);
/// One of the three is on.
void optMapAddendum_Click(MapDesk& desk, int index);
[[nodiscard]] int ChosenAddendum(const MapDesk& desk);

/// Draws the picture of one of the three, behind its stock picture.
[[nodiscard]] QString DrawAddendum(MapDesk& desk, int addendum);
/// Draws it into a file of the program's directory. @return its drive path, "" if it failed, which has been told
[[nodiscard]] QString DrawMap(MapDesk& desk, const QString& name);

} // namespace vasclip::map
