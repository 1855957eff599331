#pragma once

#include "platform/street/types.h"

#include <vector>

/// Lines and rings made lighter: fewer places, or the piece that lies in a square.
namespace vasclip::street::shape {

/// Leaves out places that lie within `metres` of the line through those that stay; both ends stay.
[[nodiscard]] std::vector<Place> Simplified(const std::vector<Place>& line, double metres);
/// A ring likewise; fewer than three places where nothing of it can be seen at that size.
[[nodiscard]] std::vector<Place> SimplifiedRing(const std::vector<Place>& ring, double metres);

/// The part of a ring's surface inside `extent`, along whose sides it may run; fewer than three places for none.
[[nodiscard]] std::vector<Place> Clipped(const std::vector<Place>& ring, const Extent& extent);
/// The pieces of a line whose steps touch `extent`; steps stay whole.
[[nodiscard]] std::vector<std::vector<Place>> Pieces(const std::vector<Place>& line, const Extent& extent);

[[nodiscard]] Extent ExtentOf(const std::vector<Place>& line);
/// An extent with `by` more on each side, as far as the earth goes.
[[nodiscard]] Extent Widened(const Extent& extent, qint32 by);
/// Length in metres on a plane at the line's own latitude, good for a comparison.
[[nodiscard]] double Metres(const std::vector<Place>& line);
/// Surface of a ring in square metres, likewise.
[[nodiscard]] double SquareMetres(const std::vector<Place>& ring);

} // namespace vasclip::street::shape
