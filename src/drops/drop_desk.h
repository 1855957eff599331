#pragma once

#include "forms/grid.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "photos/photo_desk.h"

namespace vasclip::drops {

/// What the drops work on; all of it outlives the router.
struct DropDesk
{
    link::LinkDesk& link;
    photos::PhotoDesk& photos;
    photos::CaptureDesk& capture;
    const forms::Grid& grddatabook;
    const forms::TextBox& txtcentralkey; ///< key of the record on show, and the address box
};

} // namespace vasclip::drops
