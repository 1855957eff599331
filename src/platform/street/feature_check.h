#pragma once

#include "platform/street/features.h"

#include <QString>

namespace vasclip::street {

/// Why a feature can't stand on a map, in words for an account; "" where nothing is wrong with it.
[[nodiscard]] QString Fault(const RoadEdge& edge);
[[nodiscard]] QString Fault(const AddressPoint& house);
[[nodiscard]] QString Fault(const MapArea& area);
[[nodiscard]] QString Fault(const WaterLine& line);
[[nodiscard]] QString Fault(const PlaceName& place);
[[nodiscard]] QString Fault(const ZipArea& area);

} // namespace vasclip::street
