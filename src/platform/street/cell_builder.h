#pragma once

#include "platform/street/cell.h"

#include <QHash>

#include <map>

namespace vasclip::street {

/// Cells of one level while they fill.
class CellBuilder
{
public:
    explicit CellBuilder(Level level)
        : m_level(level)
    {}

    /// @return the edge's index in the cell
    quint32 AddEdge(quint32 id, CellEdge edge, const CellStreet& street);
    /// Puts an area into every cell that it touches, cut to a little more than the cell.
    void AddArea(const MapArea& area);
    void AddWaterLine(const WaterLine& line);
    /// The cell itself, made where it is missing, for what lies in it alone.
    Cell& At(quint32 id);

    /// All cells by number.
    [[nodiscard]] const std::map<quint32, Cell>& Cells() const { return m_cells; }

private:
    Level m_level;
    std::map<quint32, Cell> m_cells;
    QHash<std::pair<quint32, QString>, quint32> m_streets; ///< by cell and name
};

} // namespace vasclip::street
