#pragma once

#include "forms/grid.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"

namespace vasclip::drops {

/// What of a report slot goes into the Databook.
enum class SlotPart { Data, Photo, Both };

/// Routines in which a drop ends.
struct DropRoutines
{
    /// The slot's data and photo go into the Databook if AUTOSAVE is on.
    std::function<void(QLatin1StringView group, int index)> autoSave;
    /// They go there now. @return what to tell the user; the record is named if there is one
    std::function<void(QLatin1StringView group, int index, SlotPart part)> save;
};

/// What the drops work on; all of it outlives the router.
struct DropDesk
{
    link::LinkDesk& link;
    photos::PhotoDesk& photos;
    photos::CaptureDesk& capture;
    const forms::Grid& grddatabook;
    const forms::TextBox& txtcentralkey; ///< key of the record on show, and the address box
    DropRoutines routines;
};

} // namespace vasclip::drops
