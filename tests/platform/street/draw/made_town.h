#pragma once

#include "platform/street/cell.h"

#include <algorithm>

namespace vasclip::street {

/// A made-up town in cells: what a test lays out is what the map has.
class MadeTown : public CellSource
{
public:
    static constexpr Place kMiddle{32464000, -86459700};

    MadeTown() : m_cells{std::make_shared<Cell>()} {}

    /// Feet to the east and north of the middle, near enough for a town.
    [[nodiscard]] static Place At(double east, double north)
    {
        return {kMiddle.latitude + static_cast<qint32>(north * 2.743), // millionths of a degree a foot
                kMiddle.longitude + static_cast<qint32>(east * 3.2455)};
    }
    quint32 Name(const QString& name, const QString& shield = {})
    {
        m_cells[0]->streets.push_back({name, shield});
        return static_cast<quint32>(m_cells[0]->streets.size());
    }
    CellEdge& Road(quint32 street, RoadClass roadClass, std::vector<Place> line)
    {
        CellEdge edge;
        edge.street = street;
        edge.roadClass = roadClass;
        edge.line = std::move(line);
        m_cells[0]->edges.push_back(std::move(edge));
        return m_cells[0]->edges.back();
    }
    MapArea& Area(AreaKind kind, const QString& name, std::vector<Place> ring)
    {
        m_cells[0]->areas.push_back({kind, name, {std::move(ring)}});
        return m_cells[0]->areas.back();
    }
    [[nodiscard]] Cell& Town() { return *m_cells[0]; }
    [[nodiscard]] Cell& Last() { return *m_cells.back(); }
    /// The same again in a second cell, as what crosses a border stands in both.
    void Twice() { m_cells.push_back(std::make_shared<Cell>(*m_cells[0])); }

    [[nodiscard]] std::vector<std::shared_ptr<const Cell>> Cells(const Extent& /*extent*/, Level level) const override
    {
        asked = level;
        return {m_cells.begin(), m_cells.end()};
    }
    [[nodiscard]] QString StreetName(const Cell& cell, quint32 street) const override
    {
        return street == 0 ? QString() : cell.streets.at(street - 1).name;
    }
    [[nodiscard]] QString Shield(const Cell& cell, quint32 street) const override
    {
        return street == 0 ? QString() : cell.streets.at(street - 1).shield;
    }
    [[nodiscard]] Extent Covered() const override { return {At(-9000, -9000), At(9000, 9000)}; }

    mutable Level asked = Level::Streets;

private:
    std::vector<std::shared_ptr<Cell>> m_cells;
};

} // namespace vasclip::street
