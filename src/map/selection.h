#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Where an arrow's comp stands in the report, by the name of its bitmap; nothing for a house, and for a number that
/// the report has no slot for.
[[nodiscard]] std::optional<link::SlotRef> SlotOf(const MapPoint& point);
[[nodiscard]] bool IsSubjectPoint(const MapDesk& desk, const MapPoint& point);

/// The address that a point stands for: a house's text, an arrow's box of the report; "" for none.
[[nodiscard]] QString PointAddress(const MapDesk& desk, const MapPoint& point);

/// A click on a point of the map: its details come on show. Nothing while Caps Lock is down.
/// @return is the address on show that of the point?
bool mapview_PointClick(MapDesk& desk, qint32 id);

/// Empties what is shown of the selected point, and hides the anchor.
void ClearDetails(MapDesk& desk);

/// Sets the address of the selected point, and with it its details, also where it reads the same.
void ShowMapAddress(MapDesk& desk, const QString& address);
/// The address box has changed: photo, size, price, date, proximity and anchor of that comp.
void txtMapAddress_Change(MapDesk& desk);

void cmdClearPoint_Click(MapDesk& desk);
void cmdClear_Click(MapDesk& desk);

} // namespace vasclip::map
