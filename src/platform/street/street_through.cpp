#include "platform/street/street_through.h"

#include "platform/street/geocode_line.h"
#include "platform/street/shape.h"

#include <algorithm>
#include <utility>

namespace vasclip::street {

namespace {

constexpr double kReachFeet = 300;
constexpr qint32 kNear = 2000;  ///< millionths of a degree around the place
constexpr qint32 kFar = 30000;  ///< as far as a street is followed, about two miles

using Line = std::vector<Place>;

/// The name of the nearest street; "" for none.
QString NameAt(const CellSource& cells, Place place)
{
    QString name;
    double nearest = kReachFeet;
    const Extent around = shape::Widened({place, place}, kNear);
    for (const auto& cell : cells.Cells(around, Level::Streets)) {
        for (const CellEdge& edge : cell->edges) {
            if (edge.street == 0 || edge.hidden || edge.line.empty() || edge.roadClass == RoadClass::Rail ||
                !shape::ExtentOf(edge.line).Overlaps(around))
                continue;
            if (const double feet = FootOf(place, edge.line).feet; feet < nearest) {
                nearest = feet;
                name = cells.StreetName(*cell, edge.street);
            }
        }
    }
    return name;
}

/// All lines of a name; one that crosses a cell's border stands in both cells.
std::vector<Line> LinesOf(const CellSource& cells, Place place, const QString& name)
{
    std::vector<Line> lines;
    for (const auto& cell : cells.Cells(shape::Widened({place, place}, kFar), Level::Streets)) {
        for (const CellEdge& edge : cell->edges) {
            if (edge.street == 0 || edge.hidden || edge.line.empty() || edge.roadClass == RoadClass::Rail ||
                cells.StreetName(*cell, edge.street) != name)
                continue;
            if (std::find(lines.begin(), lines.end(), edge.line) == lines.end())
                lines.push_back(edge.line);
        }
    }
    return lines;
}

bool Meet(const Line& one, const Line& other)
{
    const auto has = [&other](Place end) { return end == other.front() || end == other.back(); };
    return has(one.front()) || has(one.back());
}

} // namespace

std::vector<Line> StreetThrough(const CellSource& cells, Place place)
{
    const QString name = NameAt(cells, place);
    if (name.isEmpty())
        return {};
    std::vector<Line> left = LinesOf(cells, place, name);
    const auto nearest = std::min_element(left.begin(), left.end(), [place](const Line& one, const Line& other) {
        return FootOf(place, one).feet < FootOf(place, other).feet;
    });
    if (nearest == left.end())
        return {};
    // A street of the same name elsewhere is another one: only what hangs together counts.
    std::vector<Line> street{std::move(*nearest)};
    left.erase(nearest);
    for (std::size_t at = 0; at < street.size(); ++at) {
        const auto met = std::partition(left.begin(), left.end(),
                                        [&](const Line& line) { return !Meet(line, street[at]); });
        street.insert(street.end(), std::make_move_iterator(met), std::make_move_iterator(left.end()));
        left.erase(met, left.end());
    }
    return street;
}

} // namespace vasclip::street
