#include "mapdata/coast.h"

#include "mapdata/surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

namespace vasclip::mapdata {

namespace {

using street::Extent;
using street::Place;

bool IsClosed(const Line& line)
{
    return line.size() > 3 && line.front() == line.back();
}

/// Lines that go on in one another, joined.
std::vector<Line> Joined(const std::vector<Line>& coasts)
{
    std::map<std::pair<qint32, qint32>, std::vector<std::size_t>> begins;
    std::vector<bool> taken(coasts.size(), false);
    for (std::size_t at = 0; at < coasts.size(); ++at) {
        if (coasts[at].size() < 2 || IsClosed(coasts[at]))
            taken[at] = true;
        else
            begins[{coasts[at].front().latitude, coasts[at].front().longitude}].push_back(at);
    }
    std::vector<Line> joined;
    for (const Line& coast : coasts)
        if (IsClosed(coast))
            joined.push_back(coast);
    const auto next = [&](Place end) -> std::optional<std::size_t> {
        const auto found = begins.find({end.latitude, end.longitude});
        if (found == begins.end())
            return std::nullopt;
        for (const std::size_t at : found->second) {
            if (!taken[at]) {
                taken[at] = true;
                return at;
            }
        }
        return std::nullopt;
    };
    // From a line that none leads to; what is left then are rings of several lines.
    std::map<std::pair<qint32, qint32>, int> ends;
    for (const Line& coast : coasts)
        if (coast.size() > 1)
            ++ends[{coast.back().latitude, coast.back().longitude}];
    for (const bool rings : {false, true}) {
        for (std::size_t at = 0; at < coasts.size(); ++at) {
            if (taken[at] ||
                (!rings && ends.contains({coasts[at].front().latitude, coasts[at].front().longitude})))
                continue;
            taken[at] = true;
            Line line = coasts[at];
            while (const auto more = next(line.back()))
                line.insert(line.end(), coasts[*more].begin() + 1, coasts[*more].end());
            joined.push_back(std::move(line));
        }
    }
    return joined;
}

/// The part of a step that lies in the ground, as shares of it.
std::optional<std::pair<double, double>> Within(Place from, Place to, const Extent& ground)
{
    double low = 0;
    double high = 1;
    const auto cut = [&](double start, double step, double least, double most) {
        if (step == 0)
            return start >= least && start <= most;
        const double one = (least - start) / step;
        const double other = (most - start) / step;
        low = std::max(low, std::min(one, other));
        high = std::min(high, std::max(one, other));
        return low <= high;
    };
    if (cut(from.latitude, double(to.latitude) - from.latitude, ground.low.latitude, ground.high.latitude) &&
        cut(from.longitude, double(to.longitude) - from.longitude, ground.low.longitude, ground.high.longitude))
        return std::pair(low, high);
    return std::nullopt;
}

Place Along(Place from, Place to, double share)
{
    const auto at = [share](qint32 one, qint32 other) {
        return static_cast<qint32>(one + std::lround(share * (double(other) - one)));
    };
    return {at(from.latitude, to.latitude), at(from.longitude, to.longitude)};
}

/// The stretches of a line that lie in the ground.
std::vector<Line> Stretches(const Line& line, const Extent& ground)
{
    std::vector<Line> stretches;
    bool open = false;
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
        const auto part = Within(line[at], line[at + 1], ground);
        if (!part || part->first >= part->second) {
            open = false;
            continue;
        }
        if (!open || part->first > 0)
            stretches.push_back({Along(line[at], line[at + 1], part->first)});
        stretches.back().push_back(Along(line[at], line[at + 1], part->second));
        open = part->second >= 1;
    }
    return stretches;
}

/// How far along the edge of the ground a place of it lies, from the north-west corner with the clock: 0 to 4.
double OnEdge(Place place, const Extent& ground)
{
    const double width = double(ground.high.longitude) - ground.low.longitude;
    const double height = double(ground.high.latitude) - ground.low.latitude;
    const double east = (double(place.longitude) - ground.low.longitude) / width;
    const double south = (double(ground.high.latitude) - place.latitude) / height;
    const std::array<std::pair<double, double>, 4> sides{
        {{south, east}, {1 - east, 1 + south}, {1 - south, 3 - east}, {east, 4 - south}}};
    const auto nearest = std::min_element(sides.begin(), sides.end());
    return std::fmod(nearest->second, 4.0);
}

Place PlaceOnEdge(double at, const Extent& ground)
{
    const double side = std::fmod(at, 1.0);
    const Place northWest{ground.high.latitude, ground.low.longitude};
    const Place northEast = ground.high;
    const Place southEast{ground.low.latitude, ground.high.longitude};
    const Place southWest = ground.low;
    switch (static_cast<int>(at)) {
    case 0:
        return Along(northWest, northEast, side);
    case 1:
        return Along(northEast, southEast, side);
    case 2:
        return Along(southEast, southWest, side);
    default:
        return Along(southWest, northWest, side);
    }
}

/// How far it is with the clock from one place of the edge to another.
double Ahead(double from, double to)
{
    return to >= from ? to - from : to - from + 4;
}

/// Goes along the edge with the clock.
void FollowEdge(Line& ring, double from, double to, const Extent& ground)
{
    const double way = Ahead(from, to);
    for (int corner = static_cast<int>(from) + 1; corner < from + way; ++corner)
        ring.push_back(PlaceOnEdge(corner % 4, ground));
    ring.push_back(PlaceOnEdge(to, ground));
}

/// A stretch from edge to edge.
struct Shore
{
    Line line;
    double begin = 0;
    double end = 0;
    bool used = false;
};

std::vector<Line> Closed(std::vector<Shore> shores, const Extent& ground)
{
    std::vector<Line> rings;
    for (Shore& first : shores) {
        if (first.used)
            continue;
        Line ring;
        for (Shore* shore = &first; !shore->used;) {
            shore->used = true;
            ring.insert(ring.end(), shore->line.begin(), shore->line.end());
            // The water is on the right, so its ring goes on with the clock to where the next shore begins.
            Shore* next = &first;
            for (Shore& other : shores)
                if ((!other.used || &other == &first) &&
                    Ahead(shore->end, other.begin) < Ahead(shore->end, next->begin))
                    next = &other;
            FollowEdge(ring, shore->end, next->begin, ground);
            shore = next;
        }
        rings.push_back(std::move(ring));
    }
    return rings;
}

} // namespace

double TurnOf(const Line& ring)
{
    double sum = 0;
    const Place base = ring.front();
    for (std::size_t at = 0; at + 1 < ring.size(); ++at)
        sum += (double(ring[at].longitude) - base.longitude) * (double(ring[at + 1].latitude) - base.latitude) -
               (double(ring[at + 1].longitude) - base.longitude) * (double(ring[at].latitude) - base.latitude);
    return sum;
}

std::vector<Line> SeaOf(const std::vector<Line>& coasts, const Extent& ground)
{
    if (ground.IsEmpty() || ground.low.latitude == ground.high.latitude || ground.low.longitude == ground.high.longitude)
        return {};
    std::vector<Shore> shores;
    std::vector<Line> islands;
    std::vector<Line> inlets;
    for (const Line& line : Joined(coasts)) {
        const bool whole = std::all_of(line.begin(), line.end(), [&](Place place) { return ground.Contains(place); });
        if (IsClosed(line) && whole) {
            (TurnOf(line) > 0 ? islands : inlets).push_back(line);
            continue;
        }
        Line from = line;
        if (IsClosed(line)) { // begun outside, so that no stretch is cut in two
            const auto outside =
                std::find_if(from.begin(), from.end(), [&](Place place) { return !ground.Contains(place); });
            from.pop_back();
            std::rotate(from.begin(), outside, from.end());
            from.push_back(from.front());
        }
        for (Line& stretch : Stretches(from, ground)) {
            const double begin = OnEdge(stretch.front(), ground);
            const double end = OnEdge(stretch.back(), ground);
            shores.push_back({std::move(stretch), begin, end});
            Line& shore = shores.back().line;
            shore.insert(shore.begin(), PlaceOnEdge(begin, ground));
            shore.push_back(PlaceOnEdge(end, ground));
        }
    }
    if (shores.empty() && islands.empty())
        return inlets;
    std::vector<Line> sea;
    if (shores.empty())
        sea.push_back({{ground.high.latitude, ground.low.longitude}, ground.high,
                       {ground.low.latitude, ground.high.longitude}, ground.low});
    else
        sea = Closed(std::move(shores), ground);
    const Surface water(sea);
    for (Line& island : islands)
        if (water.Contains(island.front()))
            sea.push_back(std::move(island));
    for (Line& inlet : inlets)
        if (!water.Contains(inlet.front()))
            sea.push_back(std::move(inlet));
    return sea;
}

} // namespace vasclip::mapdata
