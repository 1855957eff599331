#pragma once

#include "map/map_desk.h"

#include <vector>

namespace vasclip::map {

/// The circle's number among the lines of the map.
inline constexpr qint32 kRadiusLine = 12345;

/// @param mapTabShown  the circle is only drawn while the map can be seen
void ckbRadius_Click(MapDesk& desk, bool mapTabShown);
/// One step of a quarter of a mile, +1 or -1; at 0 the circle is off.
void spnradius_Change(MapDesk& desk, int step);
/// Draws the circle around the subject, which turns the box on, or removes it for an empty or zero text.
void txtradius_Change(MapDesk& desk);

/// Points have come, gone or moved: the circle stands around the subject as it is now, and lists who is within now.
void FollowCircle(MapDesk& desk);

/// Draws the circle of the radius around a place and lists the comps within it.
void SetCircle(MapDesk& desk, street::Place centre);
/// Replaces a line by 36 places around a centre.
void CreateCircularBuffer(MapDesk& desk, qint32 line, street::Place centre, double radiusMiles);
/// A point within the circle: listed, but for the subject.
void PointFound(MapDesk& desk, const QString& text, qint32 id);

/// A comp of the map, by its distance from the circle's centre.
struct RadiusComp
{
    qint32 id = 0;
    QString address = {};
    double feet = 0;
    bool within = false;
};
/// Every comp of the map, the nearest first; empty without a circle.
[[nodiscard]] std::vector<RadiusComp> CompsByDistance(MapDesk& desk);
/// Those within the radius, and of those outside the ones that a radius half as large again would reach.
[[nodiscard]] std::vector<RadiusComp> CompsAroundRadius(MapDesk& desk);

} // namespace vasclip::map
