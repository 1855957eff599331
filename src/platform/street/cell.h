#pragma once

#include "platform/street/features.h"

#include <memory>

namespace vasclip::street {

/// How much of the map a cell carries. Finer levels repeat what coarser ones have, with more places on a line.
enum class Level : quint8 {
    Streets, ///< everything, at full detail
    Town, ///< roads to Collector, larger areas, lines simplified to about 10 m
    Region ///< Motorway and Highway, large water, cities, lines simplified to about 80 m
};

/// A street name of a cell, shared by the edges that bear it.
struct CellStreet
{
    QString name; ///< whole, as the source writes it
    QString shield; ///< of a numbered road "US 31", "AL 14", "I 65"; "" for others
};

/// One street edge as it is stored.
struct CellEdge
{
    quint32 street = 0; ///< which of the cell's streets, from 1 on; 0 where it has no name
    RoadClass roadClass = RoadClass::Local;
    bool hidden = false; ///< here for its numbers alone, its road is drawn by another line
    std::vector<Place> line;
    NumberRange left; ///< without zip and city
    NumberRange right;
};

struct CellHouse
{
    QString number;
    Place place;
};

/// A square of the map, decoded. A street that crosses its border stands whole in each cell that it touches;
/// areas and brooks are cut a little outside of it.
struct Cell
{
    Level level = Level::Streets;
    quint32 id = 0; ///< its row in the county's file
    Extent extent;
    std::vector<CellStreet> streets;
    std::vector<CellEdge> edges;
    std::vector<CellHouse> houses;
    std::vector<MapArea> areas;
    std::vector<WaterLine> waterLines;
    std::vector<PlaceName> places; ///< without outlines
};

/// The drawing side of the maps that are open; any thread may ask, and a cell that was handed out stays good.
class CellSource
{
public:
    virtual ~CellSource() = default;
    /// The cells of `level` that touch `extent`, in a fixed order. Cells of a pack that can't be read are
    /// left out; what was wrong stands in the pack's own state.
    [[nodiscard]] virtual std::vector<std::shared_ptr<const Cell>> Cells(const Extent& extent,
                                                                         Level level) const = 0;
    /// The whole name of a street of a cell, and its shield where it is a numbered road ("US 31", "AL 14",
    /// "I 65"; "" for others).
    [[nodiscard]] virtual QString StreetName(const Cell& cell, quint32 street) const = 0;
    [[nodiscard]] virtual QString Shield(const Cell& cell, quint32 street) const = 0;
    /// All ground that the open maps cover.
    [[nodiscard]] virtual Extent Covered() const = 0;
};

} // namespace vasclip::street
