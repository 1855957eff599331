#pragma once

#include "map/pinmap.h"

namespace vasclip::map {

/// Places the subject as point 1, at its record's anchor or by its address, with the messages for what is missing.
/// @return was it placed?
bool PlaceSubjectPoint(MapDesk& desk, const QString& picture, const QString& caption,
                       QList<RecordLocation>& found);

/// What came of placing arrows, for people.
struct ArrowTally
{
    QStringList placed;   ///< captions: "COMP #1"
    QStringList notFound; ///< captions with their addresses
    bool failed = false;  ///< an error ended it, which has been told
};

/// Places the arrows of the active tab's comps.
ArrowTally PlaceTypeArrows(MapDesk& desk, QList<RecordLocation>& found);

/// "ARROW" + the colour of the settings + type and number, to the left and up.
[[nodiscard]] QString NewArrow(const MapDesk& desk, const QString& type, int number);

void cmdSubjectOnly_Click(MapDesk& desk);
void cmdSubjectAnd_Click(MapDesk& desk);

} // namespace vasclip::map
