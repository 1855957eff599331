#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// What stands at 0, 0 on the map, by address or caption: anchored at a place whose text holds no number. The map shows it
/// there, in the sea, and measures from there; whoever places points tells it.
[[nodiscard]] QStringList PointsAtZero(MapDesk& desk);
/// The same in words, "" for none.
[[nodiscard]] QString AtZeroWords(MapDesk& desk);

} // namespace vasclip::map
