#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"
#include "store/record.h"

namespace vasclip::link {

/// Sets a slot's icon by the record that its label names: not in the Databook, without the view, with it. The
/// anchor shows if the record has coordinates. A blank label hides both. No cursor moves.
/// @param anchor  nullptr for a slot that has none
void SetSlotIcon(LinkDesk& desk, const QString& label, forms::PictureBox& icon, forms::PictureBox* anchor,
                 const QString& view);

/// @param view  1 "FRONT VIEW", 2 "REAR VIEW", 3 "STREET SCENE", 0 all three
void RefreshSubjectIcons(LinkDesk& desk, int view);
/// The icon and anchor beside one slot, by the record of its text; of the subject, whose photos share a text, all three.
void RefreshSlotIcon(LinkDesk& desk, SlotRef slot);
/// The same where the record of the slot's text is in hand, without a look-up.
void RefreshSlotIcon(ReportMirror& desk, SlotRef slot, const store::Record& record);
/// The icons of a group; the five after it by their own names.
void RefreshIcons(LinkDesk& desk, Group group);
void RefreshCompIcons(LinkDesk& desk);
void RefreshAltCompIcons(LinkDesk& desk);
void RefreshGeneralIcons(LinkDesk& desk);
void RefreshListingIcons(LinkDesk& desk);
void RefreshRentalIcons(LinkDesk& desk);
void RefreshAllSlotIcons(LinkDesk& desk);

/// One data box, as RefreshAddendumIcons sets it.
void SetAddendumIcon(LinkDesk& desk, forms::PictureBox& box, const forms::TextBox& label);

/// The data boxes beside the text slots: "Addendum_Full.bmp" for a slot with a text, else
/// "Addendum_Empty.bmp".
void RefreshAddendumIcons(LinkDesk& desk);

/// The view of a subject slot, "" for another index.
[[nodiscard]] QString SubjectView(int index);

} // namespace vasclip::link
