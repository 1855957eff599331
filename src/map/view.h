#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Takes every point off the map; which points a type had is left to the caller.
void ClearMap(MapDesk& desk);
/// Centres the map on one of its points.
void CentreOnPoint(MapDesk& desk, qint32 id);

/// Shows the points first to last with a margin of 40 percent.
///
/// The sizes are rounded to whole feet and the cosine of the latitude to a whole number, so above 60 degrees the width
/// counts as nothing, and a single point fills the view.
/// @param limitToCount  last is at most the count of points
void zoomtopoints(MapDesk& desk, qint32 first, qint32 last, bool limitToCount);

void cmdin_Click(MapDesk& desk);
void cmdout_Click(MapDesk& desk);
void cmdRefreshMap_Click(MapDesk& desk);

/// One display setting of the control; a failure is shown.
void ApplyAttribute(MapDesk& desk, qint32 feature, qint32 attribute, double value);
/// How much is drawn, by MAPDETAIL.
void ApplyMapDetail(MapDesk& desk);
/// The next level: 3, 2, 1, 3.
void cmdDetail_Click(MapDesk& desk);

/// One step up or down of a spinner, +1 or -1.
void spnFontSize_Change(MapDesk& desk, int step);
void spnWidth_Change(MapDesk& desk, int step);
void txtfontsize_Change(MapDesk& desk);
void txtwidth_Change(MapDesk& desk);

} // namespace vasclip::map
