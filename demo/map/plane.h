#pragma once

#include "demo/town.h"

#include <optional>
#include <vector>

namespace vasclip::demo {

/// A place on the town's plane: feet east and north of the town hall.
struct Point
{
    double east = 0;
    double north = 0;
};

using Line = std::vector<Point>;

[[nodiscard]] Point OnPlane(const Place& place);
[[nodiscard]] Place OnGlobe(Point point);
[[nodiscard]] Point Miles(double east, double north);

[[nodiscard]] double Distance(Point a, Point b);
/// The nearest to `point` of the places on a line.
[[nodiscard]] Point NearestOn(const Line& line, Point point);
/// Where two stretches meet, as shares of the first and the second; nullopt where they don't.
[[nodiscard]] std::optional<std::pair<double, double>> Meet(Point from, Point to, Point otherFrom, Point otherTo);
[[nodiscard]] Point Between(Point from, Point to, double share);

/// A line with bends for corners, through the same places.
[[nodiscard]] Line Bent(const Line& line);

/// The smallest ring without a bay around all points, `margin` feet away from them.
[[nodiscard]] Line RingAround(const std::vector<Point>& points, double margin);
/// A ring with the corners of an oval.
[[nodiscard]] Line Oval(Point middle, double eastFeet, double northFeet, int corners);
/// A ring along a line, so many feet wide.
[[nodiscard]] Line Band(const Line& line, double width);

} // namespace vasclip::demo
