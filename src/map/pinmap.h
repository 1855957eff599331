#pragma once

#include "map/locations.h"
#include "map/map_desk.h"

namespace vasclip::map {

/// Centres the map on an address; nothing, and not a word, where it is not found.
void MapCenterOnAddress(MapDesk& desk, const QString& address);
/// Centres on decimal degrees; nothing for an empty latitude.
void MapCenterOnLatLong(MapDesk& desk, const QString& latitude, const QString& longitude);

/// How a point is to look.
struct PointLook
{
    QString text = {};    ///< not shown for an arrow, whose bitmap holds its caption
    QString picture = {}; ///< name of a bitmap; "" for none
    qint32 flag = 0; ///< flag::kFree or flag::kAnchored
};

/// Places a point at an address. Its record gets the place that was found, of which the caller keeps note, so that
/// those of one gesture are stored together.
/// @param found  gets the place, for SaveLocations
/// @return false if the address was not found, and nothing is placed
bool MapPlaceAddrPoint(MapDesk& desk, qint32 id, const QString& address, const PointLook& look,
                       QList<RecordLocation>& found);

/// Places a point at a place, and raises the count of points.
void MapPlaceLatLongPoint(MapDesk& desk, qint32 id, street::Place place, const PointLook& look);

/// Places a point at a record's stored place.
/// @param latitude, longitude  decimal degrees; @return false if that is no place on the globe
bool PlaceAnchoredPoint(MapDesk& desk, qint32 id, const QString& latitude, const QString& longitude,
                        const PointLook& look);

enum class FindBy {
    Address, ///< the point's `Location`, trimmed, with a "," behind it contains the key
    Caption, ///< its text, trimmed, is the key
    Picture, ///< its bitmap's name contains the key
};
/// The first point that fits; loads each of them. Letters fit in any case.
/// @param number  with Picture and the key "SUBJECT": a bitmap of a comp must carry it too; 0 for none
/// @return a number below 1 for none
[[nodiscard]] qint32 FindMapPoint(MapDesk& desk, FindBy kind, const QString& key, int number = 0);
/// The subject's point by its caption or its arrow; -1 for none.
[[nodiscard]] qint32 FindSubjectPoint(MapDesk& desk);

/// The number of the next point other than the subject's, which is always 1.
[[nodiscard]] qint32 NextPoint(MapDesk& desk);

} // namespace vasclip::map
