#pragma once

#include "link/slot_table.h"

namespace vasclip::map {

/// What the map has of its own for a group of comps.
struct MapGroupRow
{
    link::Group group;
    QLatin1StringView button; ///< caption of cmdSubjectAnd, with its access key, which is the same on all tabs
    QLatin1StringView comps;  ///< in its tool tip
    forms::ControlArray<forms::TextBox> link::frm_Addr::*proximities;
};

/// @param group  of comps
[[nodiscard]] const MapGroupRow& MapRowOf(link::Group group);

} // namespace vasclip::map
