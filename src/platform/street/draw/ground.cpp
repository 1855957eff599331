#include "platform/street/draw/ground.h"

#include <QPainterPath>

#include <array>
#include <cmath>

namespace vasclip::street::draw {

namespace {

constexpr double kReach = 40; // pixels of 1/96 inch: no road is so wide

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

/// Without the steps that are out of sight: a county road is not stroked from end to end for a village.
/// @param reach  of a pen beyond its line
QPainterPath InSight(const QPainterPath& line, const QRectF& sheet, double reach)
{
    const QRectF sight = sheet.adjusted(-reach, -reach, reach, reach);
    if (sight.contains(line.controlPointRect()))
        return line;
    QPainterPath seen;
    bool goesOn = false;
    for (int i = 1; i < line.elementCount(); ++i) {
        const QPointF from = line.elementAt(i - 1);
        const QPointF to = line.elementAt(i);
        const bool inSight = std::max(from.x(), to.x()) >= sight.left() && std::min(from.x(), to.x()) <= sight.right() &&
                             std::max(from.y(), to.y()) >= sight.top() && std::min(from.y(), to.y()) <= sight.bottom();
        if (inSight && !goesOn)
            seen.moveTo(from);
        if (inSight)
            seen.lineTo(to);
        goesOn = inSight;
    }
    return seen;
}

void PaintBrooks(Canvas& canvas, const Projection& projection, const Content& content, const Palette& palette)
{
    if (content.waterLines.empty() || projection.Metres() > 40)
        return;
    const double width = std::clamp(3 / projection.Metres(), 0.9, 4.0);
    const QPen pen(projection.Metres() > 2 ? palette.waterEdge
                                           : palette.areas.at(static_cast<size_t>(AreaKind::Water)),
                   projection.Px(width), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    std::vector<QPainterPath> lines;
    for (const WaterLine* water : content.waterLines)
        lines.push_back(LinePath(projection, water->line));
    canvas.Stroke(lines, pen);
}

/// Does a step run along the side where a cell cuts its areas? That is no shore.
bool IsCut(const Extent& cell, Place from, Place to)
{
    return (from.latitude >= cell.high.latitude && to.latitude >= cell.high.latitude) ||
           (from.latitude <= cell.low.latitude && to.latitude <= cell.low.latitude) ||
           (from.longitude >= cell.high.longitude && to.longitude >= cell.high.longitude) ||
           (from.longitude <= cell.low.longitude && to.longitude <= cell.low.longitude);
}

void PaintShores(Canvas& canvas, const Projection& projection, const Content& content, const Palette& palette)
{
    const QPen pen(palette.waterEdge, projection.Px(2)); // the water itself covers the inner half
    std::vector<QPainterPath> shores;
    for (const auto& [cell, area] : content.areas) {
        if (area->kind != AreaKind::Water)
            continue;
        for (const auto& ring : area->rings) {
            std::vector<Place> shore;
            const auto take = [&] {
                if (shore.size() > 1)
                    shores.push_back(LinePath(projection, shore));
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
    canvas.Stroke(shores, pen);
}

void PaintAreas(Canvas& canvas, const Projection& projection, const Content& content, const Palette& palette)
{
    // What lies under what: a pond in a park is seen, a river's middle line is not.
    constexpr std::array kOrder{AreaKind::Builtup, AreaKind::School, AreaKind::Airport, AreaKind::Forest,
                                AreaKind::Park, AreaKind::Cemetery, AreaKind::Water};
    for (const AreaKind kind : kOrder) {
        if (kind == AreaKind::Water) {
            PaintBrooks(canvas, projection, content, palette);
            PaintShores(canvas, projection, content, palette);
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
            canvas.Fill(path, palette.areas.at(static_cast<size_t>(kind)));
        }
    }
}

/// Houses as dots, where there is no room yet for their numbers.
void PaintHouses(Canvas& canvas, const Projection& projection, const Content& content, const Palette& palette)
{
    constexpr double kNumbers = 0.75;
    if (content.houses.empty() || projection.Metres() <= kNumbers)
        return;
    const double radius = projection.Px(std::clamp(2 / projection.Metres(), 0.8, 1.4));
    QPainterPath circle;
    circle.addEllipse(QPointF(0, 0), radius, radius);
    const Outline dot(circle, 0.03);
    for (const CellHouse* house : content.houses) {
        const QPointF at = projection.Pixel(house->place);
        canvas.Fill(dot, QTransform::fromTranslate(at.x(), at.y()), palette.houses);
    }
}

using Lines = std::vector<QPainterPath>;
using Paths = std::array<Lines, kRoadClasses>;

void PaintRails(Canvas& canvas, const Projection& projection, const Lines& lines, const RoadInk& ink,
                double width)
{
    if (width <= 0)
        return;
    canvas.Stroke(lines, QPen(ink.fill, projection.Px(width)));
    if (width < 1.5)
        return;
    QPen ties(ink.casing, projection.Px(width - 1), Qt::CustomDashLine, Qt::FlatCap);
    ties.setDashPattern({7 / (width - 1), 7 / (width - 1)});
    canvas.Stroke(lines, ties);
}

void PaintWays(Canvas& canvas, const Projection& projection, const Lines& lines, const RoadInk& ink,
               double width)
{
    if (width <= 0)
        return;
    QPen pen(ink.fill, projection.Px(width), Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({4, 2});
    canvas.Stroke(lines, pen);
}

void PaintRoads(Canvas& canvas, const Projection& projection, const Content& content, const Look& look,
                const Palette& palette)
{
    Paths paths;
    for (const Content::Edge& seen : content.edges) {
        if (seen.edge->hidden)
            continue;
        const auto index = static_cast<size_t>(seen.edge->roadClass);
        const QPainterPath line = LinePath(projection, seen.edge->line);
        // Dashes are counted from a line's beginning.
        const bool dashed = seen.edge->roadClass > RoadClass::Service;
        paths.at(index).push_back(dashed ? line : InSight(line, projection.Sheet(), projection.Px(kReach)));
    }
    std::array<double, kRoadClasses> widths{};
    for (size_t i = 0; i < kRoadClasses; ++i)
        widths.at(i) = RoadWidth(static_cast<RoadClass>(i), projection.Metres(), look);

    constexpr auto kPath = static_cast<size_t>(RoadClass::Path);
    constexpr auto kTrack = static_cast<size_t>(RoadClass::Track);
    constexpr auto kRail = static_cast<size_t>(RoadClass::Rail);
    PaintWays(canvas, projection, paths[kPath], palette.roads[kPath], widths[kPath]);
    PaintWays(canvas, projection, paths[kTrack], palette.roads[kTrack], widths[kTrack]);
    PaintRails(canvas, projection, paths[kRail], palette.roads[kRail], widths[kRail]);

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
            canvas.Stroke(paths.at(index), QPen(casing || (hair && !look.dark) ? ink.casing : ink.fill,
                                                casing ? width + 2 * std::round(projection.Px(1)) : width, Qt::SolidLine,
                                                Qt::RoundCap, Qt::RoundJoin));
        }
    }
}

} // namespace

void PaintGround(Canvas& canvas, const Projection& projection, const Content& content, const Look& look)
{
    const Palette& palette = PaletteOf(look.dark);
    canvas.Image().fill(palette.land);
    PaintAreas(canvas, projection, content, palette);
    PaintRoads(canvas, projection, content, look, palette);
    PaintHouses(canvas, projection, content, palette);
}

} // namespace vasclip::street::draw
