#pragma once

#include "app/vasctl/session.h"

#include "map/locations.h"
#include "platform/street/map_data.h"
#include "platform/street/street_map.h"

#include <memory>
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

/// A map without a window: the engine over the home's street files, and the desk of its rules. The Databook is open.
class MapSession
{
public:
    explicit MapSession(Session& session);
    MapSession(const MapSession&) = delete;
    MapSession& operator=(const MapSession&) = delete;

    [[nodiscard]] map::MapDesk& Desk() { return m_desk; }
    [[nodiscard]] street::StreetMap& Street() { return m_street; }
    [[nodiscard]] const street::MapData& Maps() const { return *m_maps; }

private:
    std::shared_ptr<const street::MapData> m_maps;
    forms::ControlSet m_controls; ///< of the tab alone: nothing is shown
    map::frm_MapTab m_tab;
    street::StreetMap m_street;
    map::MapDesk m_desk;
};

/// Null, told, where there are no street files.
[[nodiscard]] std::unique_ptr<MapSession> OpenMap(Session& session, const Output& out);

/// Places the subject and the comps of these groups of what the report's boxes hold.
[[nodiscard]] Placement PlaceReport(map::MapDesk& desk, std::span<const link::Group> groups);

} // namespace vasclip::vasctl
