#include "platform/street/draw/ground.h"

#include <QPainterPath>

#include <array>
#include <cmath>

namespace vasclip::street::draw {

namespace {

/// Adds a line's places, without those that no pixel tells apart.
void AddLine(QPainterPath& path, const Projection& projection, const std::vector<Place>& line, bool closed)
{
    QPointF last = projection.Pixel(line.front());
    path.moveTo(last);
    for (size_t i = 1; i < line.size(); ++i) {
        const QPointF next = projection.Pixel(line[i]);
        const QPointF step = next - last;
        if (i + 1 < line.size() && std::abs(step.x()) + std::abs(step.y()) < 0.7)
            continue;
        path.lineTo(next);
        last = next;
    }
    if (closed)
        path.closeSubpath();
}

QPainterPath LinePath(const Projection& projection, const std::vector<Place>& line)
{
    QPainterPath path;
    AddLine(path, projection, line, false);
    return path;
}

void PaintBrooks(QPainter& painter, const Projection& projection, const Content& content, const Palette& palette)
{
    if (content.waterLines.empty() || projection.Metres() > 40)
        return;
    const double width = std::clamp(3 / projection.Metres(), 0.9, 4.0);
    const QPen pen(projection.Metres() > 2 ? palette.waterEdge
                                           : palette.areas.at(static_cast<size_t>(AreaKind::Water)),
                   projection.Px(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (const WaterLine* water : content.waterLines)
        painter.strokePath(LinePath(projection, water->line), pen);
}

/// Each line for itself: the rasterizer searches all that one path has in a row of pixels, so that one path
/// of all roads costs several times as much.
void Stroke(QPainter& painter, const std::vector<QPainterPath>& lines, const QPen& pen)
{
    for (const QPainterPath& line : lines)
        painter.strokePath(line, pen);
}

/// Does a step run along the side where a cell cuts its areas? That is no shore.
bool IsCut(const Extent& cell, Place from, Place to)
{
    return (from.latitude >= cell.high.latitude && to.latitude >= cell.high.latitude) ||
           (from.latitude <= cell.low.latitude && to.latitude <= cell.low.latitude) ||
           (from.longitude >= cell.high.longitude && to.longitude >= cell.high.longitude) ||
           (from.longitude <= cell.low.longitude && to.longitude <= cell.low.longitude);
}

void PaintShores(QPainter& painter, const Projection& projection, const Content& content, const Palette& palette)
{
    const QPen pen(palette.waterEdge, projection.Px(2)); // the water itself covers the inner half
    for (const auto& [cell, area] : content.areas) {
        if (area->kind != AreaKind::Water)
            continue;
        for (const auto& ring : area->rings) {
            std::vector<Place> shore;
            const auto take = [&] {
                if (shore.size() > 1)
                    painter.strokePath(LinePath(projection, shore), pen);
                shore.clear();
            };
            for (size_t i = 0; i < ring.size(); ++i) {
                const Place next = ring[(i + 1) % ring.size()];
                if (IsCut(cell->extent, ring[i], next)) {
                    take();
                    continue;
                }
                if (shore.empty())
                    shore.push_back(ring[i]);
                shore.push_back(next);
            }
            take();
        }
    }
}

void PaintAreas(QPainter& painter, const Projection& projection, const Content& content, const Palette& palette)
{
    // What lies under what: a pond in a park is seen, a river's middle line is not.
    constexpr std::array kOrder{AreaKind::Builtup, AreaKind::School, AreaKind::Airport, AreaKind::Forest,
                                AreaKind::Park, AreaKind::Cemetery, AreaKind::Water};
    for (const AreaKind kind : kOrder) {
        if (kind == AreaKind::Water) {
            PaintBrooks(painter, projection, content, palette);
            PaintShores(painter, projection, content, palette);
        }
        for (const auto& [cell, area] : content.areas) {
            if (area->kind != kind)
                continue;
            QPainterPath path;
            path.setFillRule(Qt::OddEvenFill);
            for (const auto& ring : area->rings) {
                if (ring.size() > 2)
                    AddLine(path, projection, ring, true);
            }
            painter.fillPath(path, palette.areas.at(static_cast<size_t>(kind)));
        }
    }
}

/// Houses as dots, where there is no room yet for their numbers.
void PaintHouses(QPainter& painter, const Projection& projection, const Content& content, const Palette& palette)
{
    constexpr double kNumbers = 0.75;
    if (content.houses.empty() || projection.Metres() <= kNumbers)
        return;
    const double radius = projection.Px(std::clamp(2 / projection.Metres(), 0.8, 1.4));
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.houses);
    for (const CellHouse* house : content.houses)
        painter.drawEllipse(projection.Pixel(house->place), radius, radius);
}

using Lines = std::vector<QPainterPath>;
using Paths = std::array<Lines, kRoadClasses>;

void PaintRails(QPainter& painter, const Projection& projection, const Lines& lines, const RoadInk& ink,
                double width)
{
    if (width <= 0)
        return;
    Stroke(painter, lines, QPen(ink.fill, projection.Px(width)));
    if (width < 1.5)
        return;
    QPen ties(ink.casing, projection.Px(width - 1), Qt::CustomDashLine, Qt::FlatCap);
    ties.setDashPattern({7 / (width - 1), 7 / (width - 1)});
    Stroke(painter, lines, ties);
}

void PaintWays(QPainter& painter, const Projection& projection, const Lines& lines, const RoadInk& ink,
               double width)
{
    if (width <= 0)
        return;
    QPen pen(ink.fill, projection.Px(width), Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({4, 2});
    Stroke(painter, lines, pen);
}

void PaintRoads(QPainter& painter, const Projection& projection, const Content& content, const Look& look,
                const Palette& palette)
{
    Paths paths;
    for (const Content::Edge& seen : content.edges) {
        if (seen.edge->hidden)
            continue;
        const auto index = static_cast<size_t>(seen.edge->roadClass);
        paths.at(index).push_back(LinePath(projection, seen.edge->line));
    }
    std::array<double, kRoadClasses> widths{};
    for (size_t i = 0; i < kRoadClasses; ++i)
        widths.at(i) = RoadWidth(static_cast<RoadClass>(i), projection.Metres(), look);

    constexpr auto kPath = static_cast<size_t>(RoadClass::Path);
    constexpr auto kTrack = static_cast<size_t>(RoadClass::Track);
    constexpr auto kRail = static_cast<size_t>(RoadClass::Rail);
    PaintWays(painter, projection, paths[kPath], palette.roads[kPath], widths[kPath]);
    PaintWays(painter, projection, paths[kTrack], palette.roads[kTrack], widths[kTrack]);
    PaintRails(painter, projection, paths[kRail], palette.roads[kRail], widths[kRail]);

    // From the least road to the widest, ramps just below what they lead to. All casings first, so that crossings open.
    constexpr std::array kOrder{RoadClass::Service, RoadClass::Local,   RoadClass::Collector, RoadClass::Arterial,
                                RoadClass::Ramp,    RoadClass::Highway, RoadClass::Motorway};
    for (const bool casing : {true, false}) {
        for (const RoadClass roadClass : kOrder) {
            const auto index = static_cast<size_t>(roadClass);
            if (widths.at(index) <= 0)
                continue;
            const RoadInk& ink = palette.roads.at(index);
            const double width = projection.Px(widths.at(index));
            // A hair's breadth has no room for an edge: on a light map the line itself takes the edge's colour.
            const bool hair = widths.at(index) < 2;
            if (casing && hair)
                continue;
            Stroke(painter, paths.at(index),
                   QPen(casing || (hair && !look.dark) ? ink.casing : ink.fill,
                        casing ? width + 2 * std::round(projection.Px(1)) : width, Qt::SolidLine, Qt::RoundCap,
                        Qt::RoundJoin));
        }
    }
}

} // namespace

void PaintGround(QPainter& painter, const Projection& projection, const Content& content, const Look& look)
{
    const Palette& palette = PaletteOf(look.dark);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(projection.Sheet(), palette.land);
    PaintAreas(painter, projection, content, palette);
    PaintRoads(painter, projection, content, look, palette);
    PaintHouses(painter, projection, content, palette);
    painter.restore();
}

} // namespace vasclip::street::draw
