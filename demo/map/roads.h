#pragma once

#include "demo/map/plane.h"

namespace vasclip::demo {

/// One side of a piece of street: its house numbers in the direction of the line.
struct RoadSide
{
    int from = 0; ///< 0: no house stands there
    int to = 0;
};

/// A piece of road between two junctions.
struct RoadPiece
{
    QString name;
    QString kind; ///< code of the census' features: "S1400" a street, "R1011" a railway
    QString city, zip;
    Line line;
    RoadSide left, right;
};

/// The streets of the town with their house numbers, the roads that join them, and the railway, cut at every
/// junction; the same each time.
[[nodiscard]] std::vector<RoadPiece> Roads();

} // namespace vasclip::demo
