#pragma once

#include "mapdata/tiger_reader.h"

namespace vasclip::mapdata {

/// Reads address points. @return false if it was stopped
[[nodiscard]] bool ReadHouses(VectorLayer& layer, const LayerJob& job);

} // namespace vasclip::mapdata
