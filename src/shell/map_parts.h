#pragma once

#include "link/proximity_source.h"
#include "map/map_controls.h"
#include "map/map_desk.h"
#include "map/map_rows.h"
#include "map/proximity.h"
#include "platform/street/street_map.h"

#include <QStringList>

#include <memory>

namespace vasclip::shell {

class Program;

/// The map of a program: its engine, the street files that are open, and the desk of its rules. The files are opened
/// when the map is first asked for, since most starts end without it.
class MapParts final : public link::ProximitySource
{
public:
    explicit MapParts(Program& program);
    ~MapParts() override;
    MapParts(const MapParts&) = delete;
    MapParts& operator=(const MapParts&) = delete;

    map::frm_MapTab tab;
    map::CheckedMaps checked; ///< of the maps that were read whole in this run

    /// Opens the street files that the settings name, the first time or where they have been replaced. No box tells
    /// that there are none: see map::TestMapFiles.
    /// @return are there any?
    bool Open();
    /// The ground of all maps; empty without them.
    [[nodiscard]] street::Extent Covered() const;
    /// Shows the middle of what the maps cover.
    void CentreOnMaps();
    [[nodiscard]] map::MapDesk& Desk() { return *m_desk; }
    [[nodiscard]] street::StreetMap& Street() { return m_street; }
    /// What was wrong with street files so far, a sentence each.
    [[nodiscard]] QStringList Problems() const;

    QString ShownAddress() const override;
    QString ShownProximity() const override;
    QString CalcTheDistance(const QString& key) override;
    QString GetDirection(const QString& address) override;

private:
    struct Maps;

    Program& m_program;
    std::shared_ptr<const Maps> m_maps;
    QStringList m_noMaps; ///< why there are none
    QStringList m_bitmapProblems; ///< arrows that could not be put into their directory
    street::StreetMap m_street;
    std::unique_ptr<map::MapDesk> m_desk;
    std::unique_ptr<map::MapProximity> m_proximity;
};

} // namespace vasclip::shell
