#pragma once

#include "app/vasctl/session.h"

#include "map/locations.h"
#include "shell/map_parts.h"

#include <span>

namespace vasclip::vasctl {

/// A point of the map as it is told.
struct Placed
{
    QString label, address;
    street::Place place;
    bool anchored = false;
};

struct Placement
{
    QList<Placed> points;
    QStringList notFound; ///< labels with their addresses
    QList<map::RecordLocation> found; ///< what the records are to remember
};

/// The program's map without a window, its Databook open; nullptr, told, where there are no street files.
[[nodiscard]] shell::MapParts* OpenMap(Session& session, const Output& out);

/// Places the subject and the comps of these groups of what the report's boxes hold.
[[nodiscard]] Placement PlaceReport(map::MapDesk& desk, std::span<const link::Group> groups);

} // namespace vasclip::vasctl
