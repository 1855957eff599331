#include "platform/street/geocode_range.h"

#include <algorithm>
#include <cmath>

namespace vasclip::street {

namespace {

/// Nobody builds houses nearer to each other, front door to front door.
constexpr double kNarrowestFeet = 14;
/// What a house may be away even where the numbers are right: the lots differ in width.
constexpr double kLeastFeet = 50;

bool IsMixed(const StoredSide& side)
{
    return (side.from.value - side.to.value) % 2 != 0;
}

/// "100 to 198" is what a block was given, not what stands there.
bool IsWholeBlock(const StoredSide& side)
{
    const int low = std::min(side.from.value, side.to.value) % 100;
    const int high = std::max(side.from.value, side.to.value) % 100;
    return low <= 1 && high >= 98;
}

} // namespace

RangeFit FitOf(const HouseNumber& number, const StoredSide& side)
{
    RangeFit fit;
    if (number.IsEmpty() || side.from.IsEmpty() || side.from.prefix != number.prefix ||
        side.to.prefix != number.prefix)
        return fit;
    const int low = std::min(side.from.value, side.to.value);
    const int high = std::max(side.from.value, side.to.value);
    if (number.value < low || number.value > high)
        return fit;
    fit.inside = IsMixed(side) || (number.value - low) % 2 == 0;
    fit.otherSide = !fit.inside;
    fit.share = low == high ? 0.5 : double(number.value - side.from.value) / double(side.to.value - side.from.value);
    return fit;
}

HouseNumber NumberAt(double share, const StoredSide& side)
{
    if (side.from.IsEmpty() || side.from.prefix != side.to.prefix)
        return {};
    const double span = side.to.value - side.from.value;
    const double step = IsMixed(side) ? 1 : 2;
    HouseNumber number = side.from;
    number.suffix.clear();
    number.value += static_cast<int>(std::lround(share * span / step) * step);
    return number;
}

RangeQuality QualityOf(const StoredSide& side, double lengthFeet)
{
    const int span = std::abs(side.to.value - side.from.value);
    const double houses = IsMixed(side) ? span + 1 : span / 2 + 1;
    RangeQuality quality;
    quality.implausible = houses > 2 && lengthFeet / (houses - 1) < kNarrowestFeet;
    // A range of a block that is not full crowds its houses at one end.
    const double part = quality.implausible || IsWholeBlock(side) ? 0.5 : span == 0 ? 0.5 : 0.2;
    quality.uncertaintyFeet = std::max(kLeastFeet, lengthFeet * part);
    return quality;
}

} // namespace vasclip::street
