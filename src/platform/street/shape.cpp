#include "platform/street/shape.h"

#include <cmath>
#include <utility>

namespace vasclip::street::shape {

namespace {

constexpr double kMetresPerUnit = 0.111195; ///< a millionth of a degree of latitude

double Squeeze(qint32 latitude)
{
    constexpr double kRadian = 3.14159265358979323846 / 180e6;
    return std::cos(latitude * kRadian);
}

/// Squared distance of `place` from the step between two others, in units of latitude.
double Aside(Place place, Place from, Place to, double squeeze)
{
    const double stepX = (double(to.longitude) - from.longitude) * squeeze;
    const double stepY = double(to.latitude) - from.latitude;
    double x = (double(place.longitude) - from.longitude) * squeeze;
    double y = double(place.latitude) - from.latitude;
    const double length = stepX * stepX + stepY * stepY;
    if (length > 0) {
        const double along = std::clamp((x * stepX + y * stepY) / length, 0.0, 1.0);
        x -= along * stepX;
        y -= along * stepY;
    }
    return x * x + y * y;
}

/// Which places of a line stay.
std::vector<bool> Staying(const std::vector<Place>& line, double metres)
{
    std::vector<bool> stays(line.size(), false);
    stays.front() = stays.back() = true;
    const double squeeze = Squeeze(line.front().latitude);
    const double limit = (metres / kMetresPerUnit) * (metres / kMetresPerUnit);
    // In pieces: a line that goes to and fro many thousand times would take hours as a whole.
    constexpr std::size_t kPiece = 1000;
    std::vector<std::pair<std::size_t, std::size_t>> open;
    for (std::size_t from = 0; from + 1 < line.size(); from += kPiece) {
        open.emplace_back(from, std::min(from + kPiece, line.size() - 1));
        stays[from] = true;
    }
    while (!open.empty()) {
        const auto [from, to] = open.back();
        open.pop_back();
        double farthest = limit;
        std::size_t found = 0;
        for (std::size_t at = from + 1; at < to; ++at) {
            if (const double aside = Aside(line[at], line[from], line[to], squeeze); aside > farthest) {
                farthest = aside;
                found = at;
            }
        }
        if (found > 0) {
            stays[found] = true;
            open.emplace_back(from, found);
            open.emplace_back(found, to);
        }
    }
    return stays;
}

/// Cuts a ring at one side of an extent. `inside` says on which side a place lies, `cross` where a step meets it.
template <class Inside, class Cross>
std::vector<Place> CutAt(const std::vector<Place>& ring, Inside inside, Cross cross)
{
    std::vector<Place> cut;
    cut.reserve(ring.size() + 4);
    for (std::size_t at = 0; at < ring.size(); ++at) {
        const Place from = ring[at == 0 ? ring.size() - 1 : at - 1];
        const Place to = ring[at];
        if (inside(from) != inside(to))
            cut.push_back(cross(from, to));
        if (inside(to))
            cut.push_back(to);
    }
    return cut;
}

std::vector<Place> CutLatitude(const std::vector<Place>& ring, qint32 limit, int sign)
{
    return CutAt(
        ring, [=](Place place) { return (qint64(place.latitude) - limit) * sign >= 0; },
        [=](Place from, Place to) {
            const double share =
                (double(limit) - from.latitude) / (double(to.latitude) - from.latitude);
            return Place{limit, static_cast<qint32>(std::lround(
                                    from.longitude + share * (double(to.longitude) - from.longitude)))};
        });
}

std::vector<Place> CutLongitude(const std::vector<Place>& ring, qint32 limit, int sign)
{
    return CutAt(
        ring, [=](Place place) { return (qint64(place.longitude) - limit) * sign >= 0; },
        [=](Place from, Place to) {
            const double share =
                (double(limit) - from.longitude) / (double(to.longitude) - from.longitude);
            return Place{static_cast<qint32>(
                             std::lround(from.latitude + share * (double(to.latitude) - from.latitude))),
                         limit};
        });
}

} // namespace

std::vector<Place> Simplified(const std::vector<Place>& line, double metres)
{
    if (line.size() < 3)
        return line;
    const std::vector<bool> stays = Staying(line, metres);
    std::vector<Place> lighter;
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (stays[at])
            lighter.push_back(line[at]);
    }
    return lighter;
}

std::vector<Place> SimplifiedRing(const std::vector<Place>& ring, double metres)
{
    if (ring.size() < 3)
        return {};
    // Halved at its farthest place, so that no end decides what is left of a closed line.
    std::vector<Place> closed = ring;
    if (closed.back() == closed.front())
        closed.pop_back();
    const double squeeze = Squeeze(ring.front().latitude);
    std::size_t far = 0;
    for (std::size_t at = 1; at < closed.size(); ++at) {
        if (Aside(closed[at], closed[0], closed[0], squeeze) > Aside(closed[far], closed[0], closed[0], squeeze))
            far = at;
    }
    const auto half = static_cast<std::ptrdiff_t>(far);
    std::vector<Place> out(closed.begin(), closed.begin() + half + 1);
    std::vector<Place> back(closed.begin() + half, closed.end());
    back.push_back(closed.front());
    out = Simplified(out, metres);
    back = Simplified(back, metres);
    out.insert(out.end(), back.begin() + 1, back.end() - 1);
    return out;
}

std::vector<Place> Clipped(const std::vector<Place>& ring, const Extent& extent)
{
    const Extent own = ExtentOf(ring);
    if (!own.Overlaps(extent))
        return {};
    std::vector<Place> cut = ring;
    if (own.low.latitude < extent.low.latitude)
        cut = CutLatitude(cut, extent.low.latitude, 1);
    if (own.high.latitude > extent.high.latitude)
        cut = CutLatitude(cut, extent.high.latitude, -1);
    if (own.low.longitude < extent.low.longitude)
        cut = CutLongitude(cut, extent.low.longitude, 1);
    if (own.high.longitude > extent.high.longitude)
        cut = CutLongitude(cut, extent.high.longitude, -1);
    return cut;
}

std::vector<std::vector<Place>> Pieces(const std::vector<Place>& line, const Extent& extent)
{
    std::vector<std::vector<Place>> pieces;
    bool inside = false;
    for (std::size_t at = 1; at < line.size(); ++at) {
        Extent step;
        step.Widen(line[at - 1]);
        step.Widen(line[at]);
        const bool touches = step.Overlaps(extent);
        if (touches && !inside)
            pieces.push_back({line[at - 1]});
        if (touches)
            pieces.back().push_back(line[at]);
        inside = touches;
    }
    return pieces;
}

Extent ExtentOf(const std::vector<Place>& line)
{
    Extent extent;
    for (const Place place : line)
        extent.Widen(place);
    return extent;
}

Extent Widened(const Extent& extent, qint32 by)
{
    if (extent.IsEmpty())
        return extent;
    Extent wide;
    wide.low = {std::max(extent.low.latitude - by, -90'000'000), std::max(extent.low.longitude - by, -180'000'000)};
    wide.high = {std::min(extent.high.latitude + by, 90'000'000), std::min(extent.high.longitude + by, 180'000'000)};
    return wide;
}

double Metres(const std::vector<Place>& line)
{
    double units = 0;
    const double squeeze = line.empty() ? 1 : Squeeze(line.front().latitude);
    for (std::size_t at = 1; at < line.size(); ++at)
        units += std::hypot((double(line[at].longitude) - line[at - 1].longitude) * squeeze,
                            double(line[at].latitude) - line[at - 1].latitude);
    return units * kMetresPerUnit;
}

double SquareMetres(const std::vector<Place>& ring)
{
    if (ring.size() < 3)
        return 0;
    double twice = 0;
    for (std::size_t at = 0; at < ring.size(); ++at) {
        // Counted from the first place on: whole coordinates would lose the small difference.
        const Place from = ring[at];
        const Place to = ring[at + 1 == ring.size() ? 0 : at + 1];
        const double fromX = double(from.longitude) - ring[0].longitude;
        const double fromY = double(from.latitude) - ring[0].latitude;
        const double toX = double(to.longitude) - ring[0].longitude;
        const double toY = double(to.latitude) - ring[0].latitude;
        twice += fromX * toY - toX * fromY;
    }
    return std::abs(twice) / 2 * Squeeze(ring.front().latitude) * kMetresPerUnit * kMetresPerUnit;
}

} // namespace vasclip::street::shape
