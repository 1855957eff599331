#include "link/coordinate_miles.h"

#include "platform/text/text.h"

#include <cmath>

namespace vasclip::link {

float DoCalcProximity(const QString& subject, const QString& comp)
{
    if (subject.isEmpty() || comp.isEmpty())
        return 0;
    const auto left = [](const QString& text) { return text::Val(text.section(u'|', 0, 0)); };
    const auto right = [](const QString& text) { return text::Val(text.section(u'|', 1)); };
    constexpr double kLatitudeOfMile = 0.0145, kLongitudeOfMile = 0.017213;
    const double north = (right(subject) - right(comp)) / kLatitudeOfMile;
    const double east = (left(subject) - left(comp)) / kLongitudeOfMile;
    return static_cast<float>(std::pow(std::pow(north, 2) + std::pow(east, 2), 0.5));
}

} // namespace vasclip::link
