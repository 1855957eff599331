#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"
#include "drops/send_record.h"

namespace vasclip::drops {

// What the menus over the report slots, their icons and their data boxes lead to.

/// The slot's photo anew from the record that its text names: for the subject the view of the index, for the
/// others the front view.
Outcome ObtainPhoto(DropDesk& desk, SlotRef slot);
/// The same for the three slots on view.
Outcome ObtainShownPhotos(DropDesk& desk, SlotRef slot);
/// Empties a photo slot here and in the report, after asking.
Outcome ClearPhoto(DropDesk& desk, SlotRef slot);
/// The view that is typed beside a general slot, from the subject's record.
Outcome ObtainGeneral(DropDesk& desk, int index);

/// The slot's data anew from the record that its text names.
Outcome ObtainData(DropDesk& desk, SlotRef slot, WithPhoto photo);
Outcome ObtainShownData(DropDesk& desk, SlotRef slot, WithPhoto photo);
/// A click on a data box: the record that the text names goes into the slot.
Outcome ClickDataBox(DropDesk& desk, SlotRef slot);

/// A click on the icon beside a photo slot: its photo goes into the Databook.
Outcome SavePhotoOfSlot(DropDesk& desk, SlotRef slot);
/// The slot's data go there, by its menu.
Outcome SaveDataOfSlot(DropDesk& desk, SlotRef slot);

} // namespace vasclip::drops
