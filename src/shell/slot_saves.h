#pragma once

#include "drops/drop_desk.h"

namespace vasclip::shell {

/// How a report slot's data and photo go into the Databook, for the drops and the menus that end there.
[[nodiscard]] drops::DropRoutines SlotSaves(link::LinkDesk& link);

} // namespace vasclip::shell
