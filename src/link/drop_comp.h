#pragma once

#include "link/link_desk.h"
#include "link/send_bulk.h"
#include "link/slot_table.h"
#include "store/record.h"

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

/// What came of a drop on a comp slot.
struct Dropped
{
    DropOutcome outcome = DropOutcome::Failed;
    QString key;
    QString address = {}; ///< of the record, in the ADDRESSCASE form
    std::optional<store::Record> record = {}; ///< as it was sent; none before it was read
    int sent = 0;             ///< fields poked
    bool addressSent = false; ///< the slot's comp has that record's address now
    QString leftOfOldComp = {}; ///< what its column still tells of the comp before, in words; "" for nothing
};

/// The source of a drop that comes from no comp slot.
inline constexpr int kFromDatabook = -1;

/// Is the slot's photo emptied first, in the report too?
enum class ClearPhoto { No, Yes };

/// Drops a record on a slot of a group of comps, or swaps two comps of the report. No cursor moves.
/// @param key     CENTRALKEY
/// @param source  1 to 9 for a comp of the report
Dropped DropComp(LinkDesk& desk, SlotRef slot, const QString& key, int source = kFromDatabook,
                 ClearPhoto clear = ClearPhoto::No);

/// Opens the active report, sends a record to a comp and has the report recalculated.
/// @return an incomplete result without a failure if no report is open, or another than the tabs show:
/// LinkState::notSent tells
SendResult KelUpdateKel(LinkDesk& desk, const store::Record& record, qint16 comp, const QString& compType);

/// May the record of a key replace what stands in the slot? The same key, and a blank slot, are not asked about.
[[nodiscard]] bool ConfirmOverwrite(Conversation& desk, const QString& existing, const QString& key);

/// The text of a slot; "" for an index of 0 or -1 and for an unknown type.
[[nodiscard]] QString ExistingSlotText(const ReportControls& report, const QString& compType, int index);

} // namespace vasclip::link
