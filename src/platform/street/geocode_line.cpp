#include "platform/street/geocode_line.h"

#include <algorithm>
#include <cmath>

namespace vasclip::street {

namespace {

constexpr double kFeetPerMicroDegree = 0.36454; // of latitude, in the middle of the country

struct Vector
{
    double east = 0;
    double north = 0;
    [[nodiscard]] double Length() const { return std::hypot(east, north); }
};

/// How much shorter a degree of longitude is than one of latitude; a little more than the cosine, since the globe is
/// flat at its poles.
double Shrink(Place at)
{
    const double latitude = at.latitude / 1e6 * 3.14159265358979 / 180;
    return std::cos(latitude) * (1 + 0.0034 * (1 + std::sin(latitude) * std::sin(latitude)) / 2);
}

Vector Between(Place from, Place to)
{
    return {(double(to.longitude) - from.longitude) * kFeetPerMicroDegree * Shrink(from),
            (double(to.latitude) - from.latitude) * kFeetPerMicroDegree};
}

Place Moved(Place from, Vector by)
{
    return {static_cast<qint32>(std::lround(from.latitude + by.north / kFeetPerMicroDegree)),
            static_cast<qint32>(std::lround(from.longitude + by.east / kFeetPerMicroDegree / Shrink(from)))};
}

} // namespace

double PlaneFeet(Place from, Place to)
{
    return Between(from, to).Length();
}

double LengthFeet(const std::vector<Place>& line)
{
    double feet = 0;
    for (std::size_t at = 1; at < line.size(); ++at)
        feet += PlaneFeet(line[at - 1], line[at]);
    return feet;
}

Place PlaceBeside(const std::vector<Place>& line, double share, Side side, double feet)
{
    if (line.empty())
        return {};
    double left = std::clamp(share, 0.0, 1.0) * LengthFeet(line);
    for (std::size_t at = 1; at < line.size(); ++at) {
        const Vector step = Between(line[at - 1], line[at]);
        const double length = step.Length();
        if (length <= 0 || (left > length && at + 1 < line.size())) {
            left -= length;
            continue;
        }
        const double part = std::min(1.0, left / length);
        const double beside = feet * static_cast<double>(side) / length;
        return Moved(line[at - 1],
                     {step.east * part - step.north * beside, step.north * part + step.east * beside});
    }
    return line.back();
}

Foot FootOf(Place place, const std::vector<Place>& line)
{
    Foot best;
    best.feet = PlaneFeet(line.front(), place);
    double bestAlong = 0;
    double before = 0;
    for (std::size_t at = 1; at < line.size(); ++at) {
        const Vector step = Between(line[at - 1], line[at]);
        const Vector to = Between(line[at - 1], place);
        const double length = step.Length();
        if (length <= 0)
            continue;
        const double part = std::clamp((step.east * to.east + step.north * to.north) / length / length, 0.0, 1.0);
        const Vector off{to.east - step.east * part, to.north - step.north * part};
        if (at == 1 || off.Length() < best.feet) {
            best.feet = off.Length();
            best.side = step.east * to.north - step.north * to.east >= 0 ? Side::Left : Side::Right;
            bestAlong = before + length * part;
        }
        before += length;
    }
    best.share = before > 0 ? bestAlong / before : 0;
    return best;
}

} // namespace vasclip::street
