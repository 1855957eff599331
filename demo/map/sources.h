#pragma once

#include <QString>

namespace vasclip::demo {

/// The county's name on the map.
inline constexpr char16_t kCountyName[] = u"Calder";

/// Writes the streets and the ground of the county as files that an importer of street data reads: GeoJSON with the
/// columns of the census' street files. @param directory  native; there already
/// @throws RuntimeError 75
void WriteMapSources(const QString& directory);

} // namespace vasclip::demo
