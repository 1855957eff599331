#pragma once

#include "link/proximity_source.h"
#include "map/map_desk.h"

namespace vasclip::map {

/// Miles in the picture "####.#": 6336 feet give "1.2", 2640 ".5", and what rounds to nothing ".".
[[nodiscard]] QString MilesText(qint32 feet);
/// "North" for 0, and so on towards the west; "" outside 0 to 15.
[[nodiscard]] QString CompassName(int index);

/// Miles from the subject to a record, by its stored place or its address; "" for a key without a record, and where
/// either place is not found. The subject's anchor comes before its address.
[[nodiscard]] QString CalcTheDistance(MapDesk& desk, const QString& key);
/// Miles from the subject's point to another point; "" unless both are on the map.
[[nodiscard]] QString PointDistanceToSubject(MapDesk& desk, qint32 id);

/// The compass word for a comp: the nearest of 15 places a mile around the subject. They stand 23 degrees apart from
/// north towards the west, and the last one 38 degrees from the first, so "NNE" never comes out.
/// @param address  of the selected point; another address is measured from its record's place
/// @return "" without a subject on the map, and without a selected point
[[nodiscard]] QString GetDirection(MapDesk& desk, const QString& address);

/// Proximity of the selected point as it is shown and sent: "1.2 Mi. NW", "< .1 Mi North", "".
[[nodiscard]] QString ProximityText(MapDesk& desk, const QString& address);

/// What the sending of a comp asks for.
class MapProximity final : public link::ProximitySource
{
public:
    explicit MapProximity(MapDesk& desk)
        : m_desk(desk)
    {}
    QString ShownAddress() const override { return m_desk.tab.txtMapAddress.Text(); }
    QString ShownProximity() const override { return m_desk.tab.txtMapProximity.Text(); }
    QString CalcTheDistance(const QString& key) override { return map::CalcTheDistance(m_desk, key); }
    QString GetDirection(const QString& address) override { return map::GetDirection(m_desk, address); }

private:
    MapDesk& m_desk;
};

} // namespace vasclip::map
