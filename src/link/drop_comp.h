#pragma once

#include "link/link_desk.h"
#include "link/send_bulk.h"

namespace vasclip::link {

enum class DropOutcome {
    Sent,       ///< the comp's fields are in the report
    Incomplete, ///< the send broke off after some fields, which has been reported
    NothingSent, ///< it broke off before the first one, which has been reported, or no report is open
    Unsure,     ///< the first field got no answer, which has been reported: it may be there or not
    OwnSlot,    ///< a comp dropped on its own slot: nothing was sent
    Swapped,    ///< two comps of the report changed places
    Refused,    ///< the user kept the comp that stands in the slot
    NotFound,   ///< no record of that key
    NotRunning, ///< the forms program is not running, which has been said
    OtherReport, ///< another report is active than the tabs show: nothing was sent; LinkState::notSent tells
    Cancelled,  ///< by the user; LinkState::notSent tells how far it got
    Failed,     ///< the swap, the look-up or the clearing failed, which has been reported
};

/// Drops the record of `LinkState::currentKey` on a comp slot, or swaps two comps of the report when
/// `LinkState::dragSourceIndex` is 1 to 9.
/// @param target      the slot whose Index is the comp's number
/// @param photoSlot   the picture beside it
/// @param compType    SALE, ALT, RENT or LIST (or a word of that group)
/// @param clearPhoto  empties the slot's photo, in the report too
DropOutcome DropComp(LinkDesk& desk, const forms::Control& target, forms::PictureBox& photoSlot,
                     const QString& compType, bool clearPhoto);

/// Opens the active report, sends the current record of datDatabook to a comp and has the report
/// recalculated.
/// @return an incomplete result without a failure if no report is open, or another than the tabs show:
/// LinkState::notSent tells
SendResult KelUpdateKel(LinkDesk& desk, qint16 comp, const QString& compType);

/// May the record being dragged replace what stands in the slot? The same key, and a blank slot, are not
/// asked about.
[[nodiscard]] bool ConfirmOverwrite(LinkDesk& desk, const QString& existing);

/// The text of a slot; "" for an index of 0 or -1 and for an unknown type.
[[nodiscard]] QString ExistingSlotText(const ReportControls& report, const QString& compType, int index);

} // namespace vasclip::link
