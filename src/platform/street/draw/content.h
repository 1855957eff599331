#pragma once

#include "platform/street/cell.h"
#include "platform/street/draw/view.h"

#include <memory>
#include <vector>

namespace vasclip::street::draw {

/// What the cells have for a picture, each thing once: what crosses a border stands in several cells.
struct Content
{
    struct Edge
    {
        const Cell* cell = nullptr;
        const CellEdge* edge = nullptr;
    };
    struct Area
    {
        const Cell* cell = nullptr; ///< which it is cut by
        const MapArea* area = nullptr;
    };
    std::vector<std::shared_ptr<const Cell>> cells; ///< what the pointers below point into
    std::vector<Edge> edges;
    std::vector<Area> areas;
    std::vector<const WaterLine*> waterLines;
    std::vector<const PlaceName*> places;
    std::vector<const CellHouse*> houses;
};

/// @param margin  pixels around the picture whose things may reach into it
[[nodiscard]] Content Gather(const CellSource& source, const Projection& projection, double margin);

} // namespace vasclip::street::draw
