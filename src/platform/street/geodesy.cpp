#include "platform/street/geodesy.h"

#include <GeographicLib/Geodesic.hpp>

#include <cmath>

namespace vasclip::street {

namespace {

constexpr double kMetresPerFoot = 0.3048;
constexpr double kDegree = 1e6;

} // namespace

double DistanceFeet(Place from, Place to)
{
    double metres = 0;
    GeographicLib::Geodesic::WGS84().Inverse(from.latitude / kDegree, from.longitude / kDegree,
                                             to.latitude / kDegree, to.longitude / kDegree, metres);
    return metres / kMetresPerFoot;
}

Place Project(Place from, double azimuth, double feet)
{
    double latitude = 0;
    double longitude = 0;
    GeographicLib::Geodesic::WGS84().Direct(from.latitude / kDegree, from.longitude / kDegree, azimuth,
                                            feet * kMetresPerFoot, latitude, longitude);
    return {static_cast<qint32>(std::lround(latitude * kDegree)),
            static_cast<qint32>(std::lround(longitude * kDegree))};
}

} // namespace vasclip::street
