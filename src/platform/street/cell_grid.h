#pragma once

#include "platform/street/cell.h"

#include <optional>
#include <vector>

/// The fixed squares that all maps are cut into, the same for every county. A square is numbered by its level, its
/// row from the south pole and its column from 180 degrees west, so that a row of squares has numbers in a row.
namespace vasclip::street::grid {

/// Edge of a square in millionths of a degree.
[[nodiscard]] qint32 Size(Level level);
[[nodiscard]] quint32 IdAt(Level level, Place place);
[[nodiscard]] Extent ExtentOf(quint32 id);
/// @return nullopt for a number that no square has
[[nodiscard]] std::optional<Level> LevelOf(quint32 id);

/// Squares of one row, first and last included.
struct Run
{
    quint32 first = 0;
    quint32 last = 0;
};
/// The squares that touch an extent, row by row from the south; none for an empty extent.
[[nodiscard]] std::vector<Run> Touching(Level level, const Extent& extent);
/// The squares that a line goes through, ascending, and by no more than its corners' boxes where it is steep.
[[nodiscard]] std::vector<quint32> Along(Level level, const std::vector<Place>& line);

/// The places on earth: a latitude to 90 degrees, a longitude to 180.
[[nodiscard]] bool IsOnEarth(Place place);

} // namespace vasclip::street::grid
