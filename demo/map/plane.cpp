#include "demo/map/plane.h"

#include <algorithm>
#include <cmath>

namespace vasclip::demo {
namespace {

constexpr double kPi = 3.14159265358979;
constexpr double kMile = 5280;
constexpr double kFeetPerDegree = 69.0 * kMile;

double FeetPerDegreeEast()
{
    return kFeetPerDegree * std::cos(TownHall().latitude * kPi / 180);
}

double Turn(Point a, Point b, Point c)
{
    return (b.east - a.east) * (c.north - a.north) - (b.north - a.north) * (c.east - a.east);
}

} // namespace

Point OnPlane(const Place& place)
{
    return {(place.longitude - TownHall().longitude) * FeetPerDegreeEast(),
            (place.latitude - TownHall().latitude) * kFeetPerDegree};
}

Place OnGlobe(Point point)
{
    return {TownHall().latitude + point.north / kFeetPerDegree,
            TownHall().longitude + point.east / FeetPerDegreeEast()};
}

Point Miles(double east, double north)
{
    return {east * kMile, north * kMile};
}

double Distance(Point a, Point b)
{
    return std::hypot(a.east - b.east, a.north - b.north);
}

Point Between(Point from, Point to, double share)
{
    return {from.east + (to.east - from.east) * share, from.north + (to.north - from.north) * share};
}

Point NearestOn(const Line& line, Point point)
{
    Point best = line.front();
    for (std::size_t at = 1; at < line.size(); ++at) {
        const Point from = line[at - 1];
        const Point step{line[at].east - from.east, line[at].north - from.north};
        const double length = step.east * step.east + step.north * step.north;
        const double along =
            length > 0 ? ((point.east - from.east) * step.east + (point.north - from.north) * step.north) / length : 0;
        const Point foot = Between(from, line[at], std::clamp(along, 0.0, 1.0));
        if (Distance(foot, point) < Distance(best, point))
            best = foot;
    }
    return best;
}

std::optional<std::pair<double, double>> Meet(Point from, Point to, Point otherFrom, Point otherTo)
{
    const double first = Turn(otherFrom, otherTo, from);
    const double second = Turn(otherFrom, otherTo, to);
    const double third = Turn(from, to, otherFrom);
    const double fourth = Turn(from, to, otherTo);
    if (first == second || third == fourth)
        return std::nullopt;
    const double share = first / (first - second);
    const double otherShare = third / (third - fourth);
    constexpr double kTouch = 1e-6; // a street that ends at another meets it
    const auto isOn = [](double where) { return where >= -kTouch && where <= 1 + kTouch; };
    if (!isOn(share) || !isOn(otherShare))
        return std::nullopt;
    return std::pair(std::clamp(share, 0.0, 1.0), std::clamp(otherShare, 0.0, 1.0));
}

Line Bent(const Line& line)
{
    constexpr int kSteps = 6;
    const std::size_t last = line.size() - 1;
    const auto bend = [](double before, double from, double to, double behind, double t) {
        return 0.5 * (2 * from + (to - before) * t + (2 * before - 5 * from + 4 * to - behind) * t * t +
                      (3 * from - before - 3 * to + behind) * t * t * t);
    };
    Line bent{line.front()};
    for (std::size_t at = 0; at < last; ++at) {
        const Point& before = line[at == 0 ? 0 : at - 1];
        const Point& from = line[at];
        const Point& to = line[at + 1];
        const Point& behind = line[std::min(at + 2, last)];
        for (int step = 1; step < kSteps; ++step) {
            const double t = double(step) / kSteps;
            bent.push_back({bend(before.east, from.east, to.east, behind.east, t),
                            bend(before.north, from.north, to.north, behind.north, t)});
        }
        bent.push_back(to);
    }
    return bent;
}

Line RingAround(const std::vector<Point>& points, double margin)
{
    std::vector<Point> sorted;
    for (const Point& point : points) {
        const Line around = Oval(point, margin, margin, 8);
        sorted.insert(sorted.end(), around.begin(), around.end() - 1);
    }
    std::sort(sorted.begin(), sorted.end(), [](Point a, Point b) {
        return a.east != b.east ? a.east < b.east : a.north < b.north;
    });
    Line ring;
    const auto walk = [&ring](auto begin, auto end) {
        const std::size_t before = ring.size();
        for (auto at = begin; at != end; ++at) {
            while (ring.size() >= before + 2 && Turn(ring[ring.size() - 2], ring.back(), *at) <= 0)
                ring.pop_back();
            ring.push_back(*at);
        }
        ring.pop_back(); // it begins the way back
    };
    walk(sorted.begin(), sorted.end());
    walk(sorted.rbegin(), sorted.rend());
    ring.push_back(ring.front());
    return ring;
}

Line Oval(Point middle, double eastFeet, double northFeet, int corners)
{
    Line ring;
    for (int corner = 0; corner < corners; ++corner) {
        const double turn = corner * 2 * kPi / corners;
        ring.push_back({middle.east + std::cos(turn) * eastFeet, middle.north + std::sin(turn) * northFeet});
    }
    ring.push_back(ring.front());
    return ring;
}

Line Band(const Line& line, double width)
{
    Line ring;
    const auto walk = [&](bool back) {
        for (std::size_t step = 0; step < line.size(); ++step) {
            const std::size_t at = back ? line.size() - 1 - step : step;
            const Point before = line[at == 0 ? 0 : at - 1];
            const Point behind = line[std::min(at + 1, line.size() - 1)];
            const double length = Distance(before, behind);
            const double aside = (back ? -width : width) / 2 / length;
            ring.push_back({line[at].east - (behind.north - before.north) * aside,
                            line[at].north + (behind.east - before.east) * aside});
        }
    };
    walk(false);
    walk(true);
    ring.push_back(ring.front());
    return ring;
}

} // namespace vasclip::demo
