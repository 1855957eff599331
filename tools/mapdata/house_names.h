#pragma once

#include "platform/street/features.h"

#include <QSet>

#include <vector>

namespace vasclip::mapdata {

/// What a map of houses alone is known by: the names of streets that have no line, among their houses, and the towns
/// that the houses name and that no source has.
/// @param lines  the names of all streets that have a line
/// @param places  the names of all places
[[nodiscard]] std::vector<street::PlaceName> NamesOfHouses(const std::vector<street::AddressPoint>& houses,
                                                           const QSet<QString>& lines, const QSet<QString>& places);

} // namespace vasclip::mapdata
