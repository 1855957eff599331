#pragma once

namespace vasclip::shell {

class MapEvents;
class Program;

/// The screen of the street maps. Maps that it brings or takes away are at once those of the map tab.
void ShowMapData(Program& program, MapEvents& map);

} // namespace vasclip::shell
