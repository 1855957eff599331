#pragma once

#include "demo/map/plane.h"

namespace vasclip::demo {

/// A road, a railway or a creek that leads from village to village.
struct LongRoad
{
    QString name;
    QString kind; ///< code of the census' features
    Line line;
};

[[nodiscard]] std::vector<LongRoad> LongRoads();
/// A creek is no road: it is drawn and cuts nothing.
[[nodiscard]] std::vector<LongRoad> Creeks();

/// A name for a side street, each once; "" when they are used up.
[[nodiscard]] QString SideStreetName(int number);

} // namespace vasclip::demo
