#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Turns the selected point's anchor on or off; its record remembers or forgets the place.
void cmdAnchorOne_Click(MapDesk& desk);
/// Anchors every arrow where it stands, or every house of the Comp Locator.
void cmdAnchor_Click(MapDesk& desk);
/// Takes every anchor off again, after a question where records would forget a place.
void cmdAnchor_RightClick(MapDesk& desk);

/// Tells that a point was put where it is by hand, and who remembers it.
void TellKept(MapDesk& desk, const MapPoint& point);
/// Puts a point at another place by hand, which anchors it there.
/// @return false if it stays where it was: there is none, the user said no, the Databook did not take it
bool MovePointTo(MapDesk& desk, qint32 id, street::Place place);
/// Moves the selected point by pixels of the view.
void MoveSelectedBy(MapDesk& desk, double east, double north);

} // namespace vasclip::map
