#pragma once

#include "drops/drag.h"
#include "link/link_desk.h"
#include "photos/photo_list.h"
#include "store/record.h"

#include <optional>

namespace vasclip::drops {

/// The controls of one report slot.
struct Slot
{
    SlotRef ref;
    forms::TextBox& text; ///< key of its record
    forms::PictureBox& photo;
    forms::PictureBox* data; ///< nullptr for a slot without a data box
};

[[nodiscard]] Slot SlotOf(link::LinkDesk& desk, SlotRef slot);

/// What a slot's text takes: the address in the user's case where that is the key but for case; a record whose
/// ADDRESS has been edited away from its key shows the key, or its slot would not find it again.
[[nodiscard]] QString SlotText(const QString& address, const QString& key);

/// A record on its way to the report, as it was read.
struct Taken
{
    store::Record record;
    QString key; ///< upper-cased
    QString address; ///< in the user's case
    photos::PhotoList photos;
    [[nodiscard]] QString Text() const { return SlotText(address, key); }
};

/// Reads the record of a key and its photos. @return nothing if there is none
[[nodiscard]] std::optional<Taken> TakeRecord(const link::LinkDesk& desk, const QString& key);

/// What became of a photo that was to be sent, the worse the further down.
enum class PhotoSent {
    Yes,
    None,    ///< the record has no such view; the slot is empty
    Kept,    ///< its file is missing, and the user kept what the slot holds
    Cleared, ///< its file is missing, and the slot was emptied, in the report too
    Failed,
};

/// Sends a view of a record. Without one the slot is emptied here and in the report, where the picture of the comp
/// before would stand beside the new one's data. A view whose file is missing would empty it as well, which is asked
/// first.
PhotoSent SendView(link::LinkDesk& desk, const Taken& record, forms::PictureBox& photo, const QString& view);

/// What to tell of a photo whose file is missing, or that did not reach the report; nullopt for the others.
/// @param name  of the record, for people
[[nodiscard]] std::optional<Outcome> TellUnsent(const link::LinkDesk& desk, const Taken& record, PhotoSent sent,
                                                const QString& view, const QString& name);

} // namespace vasclip::drops
