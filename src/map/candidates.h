#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Looks an address up without placing anything. @return its place, if it was found north of the equator
[[nodiscard]] std::optional<street::Place> MapFindAddress(MapDesk& desk, const QString& address);

/// Sets a pin for each row of a list, which begins with a latitude and a longitude in degrees.
/// @param firstKind  red pins, else green ones
/// @return their numbers
QList<qint32> ShowCandidates(MapDesk& desk, forms::ListBox& list, bool firstKind);

/// What is said of an address that was not found, with the counties in which nobody could look: it may be there.
[[nodiscard]] QString NotFoundWords(const MapDesk& desk, const QString& location);

} // namespace vasclip::map
