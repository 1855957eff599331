#include "platform/street/draw/labels.h"

#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr double kBrooksApart = 700;
constexpr double kAreasApart = 500;
constexpr double kStreetsApart = 250;

struct Rank
{
    int order; ///< the weightiest first
    double points;
    double until; ///< metres a pixel
    double from; ///< closer in, the name would only be in the way
};

Rank RankOf(const PlaceName& place)
{
    const bool great = place.population >= 100000;
    switch (place.kind) {
    case PlaceKind::City:
        return {great ? 0 : 1, great ? 15.0 : 13.0, great ? 900.0 : 300.0, 2.5};
    case PlaceKind::Town:
        return {2, 12, 120, 2};
    case PlaceKind::Village:
        return {3, 10.5, 40, 1.2};
    case PlaceKind::Suburb:
        return {4, 9.5, 14, 0.9};
    case PlaceKind::Street:
        return {6, 8, 3, 0};
    default:
        return {5, 9, 14, 0.6};
    }
}

/// The broadest level piece of an area in sight: where a text has most room.
struct Room
{
    QPointF middle;
    double width = 0;
};

std::optional<Room> Broadest(const MapArea& area, const Projection& projection)
{
    std::vector<QPolygonF> rings;
    QRectF bounds;
    for (const auto& ring : area.rings) {
        QPolygonF& polygon = rings.emplace_back();
        polygon.reserve(static_cast<qsizetype>(ring.size()));
        for (const Place place : ring)
            polygon.push_back(projection.Pixel(place));
        bounds |= polygon.boundingRect();
    }
    bounds &= projection.Sheet();
    if (bounds.isEmpty())
        return std::nullopt;
    Room best;
    constexpr int kRows = 9;
    for (int row = 1; row < kRows; ++row) {
        const double y = bounds.top() + bounds.height() * row / kRows;
        std::vector<double> crossings;
        for (const QPolygonF& ring : rings) {
            for (qsizetype i = 0; i < ring.size(); ++i) {
                const QPointF a = ring[i];
                const QPointF b = ring[(i + 1) % ring.size()];
                if ((a.y() <= y) != (b.y() <= y))
                    crossings.push_back(a.x() + (y - a.y()) / (b.y() - a.y()) * (b.x() - a.x()));
            }
        }
        std::sort(crossings.begin(), crossings.end());
        for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double left = std::max(crossings[i], bounds.left());
            const double right = std::min(crossings[i + 1], bounds.right());
            // Of equals the one nearer to the middle.
            const double width = right - left - std::abs(row - kRows / 2.0) * bounds.height() / kRows * 0.2;
            if (width > best.width)
                best = {QPointF((left + right) / 2, y), width};
        }
    }
    return best;
}

/// A name on two lines, cut at the blank nearest to its middle.
QStringList TwoLines(const QString& name)
{
    qsizetype cut = -1;
    for (qsizetype i = name.indexOf(u' '); i >= 0; i = name.indexOf(u' ', i + 1)) {
        if (cut < 0 || std::abs(i - name.size() / 2) < std::abs(cut - name.size() / 2))
            cut = i;
    }
    return cut < 0 ? QStringList{name} : QStringList{name.left(cut), name.mid(cut + 1)};
}

} // namespace

void LabelSheet::WritePlaces(bool great)
{
    std::vector<const PlaceName*> places = m_content.places;
    std::stable_sort(places.begin(), places.end(), [](const PlaceName* a, const PlaceName* b) {
        return std::make_tuple(RankOf(*a).order, -a->population, a->name) <
               std::make_tuple(RankOf(*b).order, -b->population, b->name);
    });
    const double metres = m_projection.Metres();
    for (const PlaceName* place : places) {
        const Rank rank = RankOf(*place);
        if ((rank.order < 4) != great || metres > rank.until || metres < rank.from || place->name.isEmpty())
            continue;
        const double size = Points(rank.points);
        const QPointF middle = m_projection.Pixel(place->place);
        if (place->kind == PlaceKind::Street && IsNear(place->name, middle, m_projection.Px(kStreetsApart)))
            continue;
        for (const double shift : {0.0, -1.1, 1.1, -2.2, 2.2}) {
            if (WriteLevel(place->name, rank.order < 3 ? Face::Bold : Face::Regular, size,
                           middle + QPointF(0, shift * size), InkOf(place->kind)))
                break;
        }
    }
}

const QColor& LabelSheet::InkOf(PlaceKind kind) const
{
    if (kind == PlaceKind::Street)
        return m_palette.roads.at(static_cast<size_t>(RoadClass::Local)).text;
    return kind <= PlaceKind::Village ? m_palette.placeText : m_palette.quietText;
}

void LabelSheet::WriteBrooks()
{
    if (m_projection.Metres() > 12)
        return;
    const double size = Points(8);
    for (const WaterLine* water : m_content.waterLines) {
        if (water->name.isEmpty())
            continue;
        std::vector<QPointF> line;
        for (const Place place : water->line) {
            const QPointF pixel = m_projection.Pixel(place);
            if (line.empty() || std::hypot(pixel.x() - line.back().x(), pixel.y() - line.back().y()) > size / 2)
                line.push_back(pixel);
        }
        if (line.size() > 1)
            Repeat(Walk(std::move(line)), water->name, Face::Italic, size, m_projection.Px(kBrooksApart),
                   m_palette.waterText);
    }
}

void LabelSheet::WriteAreas()
{
    struct Candidate
    {
        const MapArea* area;
        Room room;
    };
    std::vector<Candidate> candidates;
    for (const auto& [cell, area] : m_content.areas) {
        if (area->name.isEmpty() || area->kind == AreaKind::Builtup)
            continue;
        const auto room = Broadest(*area, m_projection);
        if (room && room->width > m_projection.Px(40))
            candidates.push_back({area, *room});
    }
    // Pieces of one lake stand in many cells: the broadest gets the name.
    std::stable_sort(candidates.begin(), candidates.end(), [](const Candidate& a, const Candidate& b) {
        return std::make_tuple(-a.room.width, a.area->name) < std::make_tuple(-b.room.width, b.area->name);
    });
    for (const auto& [area, room] : candidates) {
        const bool water = area->kind == AreaKind::Water;
        const Face face = water ? Face::Italic : Face::Regular;
        const double size = Points(std::clamp(room.width / m_projection.Px(40), 7.5, 11.0));
        const QColor ink = water                              ? m_palette.waterText
                           : area->kind == AreaKind::Park ||
                                     area->kind == AreaKind::Forest ||
                                     area->kind == AreaKind::Cemetery ? m_palette.areaText
                                                                      : m_palette.quietText;
        if (IsNear(area->name, room.middle, m_projection.Px(kAreasApart)))
            continue;
        if (Run(area->name, face).width * size <= room.width) {
            WriteLevel(area->name, face, size, room.middle, ink);
            continue;
        }
        const QStringList lines = TwoLines(area->name);
        std::vector<PlacedText> placed;
        std::vector<QRectF> boxes;
        for (qsizetype i = 0; i < lines.size() && lines.size() > 1; ++i) {
            const TextRun& run = Run(lines[i], face);
            if (run.width * size > room.width * 1.1)
                break;
            placed.push_back(OnTheLevel(
                run, size, room.middle + QPointF(0, (static_cast<double>(i) - 0.5) * 1.15 * size)));
            boxes.insert(boxes.end(), placed.back().boxes.begin(), placed.back().boxes.end());
        }
        if (placed.size() < 2 || !m_occupied.IsFree(boxes))
            continue;
        for (const PlacedText& text : placed)
            Write(m_canvas, text, ink, m_palette.halo);
        placed.front().boxes = boxes;
        Note(area->name, placed.front(), size);
    }
}

} // namespace vasclip::street::draw
