#include "platform/street/draw/labels.h"

#include <cmath>

namespace vasclip::street::draw {

namespace {

constexpr double kHouses = 0.75; // metres a pixel up to which house numbers are written
constexpr double kRanges = 1.2;
constexpr double kStraight = 0.985; ///< a cosine: ten degrees

} // namespace

void LabelSheet::WriteHouses()
{
    if (m_projection.Metres() > kHouses || !m_look.streets.named)
        return;
    const double size = Points(7);
    for (const CellHouse* house : m_content.houses)
        WriteLevel(house->number, Face::Regular, size, m_projection.Pixel(house->place), m_palette.quietText);
}

void LabelSheet::WriteRanges()
{
    // Houses that are known one by one need no ranges beside them.
    const double metres = m_projection.Metres();
    if (metres > kRanges || !m_look.streets.named || (metres <= kHouses && m_content.houses.size() > 60))
        return;
    const double size = Points(7);
    for (const Content::Edge& seen : m_content.edges) {
        const CellEdge& edge = *seen.edge;
        if (edge.left.from.isEmpty() && edge.right.from.isEmpty())
            continue;
        std::vector<QPointF> line;
        for (const Place place : edge.line)
            line.push_back(m_projection.Pixel(place));
        const Walk walk(std::move(line));
        const double road = RoadWidth(edge.roadClass, metres, m_look);
        const double off = m_projection.Px(road / 2 + 2) + size * 0.5;
        const auto write = [&](const QString& number, bool atStart, bool left) {
            const double width = Run(number, Face::Regular).width * size;
            const double room = width / 2 + m_projection.Px(12); // clear of the street that crosses
            if (number.isEmpty() || walk.Length() < 2 * room + width)
                return;
            const double at = atStart ? room : walk.Length() - room;
            const QPointF ahead = walk.At(at + 1) - walk.At(at - 1);
            // In a bend the figures of a number would stand apart.
            const QPointF first = walk.At(at) - walk.At(at - width / 2 - off);
            const QPointF second = walk.At(at + width / 2 + off) - walk.At(at);
            if (QPointF::dotProduct(first, second) < kStraight * std::hypot(first.x(), first.y()) * std::hypot(second.x(), second.y()))
                return;
            // A text runs to the right: below it is right of a line that runs so, left of one that runs back.
            const bool backward = ahead.x() < -1e-3 || (std::abs(ahead.x()) <= 1e-3 && ahead.y() > 0);
            WriteAlong(walk, number, Face::Regular, size, at, left == backward ? off : -off, m_palette.quietText);
        };
        write(edge.left.from, true, true);
        write(edge.left.to, false, true);
        write(edge.right.from, true, false);
        write(edge.right.to, false, false);
    }
}

} // namespace vasclip::street::draw
