#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Are there maps? Without them the tab stays empty, which a box tells.
bool TestMapFiles(MapDesk& desk);
/// Sets the control up: labels, highlight, street clicks, detail.
void ConfigureMap(MapDesk& desk);
/// The tab's boxes from the settings that are kept from run to run, and back.
void ReadMapSettings(MapDesk& desk);
void KeepMapSettings(MapDesk& desk);
/// Makes the desk hear of the points that the radius circle finds; once, when both are there.
void AttachMap(MapDesk& desk);

} // namespace vasclip::map
