#pragma once

#include "drops/drag.h"
#include "drops/drop_desk.h"

#include <QLatin1StringView>

namespace vasclip::drops {

// What the menus over the report slots, their icons and their data boxes lead to.

/// The group of a report control's name, in any case: "imaComp", "txtComp" and "geaComp" give SALE. "" for a
/// control of no slot.
[[nodiscard]] QLatin1StringView GroupOf(const QString& controlName);

/// The slot's photo anew from the record that its text names: for the subject the view of the index, for the
/// others the front view.
Outcome ObtainPhoto(DropDesk& desk, QLatin1StringView group, int index);
/// The same for the three slots on view.
Outcome ObtainShownPhotos(DropDesk& desk, QLatin1StringView group, int index);
/// Empties a photo slot here and in the report, after asking.
Outcome ClearPhoto(DropDesk& desk, QLatin1StringView group, int index);
/// The view that is typed beside a general slot, from the subject's record.
Outcome ObtainGeneral(DropDesk& desk, int index);

enum class WithPhoto { No, Yes };
/// The slot's data anew from the record that its text names.
Outcome ObtainData(DropDesk& desk, QLatin1StringView group, int index, WithPhoto photo);
Outcome ObtainShownData(DropDesk& desk, QLatin1StringView group, int index, WithPhoto photo);
/// A click on a data box: the record that the text names goes into the slot.
Outcome ClickDataBox(DropDesk& desk, QLatin1StringView group, int index);

/// A click on the icon beside a photo slot: its photo goes into the Databook.
Outcome SavePhotoOfSlot(DropDesk& desk, QLatin1StringView group, int index);
/// The slot's data go there, by its menu.
Outcome SaveDataOfSlot(DropDesk& desk, QLatin1StringView group, int index);

} // namespace vasclip::drops
