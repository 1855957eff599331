#pragma once

#include <QString>

namespace vasclip::link {

/// Miles between two places, as texts of a longitude and a latitude in degrees joined by "|": the plain measure of a
/// picture's coordinates, not the globe's. 0 where either is empty.
[[nodiscard]] float DoCalcProximity(const QString& subject, const QString& comp);

} // namespace vasclip::link
