#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// A street without the house number that leads it: "114 OAK ST" gives "OAK ST". A first word that is not all digits
/// stays, and so does a text without a blank.
[[nodiscard]] QString Strip1stNums(const QString& street);

/// A click on the map sets the name of its street there, while street clicking is on.
void StreetClick(MapDesk& desk, street::Place place);
void ckbLabelStreets_Click(MapDesk& desk);

} // namespace vasclip::map
