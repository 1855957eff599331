#pragma once

#include "platform/street/lookup_reader.h"

namespace vasclip::street {

/// How a house number stands to the numbers of one side of an edge.
struct RangeFit
{
    bool inside = false;
    bool otherSide = false; ///< between its ends, but odd where they are even: across the street
    double share = 0; ///< of the way from the first place of the line to its last
};
[[nodiscard]] RangeFit FitOf(const HouseNumber& number, const StoredSide& side);

/// The number at a share of the way, odd or even as its side has them; empty where the side has none.
[[nodiscard]] HouseNumber NumberAt(double share, const StoredSide& side);

/// How far a number that is placed along a range may lie from its house.
struct RangeQuality
{
    double uncertaintyFeet = 0;
    bool implausible = false; ///< more numbers than houses can stand there: 1 to 99 on a short street
};
[[nodiscard]] RangeQuality QualityOf(const StoredSide& side, double lengthFeet);

} // namespace vasclip::street
