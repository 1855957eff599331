#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Keeps for whom the point that was just added stands. An arrow names a box of the report alone, and the report can
/// have another address there a moment later: another report, two comps that changed places, one that was dropped.
void KeepPlacedFor(MapDesk& desk, qint32 id);

/// Is the address in the box of a point still the one that it was placed for? A house bears its address itself, and
/// what was placed before it was known counts as placed for it.
[[nodiscard]] bool StandsFor(const MapDesk& desk, const MapPoint& point);

/// "COMP #1: 12 OAK ST, now 9 ELM ST"
[[nodiscard]] QString OtherAddress(const MapDesk& desk, const MapPoint& point);

/// A point in words: its address, or, where the report has nothing for it by now, "COMP #1 (12 OAK ST)".
[[nodiscard]] QString PointWords(const MapDesk& desk, const MapPoint& point);

/// Asks before an address takes over an arrow that was placed for another one: its record would get the place, and its
/// distance would be measured there. Nothing is asked where the report has no address any more.
[[nodiscard]] bool MayStand(const MapDesk& desk, const std::vector<MapPoint>& points);

} // namespace vasclip::map
