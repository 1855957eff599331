#include "platform/street/coarse_levels.h"

#include "platform/street/cell_builder.h"
#include "platform/street/cell_grid.h"
#include "platform/street/shape.h"

#include <algorithm>
#include <deque>

namespace vasclip::street {

namespace {

struct LevelRule
{
    double metres; ///< within which lines are simplified
    double leastSquareMetres; ///< of an area
    double leastRiverMetres;
    RoadClass least;
    RoadClass fallBack; ///< where a county has hardly any of the others
};

const LevelRule& RuleOf(Level level)
{
    static constexpr LevelRule kTown{10, 10'000, 1'000, RoadClass::Collector, RoadClass::Local};
    static constexpr LevelRule kRegion{80, 2'000'000, 20'000, RoadClass::Highway, RoadClass::Collector};
    return level == Level::Town ? kTown : kRegion;
}

bool Shows(Level level, const MapArea& area)
{
    if (level == Level::Region && area.kind != AreaKind::Water && area.kind != AreaKind::Park &&
        area.kind != AreaKind::Forest && area.kind != AreaKind::Builtup)
        return false;
    double largest = 0;
    for (const std::vector<Place>& ring : area.rings)
        largest = std::max(largest, shape::SquareMetres(ring));
    return largest >= RuleOf(level).leastSquareMetres;
}

bool Shows(Level level, const PlaceName& place)
{
    return level == Level::Town ? place.kind <= PlaceKind::Hamlet : place.kind <= PlaceKind::Town;
}

constexpr std::size_t kLongestJoined = 2000;

/// A place where lines of one street and class end.
struct End
{
    Place place;
    quint32 street = 0;
    RoadClass roadClass = RoadClass::Local;
    friend bool operator==(const End&, const End&) = default;
    friend size_t qHash(const End& end, size_t seed)
    {
        return qHashMulti(seed, end.place.latitude, end.place.longitude, end.street,
                          static_cast<quint8>(end.roadClass));
    }
};

} // namespace

void CoarseLevels::Add(RoadClass roadClass, const QString& name, const QString& shield,
                       const std::vector<Place>& line)
{
    // What no level shows is not kept; a local street may be shown where nothing else is.
    if (roadClass > RoadClass::Local && roadClass != RoadClass::Rail)
        return;
    quint32& street = m_streetNumbers[name + u'\n' + shield];
    if (street == 0) {
        m_streets.push_back({name, shield});
        street = static_cast<quint32>(m_streets.size());
    }
    m_roads.push_back({roadClass, street, line});
    m_metres[static_cast<std::size_t>(roadClass)] += shape::Metres(line);
}

void CoarseLevels::Add(const MapArea& area)
{
    if (Shows(Level::Town, area))
        m_areas.push_back(area);
}

void CoarseLevels::Add(const WaterLine& line)
{
    if (shape::Metres(line.line) >= RuleOf(Level::Town).leastRiverMetres)
        m_waterLines.push_back(line);
}

void CoarseLevels::Add(const PlaceName& place)
{
    if (Shows(Level::Town, place))
        m_places.push_back({place.name, place.kind, place.population, place.place, {}});
}

RoadClass CoarseLevels::Least(Level level) const
{
    const LevelRule& rule = RuleOf(level);
    double shown = 0;
    double all = 0;
    for (RoadClass at = RoadClass::Motorway; at <= rule.fallBack;
         at = static_cast<RoadClass>(static_cast<int>(at) + 1)) {
        all += m_metres[static_cast<std::size_t>(at)];
        if (at <= rule.least)
            shown = all;
    }
    // A source that calls nearly all of its streets local would else leave an empty sheet.
    constexpr double kHardlyAny = 0.05;
    return shown < kHardlyAny * all ? rule.fallBack : rule.least;
}

std::vector<CoarseLevels::Road> CoarseLevels::Joined(Level level) const
{
    const RoadClass least = Least(level);
    const auto endOf = [](const Road& road, Place place) { return End{place, road.street, road.roadClass}; };
    std::vector<const Road*> roads;
    for (const Road& road : m_roads) {
        if (road.roadClass <= least || (road.roadClass == RoadClass::Rail && level == Level::Town))
            roads.push_back(&road);
    }
    // A line goes on with one of its street and class that is not yet taken. Of those that end in a place, the taken
    // ones are let go, since a source may have any number of them.
    std::vector<bool> taken(roads.size(), false);
    QHash<End, std::vector<std::size_t>> ends;
    for (std::size_t at = 0; at < roads.size(); ++at) {
        ends[endOf(*roads[at], roads[at]->line.front())].push_back(at);
        ends[endOf(*roads[at], roads[at]->line.back())].push_back(at);
    }
    const auto next = [&](const Road& like, const std::deque<Place>& line, Place end) -> const Road* {
        if (line.size() > kLongestJoined)
            return nullptr;
        std::vector<std::size_t>& candidates = ends[endOf(like, end)];
        while (!candidates.empty()) {
            const std::size_t found = candidates.back();
            candidates.pop_back();
            if (!taken[found]) {
                taken[found] = true;
                return roads[found];
            }
        }
        return nullptr;
    };
    std::vector<Road> joined;
    for (std::size_t at = 0; at < roads.size(); ++at) {
        if (taken[at])
            continue;
        taken[at] = true;
        const Road& first = *roads[at];
        std::deque<Place> line(first.line.begin(), first.line.end());
        while (const Road* more = next(first, line, line.back())) {
            if (more->line.front() == line.back())
                line.insert(line.end(), more->line.begin() + 1, more->line.end());
            else
                line.insert(line.end(), more->line.rbegin() + 1, more->line.rend());
        }
        while (const Road* more = next(first, line, line.front())) {
            if (more->line.back() == line.front())
                line.insert(line.begin(), more->line.begin(), more->line.end() - 1);
            else
                line.insert(line.begin(), more->line.rbegin(), more->line.rend() - 1);
        }
        joined.push_back({first.roadClass, first.street, {line.begin(), line.end()}});
    }
    return joined;
}

bool CoarseLevels::Make(Level level, const std::function<bool(const Cell&)>& take) const
{
    const LevelRule& rule = RuleOf(level);
    CellBuilder cells(level);
    for (const Road& road : Joined(level)) {
        const std::vector<Place> line = shape::Simplified(road.line, rule.metres);
        for (const quint32 id : grid::Along(level, line)) {
            const Extent extent = shape::Widened(grid::ExtentOf(id), grid::Size(level) / 16);
            for (std::vector<Place>& piece : shape::Pieces(line, extent))
                cells.AddEdge(id, {0, road.roadClass, false, std::move(piece), {}, {}}, m_streets[road.street - 1]);
        }
    }
    for (const MapArea& area : m_areas) {
        if (!Shows(level, area))
            continue;
        MapArea lighter{area.kind, area.name, {}};
        for (const std::vector<Place>& ring : area.rings) {
            std::vector<Place> simple = shape::SimplifiedRing(ring, rule.metres);
            if (simple.size() >= 3 && shape::SquareMetres(simple) > rule.metres * rule.metres)
                lighter.rings.push_back(std::move(simple));
        }
        cells.AddArea(lighter);
    }
    for (const WaterLine& line : m_waterLines) {
        if (shape::Metres(line.line) >= rule.leastRiverMetres)
            cells.AddWaterLine({line.name, shape::Simplified(line.line, rule.metres)});
    }
    for (const PlaceName& place : m_places) {
        if (Shows(level, place))
            cells.At(grid::IdAt(level, place.place)).places.push_back(place);
    }
    return std::all_of(cells.Cells().begin(), cells.Cells().end(),
                       [&take](const auto& cell) { return take(cell.second); });
}

} // namespace vasclip::street
