#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// What turning the arrows came to.
struct ArrangeTally
{
    QStringList turned;  ///< "COMP #2"
    QStringList crowded; ///< those for which there is no room at this scale
};

/// Turns the arrows so that none covers another, the subject or a house that it does not point at. Those that were turned
/// or placed by hand, and anchored ones, stay.
ArrangeTally ArrangeArrows(MapDesk& desk);
void cmdArrange_Click(MapDesk& desk);

} // namespace vasclip::map
