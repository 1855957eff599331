#include "platform/street/cell_builder.h"

#include "platform/street/cell_grid.h"
#include "platform/street/shape.h"

namespace vasclip::street {

namespace {

/// What is cut reaches over the cell's side, so that no seam shows between two.
qint32 Margin(Level level)
{
    return grid::Size(level) / 16;
}

std::vector<std::vector<Place>> ClippedRings(const std::vector<std::vector<Place>>& rings, const Extent& extent)
{
    std::vector<std::vector<Place>> inside;
    for (const std::vector<Place>& ring : rings) {
        std::vector<Place> cut = shape::Clipped(ring, extent);
        if (cut.size() >= 3)
            inside.push_back(std::move(cut));
    }
    return inside;
}

Extent ExtentOf(const std::vector<std::vector<Place>>& rings)
{
    Extent extent;
    for (const std::vector<Place>& ring : rings)
        extent.Widen(shape::ExtentOf(ring));
    return extent;
}

} // namespace

Cell& CellBuilder::At(quint32 id)
{
    Cell& cell = m_cells[id];
    if (cell.extent.IsEmpty()) {
        cell.level = m_level;
        cell.id = id;
        cell.extent = grid::ExtentOf(id);
    }
    return cell;
}

quint32 CellBuilder::AddEdge(quint32 id, CellEdge edge, const CellStreet& street)
{
    Cell& cell = At(id);
    edge.street = 0;
    if (!street.name.isEmpty() || !street.shield.isEmpty()) {
        const QString key = street.shield.isEmpty() ? street.name : street.name + u'\n' + street.shield;
        quint32& number = m_streets[{id, key}];
        if (number == 0) {
            cell.streets.push_back(street);
            number = static_cast<quint32>(cell.streets.size());
        }
        edge.street = number;
    }
    cell.edges.push_back(std::move(edge));
    return static_cast<quint32>(cell.edges.size() - 1);
}

void CellBuilder::AddArea(const MapArea& area)
{
    const qint32 margin = Margin(m_level);
    for (const grid::Run& run : grid::Touching(m_level, ExtentOf(area.rings))) {
        // First the whole row, then its cells: a large lake is not walked around once for each of them.
        Extent row = grid::ExtentOf(run.first);
        row.Widen(grid::ExtentOf(run.last));
        const std::vector<std::vector<Place>> strip = ClippedRings(area.rings, shape::Widened(row, margin));
        if (strip.empty())
            continue;
        for (quint32 id = run.first; id <= run.last; ++id) {
            MapArea piece{area.kind, area.name,
                          ClippedRings(strip, shape::Widened(grid::ExtentOf(id), margin))};
            if (!piece.rings.empty())
                At(id).areas.push_back(std::move(piece));
        }
    }
}

void CellBuilder::AddWaterLine(const WaterLine& line)
{
    for (const quint32 id : grid::Along(m_level, line.line)) {
        const Extent extent = shape::Widened(grid::ExtentOf(id), Margin(m_level));
        for (std::vector<Place>& piece : shape::Pieces(line.line, extent))
            At(id).waterLines.push_back({line.name, std::move(piece)});
    }
}

} // namespace vasclip::street
