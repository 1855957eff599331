#pragma once

#include "platform/street/cell.h"

#include <QString>

#include <memory>
#include <vector>

namespace vasclip::street {

class LookupReader;
class NameIndex;

/// Where an edge lies in its county's file: the row of its cell at Level::Streets, and which edge of the cell.
struct EdgePosition
{
    quint32 cell = 0;
    quint32 index = 0;
    friend bool operator==(const EdgePosition&, const EdgePosition&) = default;
};

/// What the geocoder reads of the maps that are open. A county is named by its number in the index.
class EdgeStore
{
public:
    virtual ~EdgeStore() = default;
    /// Which counties can have a name, a ZIP or a place; null where no maps are open.
    [[nodiscard]] virtual const NameIndex* Index() const = 0;
    /// All counties whose ground may have something of `extent`.
    [[nodiscard]] virtual std::vector<quint32> CountiesAt(const Extent& extent) const = 0;
    /// The tables of a county, null where its file can't be read. What was handed out stays good.
    [[nodiscard]] virtual std::shared_ptr<const LookupReader> Lookup(quint32 county) const = 0;
    /// A cell of a county, decoded; null where it can't be read.
    [[nodiscard]] virtual std::shared_ptr<const Cell> CellAt(quint32 county, quint32 cell) const = 0;
    /// The cells of a county at Level::Streets that touch `extent`.
    [[nodiscard]] virtual std::vector<std::shared_ptr<const Cell>> CellsNear(quint32 county,
                                                                             const Extent& extent) const = 0;
};

} // namespace vasclip::street
