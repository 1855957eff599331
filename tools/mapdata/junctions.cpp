#include "mapdata/junctions.h"

#include <algorithm>

namespace vasclip::mapdata {

namespace {

using street::Place;
using street::RoadClass;
using street::RoadEdge;

quint64 KeyOf(Place place)
{
    return quint64(static_cast<quint32>(place.latitude)) << 32 | static_cast<quint32>(place.longitude);
}

bool Cuts(const RoadEdge& way)
{
    return way.roadClass <= RoadClass::Ramp;
}

/// Places where streets meet, in order: those that stand in the lines twice.
std::vector<quint64> Junctions(const std::vector<RoadEdge>& ways)
{
    std::vector<quint64> all;
    for (const RoadEdge& way : ways) {
        if (!Cuts(way))
            continue;
        for (const Place place : way.line)
            all.push_back(KeyOf(place));
    }
    std::sort(all.begin(), all.end());
    std::vector<quint64> twice;
    for (std::size_t at = 1; at < all.size(); ++at) {
        if (all[at] == all[at - 1] && (twice.empty() || twice.back() != all[at]))
            twice.push_back(all[at]);
    }
    return twice;
}

} // namespace

std::vector<RoadEdge> CutAtJunctions(std::vector<RoadEdge> ways)
{
    const std::vector<quint64> junctions = Junctions(ways);
    std::vector<RoadEdge> edges;
    edges.reserve(ways.size());
    for (RoadEdge& way : ways) {
        std::size_t start = 0;
        for (std::size_t at = 1; Cuts(way) && at + 1 < way.line.size(); ++at) {
            if (!std::binary_search(junctions.begin(), junctions.end(), KeyOf(way.line[at])))
                continue;
            RoadEdge& piece = edges.emplace_back();
            piece.name = way.name;
            piece.otherNames = way.otherNames;
            piece.roadClass = way.roadClass;
            piece.line.assign(way.line.begin() + std::ptrdiff_t(start), way.line.begin() + std::ptrdiff_t(at) + 1);
            start = at;
        }
        way.line.erase(way.line.begin(), way.line.begin() + std::ptrdiff_t(start));
        edges.push_back(std::move(way));
    }
    return edges;
}

} // namespace vasclip::mapdata
