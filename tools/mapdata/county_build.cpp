#include "mapdata/county_build.h"

#include "mapdata/coast.h"
#include "mapdata/cover.h"
#include "mapdata/house_names.h"
#include "mapdata/junctions.h"
#include "mapdata/surface.h"
#include "platform/street/feature_check.h"

#include <algorithm>
#include <cmath>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::NumberRange;
using street::Place;
using street::PlaceName;
using street::RoadEdge;

bool HasNumbers(const NumberRange& side)
{
    return !side.from.isEmpty() || !side.to.isEmpty();
}

bool SameNumbers(const RoadEdge& one, const RoadEdge& other)
{
    return one.left.from == other.left.from && one.left.to == other.left.to && one.right.from == other.right.from &&
           one.right.to == other.right.to;
}

bool AllDigits(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar letter) { return letter >= u'0' && letter <= u'9'; });
}

/// 1 where the numbers grow along the line, -1 where they shrink, 0 where neither can be said.
int Growth(const NumberRange& side)
{
    if (!HasNumbers(side) || !AllDigits(side.from) || !AllDigits(side.to))
        return 0;
    const qlonglong from = side.from.toLongLong();
    const qlonglong to = side.to.toLongLong();
    return from == to ? 0 : from < to ? 1 : -1;
}

/// A place beside the middle of a line, some 15 m to its left or right.
Place Beside(const std::vector<Place>& line, bool left)
{
    constexpr double kAside = 135;
    const std::size_t at = line.size() / 2;
    const Place from = line[at - 1];
    const Place to = line[at];
    const double north = double(to.latitude) - from.latitude;
    const double east = double(to.longitude) - from.longitude;
    const double length = std::max(1.0, std::hypot(north, east));
    const double side = left ? kAside : -kAside;
    return {static_cast<qint32>((qint64(from.latitude) + to.latitude) / 2 + std::lround(east / length * side)),
            static_cast<qint32>((qint64(from.longitude) + to.longitude) / 2 - std::lround(north / length * side))};
}

} // namespace

void CountyBuild::From(const QString& source)
{
    TellBackwards();
    m_source = source;
}

void CountyBuild::TellBackwards()
{
    m_account.Several(m_source, std::exchange(m_backwards, 0),
                      u"the house numbers run against the direction of the line"_s);
}

bool CountyBuild::IsGood(const QString& fault, Record record)
{
    if (!fault.isEmpty())
        m_account.Left(m_source, record.Text(), fault);
    return fault.isEmpty();
}

void CountyBuild::CheckSide(NumberRange& side, Record record)
{
    if (!side.zip.isEmpty() && (side.zip.size() != 5 || !AllDigits(side.zip) || side.zip == u"99999" ||
                                side.zip == u"00000")) {
        m_account.Remark(m_source, record.Text(), u"ZIP %1 is none and was left out"_s.arg(side.zip));
        side.zip.clear();
    }
    if (!AllDigits(side.from) || !AllDigits(side.to))
        m_account.Remark(m_source, record.Text() + u" (%1 to %2)"_s.arg(side.from, side.to),
                         u"its house numbers have letters"_s);
}

void CountyBuild::CheckNumbers(RoadEdge& edge, Record record)
{
    CheckSide(edge.left, record);
    CheckSide(edge.right, record);
    const int left = Growth(edge.left);
    const int right = Growth(edge.right);
    if (left * right < 0)
        m_account.Remark(m_source, record.Text(), u"its house numbers grow on one side and shrink on the other"_s);
    else if (left < 0 || right < 0)
        ++m_backwards;
}

void CountyBuild::AddNumbered(SourceEdge edge, Record record)
{
    if (!IsGood(Fault(edge.edge), record))
        return;
    CheckNumbers(edge.edge, record);
    const auto known = edge.line != 0 ? m_byLine.constFind(edge.line) : m_byLine.cend();
    if (known == m_byLine.cend()) {
        if (edge.line != 0)
            m_byLine.insert(edge.line, m_edges.size());
        m_edges.push_back(std::move(edge));
        return;
    }
    RoadEdge& first = m_edges[*known].edge;
    first.roadClass = std::min(first.roadClass, edge.edge.roadClass);
    if (SameNumbers(first, edge.edge)) {
        if (edge.edge.name != first.name && !first.otherNames.contains(edge.edge.name))
            first.otherNames.append(edge.edge.name);
        return;
    }
    // The line is there already; this one brings more numbers to it.
    edge.edge.hidden = true;
    m_edges.push_back(std::move(edge));
}

void CountyBuild::AddLine(SourceEdge edge, Record record)
{
    if (edge.line != 0 && m_byLine.contains(edge.line))
        return;
    AddNumbered(std::move(edge), record);
}

void CountyBuild::AddWay(RoadEdge edge, Record record)
{
    if (IsGood(Fault(edge), record))
        m_ways.push_back(std::move(edge));
}

void CountyBuild::Add(street::AddressPoint house, Record record)
{
    if (house.street.isEmpty()) {
        m_account.Left(m_source, record.Text(), u"it has no street"_s);
        return;
    }
    if (!IsGood(Fault(house), record))
        return;
    if (!house.zip.isEmpty() && (house.zip.size() < 5 || !AllDigits(house.zip.left(5)) ||
                                 house.zip.startsWith(u"99999") || house.zip.startsWith(u"00000"))) {
        m_account.Remark(m_source, record.Text(), u"ZIP %1 is none and was left out"_s.arg(house.zip.left(20)));
        house.zip.clear();
    }
    house.zip.truncate(5);
    m_houses.push_back(std::move(house));
}

void CountyBuild::Add(street::MapArea area, Record record)
{
    if (IsGood(Fault(area), record))
        m_areas.push_back(std::move(area));
}

void CountyBuild::Add(street::WaterLine line, Record record)
{
    if (IsGood(Fault(line), record))
        m_brooks.push_back(std::move(line));
}

void CountyBuild::AddCoast(std::vector<Place> line, Record record)
{
    if (IsGood(Fault(street::WaterLine{{}, line}), record))
        m_coasts.push_back(std::move(line));
}

void CountyBuild::AddIsland(std::vector<Place> ring, Record record)
{
    if (ring.empty())
        return;
    if (ring.front() != ring.back())
        ring.push_back(ring.front());
    if (TurnOf(ring) < 0)
        std::reverse(ring.begin(), ring.end());
    AddCoast(std::move(ring), record);
}

void CountyBuild::Add(PlaceName place, Record record)
{
    if (IsGood(Fault(place), record))
        m_places.push_back(std::move(place));
}

void CountyBuild::Add(street::ZipArea area, Record record)
{
    if (IsGood(Fault(area), record))
        m_zips.push_back(std::move(area));
}

void CountyBuild::SetFace(qint64 face, const QString& place, const QString& zip)
{
    if (!place.isEmpty() || !zip.isEmpty())
        m_faces.insert(face, {place, zip});
}

street::Extent CountyBuild::GroundOf(const std::vector<RoadEdge>& ways) const
{
    street::Extent ground;
    const auto widen = [&ground](const std::vector<Place>& line) {
        for (const Place place : line)
            ground.Widen(place);
    };
    for (const SourceEdge& edge : m_edges)
        widen(edge.edge.line);
    for (const RoadEdge& way : ways)
        widen(way.line);
    for (const street::AddressPoint& house : m_houses)
        ground.Widen(house.place);
    return ground;
}

void CountyBuild::JoinPlaces()
{
    // A town's outline and its point come as two records.
    std::vector<PlaceName> joined;
    for (PlaceName& place : m_places) {
        const auto same = std::find_if(joined.begin(), joined.end(), [&place](const PlaceName& other) {
            return other.name == place.name && other.outline.empty() != place.outline.empty();
        });
        if (same == joined.end()) {
            joined.push_back(std::move(place));
            continue;
        }
        PlaceName& point = same->outline.empty() ? *same : place;
        PlaceName& outline = same->outline.empty() ? place : *same;
        if (!Surface(outline.outline).Contains(point.place)) {
            joined.push_back(std::move(place));
            continue;
        }
        point.outline = std::move(outline.outline);
        point.population = std::max(point.population, outline.population);
        *same = PlaceName(std::move(point));
    }
    m_places = std::move(joined);
}

void CountyBuild::DropNeighbours(const std::vector<RoadEdge>& ways)
{
    std::vector<Place> ground;
    for (const SourceEdge& edge : m_edges)
        ground.push_back(edge.edge.line.front());
    for (const RoadEdge& way : ways)
        ground.push_back(way.line.front());
    for (const street::AddressPoint& house : m_houses)
        ground.push_back(house.place);
    const auto isElsewhere = [&ground](const std::vector<std::vector<Place>>& outline) {
        if (outline.empty())
            return false;
        const Surface surface(outline);
        return std::none_of(ground.begin(), ground.end(),
                            [&surface](Place place) { return surface.Contains(place); });
    };
    const std::size_t dropped =
        std::erase_if(m_places, [&](const PlaceName& place) { return isElsewhere(place.outline); }) +
        std::erase_if(m_zips, [&](const street::ZipArea& zip) { return isElsewhere(zip.rings); });
    if (dropped > 0)
        m_account.Took(u"places and ZIP areas without a street here, passed over"_s, qint64(dropped));
}

void CountyBuild::SetCities()
{
    std::vector<std::pair<Surface, QString>> grounds;
    for (const PlaceName& place : m_places) {
        if (!place.outline.empty())
            grounds.emplace_back(Surface(place.outline), place.name);
    }
    const auto fill = [&](NumberRange& side, qint64 face, const std::vector<Place>& line, bool left) {
        if (!HasNumbers(side))
            return;
        if (const auto found = m_faces.constFind(face); face != 0 && found != m_faces.cend()) {
            if (side.city.isEmpty())
                side.city = m_placeNames.value(found->place);
            if (side.zip.isEmpty())
                side.zip = found->zip;
            return;
        }
        if (!side.city.isEmpty() || grounds.empty())
            return;
        const Place beside = Beside(line, left);
        for (const auto& [ground, name] : grounds) {
            if (ground.Contains(beside)) {
                side.city = name;
                return;
            }
        }
    };
    for (SourceEdge& edge : m_edges) {
        fill(edge.edge.left, edge.leftFace, edge.edge.line, true);
        fill(edge.edge.right, edge.rightFace, edge.edge.line, false);
    }
}

void CountyBuild::MakeSea(const std::vector<RoadEdge>& ways)
{
    constexpr std::size_t kDrowned = 4; // one street of four: bridges and tunnels alone are never so many
    if (m_coasts.empty())
        return;
    std::vector<std::vector<Place>> sea = SeaOf(std::exchange(m_coasts, {}), GroundOf(ways));
    if (sea.empty())
        return;
    const Surface water(sea);
    std::size_t streets = 0;
    std::size_t drowned = 0;
    const auto count = [&](const RoadEdge& street) {
        ++streets;
        drowned += water.Contains(street.line[street.line.size() / 2]) ? 1 : 0;
    };
    for (const SourceEdge& edge : m_edges)
        count(edge.edge);
    for (const RoadEdge& way : ways)
        count(way);
    if (drowned * kDrowned > streets) {
        m_account.Note(u"%1: its coastlines are not whole, so that no sea can be drawn of them"_s.arg(m_source));
        return;
    }
    m_areas.push_back({street::AreaKind::Water, {}, std::move(sea)});
}

bool CountyBuild::Write(street::CountyWriter& writer, const std::function<bool(double)>& step)
{
    TellBackwards();
    const std::vector<RoadEdge> ways = CutAtJunctions(std::exchange(m_ways, {}));
    JoinPlaces();
    DropNeighbours(ways);
    SetCities();
    MakeSea(ways);
    if (!ways.empty() && !m_edges.empty()) {
        Cover cover;
        for (const RoadEdge& way : ways)
            cover.Add(way);
        for (SourceEdge& edge : m_edges)
            edge.edge.hidden = edge.edge.hidden || cover.Covers(edge.edge.line);
    }
    const double all = double(m_edges.size() + ways.size() + m_houses.size() + 1);
    qint64 done = 0;
    const auto goesOn = [&] {
        constexpr qint64 kOften = 1024;
        return ++done % kOften != 0 || step(double(done) / all);
    };
    for (const SourceEdge& edge : m_edges) {
        if (!goesOn())
            return false;
        writer.Add(edge.edge);
    }
    for (const RoadEdge& way : ways) {
        if (!goesOn())
            return false;
        writer.Add(way);
    }
    for (const street::AddressPoint& house : m_houses) {
        if (!goesOn())
            return false;
        writer.Add(house);
    }
    for (const street::MapArea& area : m_areas)
        writer.Add(area);
    for (const street::WaterLine& brook : m_brooks)
        writer.Add(brook);
    for (const PlaceName& place : m_places)
        writer.Add(place);
    for (const street::ZipArea& zip : m_zips)
        writer.Add(zip);
    if (!m_houses.empty()) {
        QSet<QString> lines;
        for (const SourceEdge& edge : m_edges)
            lines.insert(edge.edge.name);
        for (const RoadEdge& way : ways)
            lines.insert(way.name);
        QSet<QString> places;
        for (const PlaceName& place : m_places)
            places.insert(place.name);
        for (const PlaceName& name : NamesOfHouses(m_houses, lines, places))
            writer.AddLabel(name);
    }
    const auto took = [this](const QString& what, std::size_t count) {
        if (count > 0)
            m_account.Took(what, static_cast<qint64>(count));
    };
    took(u"streets"_s, m_edges.size() + ways.size());
    took(u"houses"_s, m_houses.size());
    took(u"areas"_s, m_areas.size());
    took(u"brooks"_s, m_brooks.size());
    took(u"places"_s, m_places.size());
    took(u"ZIP areas"_s, m_zips.size());
    return true;
}

} // namespace vasclip::mapdata
