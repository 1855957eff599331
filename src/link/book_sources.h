#pragma once

#include "common/globals.h"
#include "link/proximity_source.h"
#include "photos/photo_desk.h"
#include "photos/photo_lists.h"
#include "platform/files/disk.h"
#include "store/store.h"

namespace vasclip::link {

/// Where what is sent comes from and what is read goes to: the Databook with its pictures, the mapping, the settings.
struct BookSources
{
    store::Sources& sources;
    common::Globals& globals; ///< written here: formsProgramVersion
    photos::PhotoLists& lists;
    const files::Disk& disk;
    ProximitySource* proximity = nullptr;   ///< none without a map
    photos::PhotoDesk* photoDesk = nullptr; ///< the photo store; none: nothing is filed
};

} // namespace vasclip::link
