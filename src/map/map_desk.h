#pragma once

#include "common/globals.h"
#include "common/status.h"
#include "forms/ports.h"
#include "link/report_desk.h"
#include "link/slot_table.h"
#include "map/map_controls.h"
#include "photos/slots.h"
#include "platform/files/disk.h"
#include "platform/street/control.h"
#include "platform/street/geocoder.h"
#include "store/store.h"

#include <QHash>
#include <QSet>

#include <array>
#include <functional>

namespace vasclip::link {
struct LinkDesk;
}

namespace vasclip::map {

/// Was the point placed? By its number; only the numbers of arrows have a result.
class MapResults
{
public:
    static constexpr qint32 kLast = 101;
    [[nodiscard]] static constexpr bool Has(qint32 id) { return id >= 0 && id <= kLast; }
    [[nodiscard]] qint16& operator()(qint32 id);      ///< @throws RuntimeError 9 above 101
    [[nodiscard]] qint16 operator()(qint32 id) const; ///< likewise
    void Clear() { m_results.fill(0); }

private:
    std::array<qint16, kLast + 1> m_results{};
};

/// What the map keeps from one gesture to the next.
struct MapState
{
    bool inUse = false; ///< there are maps
    qint32 g_MapPointCount = 0; ///< number of the next point; 1 is always the subject
    QString g_MapRanges;        ///< see map_ranges.h
    MapResults g_MapResult;
    qint32 g_MapSelectedID = 0; ///< last point clicked, 0 for none
    QSet<qint32> turnedByHand; ///< arrows that keep their direction
    QHash<qint32, QString> placedFor; ///< see placed_for.h
    bool arrows = true;         ///< an arrow map, not one of the Comp Locator
    bool selectionLocked = false; ///< Caps Lock is down
    bool addressGate = false; ///< txtMapAddress is being set by a rule, which handles the change itself
    bool working = false; ///< a long gesture turns the queue; another one does nothing meanwhile
    street::Place radiusCentre;
    double radiusMiles = 0;
    QStringList radiusDistances; ///< of each line of lstaddresses, in words
};

/// A gesture that turns the queue, for its scope.
class Working
{
public:
    explicit Working(MapState& state)
        : m_state(state)
    {
        m_state.working = true;
    }
    ~Working() { m_state.working = false; }
    Working(const Working&) = delete;
    Working& operator=(const Working&) = delete;

private:
    MapState& m_state;
};

/// Everything that the rules of the map work on; whoever composes it owns what it refers to.
struct MapDesk
{
    street::StreetControl& map;
    frm_MapTab& tab;
    link::ReportControls& report;
    link::frm_Addr& addr;
    store::Sources& sources;
    common::Globals& globals; ///< written here: mapDetail
    forms::Ports ports;
    common::StatusDesk& status;
    const files::Disk& disk;
    photos::SlotLoader& loader;
    const street::Geocoder* geocoder = nullptr; ///< none: an address that is not found has no candidates
    link::LinkDesk* link = nullptr;         ///< none: nothing goes into the report
    std::function<void()> openSearch = {};  ///< shows the search screen
    std::function<QStringList()> problems = {}; ///< what of the street files can't be read, a sentence each
    MapState state = {};
};

/// The groups of comps in the order of the map: sales, alternates, listings, rentals.
inline constexpr std::array kMapGroups = {link::Group::Sales, link::Group::Alternates, link::Group::Listings,
                                          link::Group::Rentals};
/// The map's word for a group of comps: "COMP", "ALTCOMP", "LISTING", "RENTAL"; "SUBJECT".
[[nodiscard]] QString TypeWord(link::Group group);
/// The group of such a word; nullptr for none.
[[nodiscard]] const link::GroupRow* GroupOfType(const QString& type);
/// What the data tabs show, the sales where they show no comps.
[[nodiscard]] link::Group ActiveGroup(const link::ReportControls& report);
/// Caption and tool tip of `cmdSubjectAnd` follow the data tabs.
void FollowTabs(link::ReportControls& report);

/// Address in a box of the report's tabs, trimmed; of the subject for the group Subject. "" out of range.
[[nodiscard]] QString AddressAt(const MapDesk& desk, link::SlotRef slot);

/// The record of a key, if there is one.
[[nodiscard]] std::optional<store::Record> FindComp(const MapDesk& desk, const QString& key);
[[nodiscard]] bool HasLocation(const store::Record& record);
[[nodiscard]] bool IsAnchored(const store::Record& record); ///< ANCHORED, and with a location

/// Decimal degrees of millionths, and back.
[[nodiscard]] QString DegreesText(qint32 millionths);
[[nodiscard]] qint32 Millionths(const QString& degrees);

/// A point of the map as it is read at once.
struct MapPoint
{
    qint32 id = 0;
    street::Place place = {};
    qint32 flags = 0;
    QString picture = {}, text = {};
};
/// Action 6; nothing if there is no such point.
[[nodiscard]] std::optional<MapPoint> LoadPoint(MapDesk& desk, qint32 id);

/// The bits of TRANSPARENT.
[[nodiscard]] qint32 TransparencyBits(const MapDesk& desk);

} // namespace vasclip::map
