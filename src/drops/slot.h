#pragma once

#include "drops/drag.h"
#include "link/link_desk.h"
#include "link/slot_table.h"

#include <QLatin1StringView>

#include <optional>

namespace vasclip::drops {

/// The controls of one report slot.
struct Slot
{
    forms::TextBox& text; ///< key of its record
    forms::PictureBox& photo;
    forms::PictureBox* data; ///< nullptr for a slot without a data box
    link::Group group;
    /// The icons of its tab.
    void RefreshIcons(link::LinkDesk& desk) const;
};

/// @param group  SUBJECT, SALE, ALT, GENERAL, LIST or RENT
/// @param index  of the subject 1 to 3; anything else stands for its first photo
[[nodiscard]] Slot SlotOf(link::LinkDesk& desk, QLatin1StringView group, int index);

/// What a slot's text takes: the address in the user's case where that is the key but for case; a record whose
/// ADDRESS has been edited away from its key shows the key, or its slot would not find it again.
[[nodiscard]] QString SlotText(const link::LinkState& state);

/// Stands datDatabook on a record, lists its photos and takes its key and address into the state.
/// @return false if there is no such record
[[nodiscard]] bool TakeRecord(link::LinkDesk& desk, const QString& key);

/// What became of a photo that was to be sent, the worse the further down.
enum class PhotoSent {
    Yes,
    None,    ///< the record has no such view; the slot is empty
    Kept,    ///< its file is missing, and the user kept what the slot holds
    Cleared, ///< its file is missing, and the slot was emptied, in the report too
    Failed,
};

/// Sends a view of the record whose photos are listed. Without one the slot is emptied here and in the report,
/// where the picture of the comp before would stand beside the new one's data. A view whose file is missing
/// would empty it as well, which is asked first.
PhotoSent SendView(link::LinkDesk& desk, forms::PictureBox& photo, const QString& view);

/// What to tell of a photo whose file is missing, or that did not reach the report; nullopt for the others.
/// @param key  of its record
[[nodiscard]] std::optional<Outcome> TellUnsent(const link::LinkDesk& desk, PhotoSent sent, const QString& view,
                                                const QString& key);

} // namespace vasclip::drops
