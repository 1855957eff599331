#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"

namespace vasclip::drops {

/// Exchanges two sales comps within the report, as the menu of a slot offers it.
/// @param shown  the texts of the two slots when the choice was offered; a slot that shows another comp by now
///               refuses with words
Outcome SwapSlots(DropDesk& desk, int target, int source, const std::pair<QString, QString>& shown);
/// The same with what the slots show now.
Outcome SwapSlots(DropDesk& desk, int target, int source);

} // namespace vasclip::drops
