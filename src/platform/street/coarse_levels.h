#pragma once

#include "platform/street/cell.h"

#include <QHash>

#include <array>
#include <functional>
#include <vector>

namespace vasclip::street {

/// Makes the coarser levels of a county: what matters at that size, joined into long lines and simplified.
class CoarseLevels
{
public:
    /// @param shield  of a numbered road
    void Add(RoadClass roadClass, const QString& name, const QString& shield, const std::vector<Place>& line);
    void Add(const MapArea& area);
    void Add(const WaterLine& line);
    void Add(const PlaceName& place);

    /// Gives each cell of a level, in the order of their numbers, until `take` answers false.
    bool Make(Level level, const std::function<bool(const Cell&)>& take) const;

private:
    struct Road
    {
        RoadClass roadClass;
        quint32 street; ///< in m_streets, from 1 on
        std::vector<Place> line;
    };
    /// The least class that a level shows here.
    [[nodiscard]] RoadClass Least(Level level) const;
    [[nodiscard]] std::vector<Road> Joined(Level level) const;

    std::vector<CellStreet> m_streets;
    QHash<QString, quint32> m_streetNumbers;
    std::vector<Road> m_roads;
    std::array<double, static_cast<std::size_t>(RoadClass::Rail) + 1> m_metres{}; ///< of the roads of each class
    std::vector<MapArea> m_areas;
    std::vector<WaterLine> m_waterLines;
    std::vector<PlaceName> m_places;
};

} // namespace vasclip::street
