#pragma once

#include <QString>

namespace vasclip::mapdata {

/// Do the things of an OpenStreetMap file stand in the order in which it can be read in one pass: nodes, then ways,
/// then relations? Of others GDAL would lose nearly all ways without a word.
/// @param path  native, of a .pbf or .osm file
/// @return "" where they do, else what is wrong
[[nodiscard]] QString OsmOrderFault(const QString& path);

} // namespace vasclip::mapdata
