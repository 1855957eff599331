#pragma once

#include "drops/drag.h"
#include "drops/slot.h"
#include "link/drop_comp.h"

namespace vasclip::drops {

// What is said, and shown in the slot, after a record was sent to a comp.

/// A send that was not completed. The slot takes the record's address only if the report has taken it.
[[nodiscard]] Outcome BrokenOff(link::LinkDesk& desk, const Slot& slot, const link::Dropped& dropped);

/// A complete one, with what the comp's column still tells of the comp before it.
/// @param photoTold  what TellUnsent says of the photo
[[nodiscard]] Outcome InReport(const link::Dropped& dropped, PhotoSent photo, const QString& photoTold);

} // namespace vasclip::drops
