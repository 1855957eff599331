#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Are there maps? Without them the tab stays empty, which a box tells.
/// @param problems  why the files that are there can't be used
bool TestMapFiles(MapDesk& desk, const QStringList& problems = {});
/// A line under the map says what of the maps can't be read, for as long as it can't.
void ShowMapProblems(MapDesk& desk, const QStringList& problems);
/// Sets the control up: labels, highlight, street clicks, detail.
void ConfigureMap(MapDesk& desk);
/// The tab's boxes from the settings that are kept from run to run, and back.
void ReadMapSettings(MapDesk& desk);
void KeepMapSettings(MapDesk& desk);
/// Makes the desk hear of the points that the radius circle finds; once, when both are there.
void AttachMap(MapDesk& desk);

} // namespace vasclip::map
