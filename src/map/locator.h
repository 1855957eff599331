#pragma once

#include "map/locations.h"

namespace vasclip::map {

/// What came of placing a search.
struct LocatorTally
{
    int placed = 0;
    int skipped = 0; ///< without address, city or state
    int gone = 0;    ///< deleted by somebody else since the search
    QStringList notFound;
    int seen = 0, of = 0; ///< rows; seen is less after a stop
};

/// Places the records of the last search as houses and anchored houses, with a gauge and a stop.
LocatorTally PlaceCompDatabase(MapDesk& desk, QList<RecordLocation>& found);
void cmdGeoComp_Click(MapDesk& desk);

} // namespace vasclip::map
