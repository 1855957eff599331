#pragma once

#include "drops/drag.h"
#include "link/link_desk.h"

namespace vasclip::drops {

enum class WithPhoto { No, Yes };

/// What a data box shows of a comp that has just been sent.
inline constexpr QLatin1StringView kAddedLamp{"Addendum_Added.bmp"};

/// A record's data, and its front view, to a comp slot of the report: by a drop, a menu, a key or a click on its data
/// box. Neither the record on show nor any cursor moves.
/// @param slot  of a group of comps; @param lamp  picture of the program directory for the data box
Outcome SendRecord(link::LinkDesk& desk, SlotRef slot, const QString& key, WithPhoto photo,
                   QLatin1StringView lamp = kAddedLamp);

} // namespace vasclip::drops
