#pragma once

#include "mapdata/tiger_reader.h"

namespace vasclip::mapdata {

/// Reads an OpenStreetMap file, whose things lie in no layer of their own.
/// @return false if it was stopped
[[nodiscard]] bool ReadOsm(const VectorFile& file, const LayerJob& job);

/// Tells GDAL which tags we want; once, before the first such file is opened.
void PrepareOsm();

} // namespace vasclip::mapdata
