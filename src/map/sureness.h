#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// How sure a point's place is, for people: "set by hand", "by its house, within 30 feet"; "" where nothing tells.
[[nodiscard]] QString SurenessOf(MapDesk& desk, const MapPoint& point);

/// Of the subject and the selected point, beside their proximity: "Subject: set by hand. Comp: ..."; "" without both.
/// @param address  on show: "" where the selected point is another one's
[[nodiscard]] QString ProximitySureness(MapDesk& desk, const QString& address);

} // namespace vasclip::map
