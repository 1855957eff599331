#include "map/map_groups.h"

#include <algorithm>
#include <array>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
using link::Group;

namespace {

using A = link::frm_Addr;

constexpr std::array kRows{
    MapGroupRow{Group::Sales, "Su&bject/Comp"_L1, "Comps"_L1, &A::txtProximity},
    MapGroupRow{Group::Alternates, "Su&bj/AltComp"_L1, "Alt Comps"_L1, &A::txtAltProximity},
    MapGroupRow{Group::Listings, "Su&bject/Listing"_L1, "Listings"_L1, &A::txtListProximity},
    MapGroupRow{Group::Rentals, "Su&bject/Rent"_L1, "Rentals"_L1, &A::txtRentProximity},
};

} // namespace

const MapGroupRow& MapRowOf(Group group)
{
    const auto row = std::ranges::find(kRows, group, &MapGroupRow::group);
    return row == kRows.end() ? kRows.front() : *row;
}

} // namespace vasclip::map
