#include "platform/street/draw/content.h"

#include "platform/street/draw/style.h"

#include <QHashFunctions>

#include <unordered_set>

namespace vasclip::street::draw {

namespace {

Extent Around(const std::vector<Place>& line)
{
    Extent extent;
    for (const Place place : line)
        extent.Widen(place);
    return extent;
}

/// Remembers what was seen by where it begins and ends.
class Seen
{
public:
    bool Again(const std::vector<Place>& line, size_t more)
    {
        const Place first = line.front();
        const Place last = line.back();
        const Place middle = line.at(line.size() / 2);
        return !m_keys
                    .insert(qHashMulti(0, first.latitude, first.longitude, last.latitude, last.longitude,
                                       middle.latitude, middle.longitude, line.size(), more))
                    .second;
    }

private:
    std::unordered_set<size_t> m_keys;
};

void GatherEdges(const Cell& cell, const Extent& ground, Seen& seen, Content& content)
{
    for (const CellEdge& edge : cell.edges) {
        if (edge.line.size() > 1 && ground.Overlaps(Around(edge.line)) &&
            !seen.Again(edge.line, edge.hidden ? 1000 : 0))
            content.edges.push_back({&cell, &edge});
    }
}

void GatherNature(const Cell& cell, const Extent& ground, Seen& seen, Content& content)
{
    for (const MapArea& area : cell.areas) {
        if (!area.rings.empty() && area.rings.front().size() > 2 && ground.Overlaps(Around(area.rings.front())) &&
            !seen.Again(area.rings.front(), 1 + static_cast<size_t>(area.kind)))
            content.areas.push_back({&cell, &area});
    }
    for (const WaterLine& water : cell.waterLines) {
        if (water.line.size() > 1 && ground.Overlaps(Around(water.line)) && !seen.Again(water.line, 100))
            content.waterLines.push_back(&water);
    }
}

/// Houses as dots are too many from afar, unless they are all that there is.
bool ShowsHouses(const Cell& cell, double metres)
{
    constexpr double kTooMany = 2.5;
    return metres <= kTooMany || cell.edges.empty();
}

void GatherPoints(const Cell& cell, const Extent& ground, double metres, Seen& seen, Content& content)
{
    for (const PlaceName& place : cell.places) {
        if (ground.Contains(place.place) && !seen.Again({place.place}, qHash(place.name)))
            content.places.push_back(&place);
    }
    for (const CellHouse& house : cell.houses) {
        if (!ShowsHouses(cell, metres))
            break;
        if (ground.Contains(house.place) && !seen.Again({house.place}, qHash(house.number)))
            content.houses.push_back(&house);
    }
}

} // namespace

Content Gather(const CellSource& source, const Projection& projection, double margin)
{
    const Extent ground = projection.Ground(margin);
    const double metres = projection.Metres();
    Content content;
    content.cells = source.Cells(ground, ShowsStreets(metres) ? Level::Streets
                                         : ShowsTown(metres)  ? Level::Town
                                                              : Level::Region);
    Seen seen;
    for (const auto& cell : content.cells) {
        GatherEdges(*cell, ground, seen, content);
        GatherNature(*cell, ground, seen, content);
        GatherPoints(*cell, ground, metres, seen, content);
    }
    return content;
}

} // namespace vasclip::street::draw
