#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"

namespace vasclip::link {

/// What of a slot goes into the Databook.
enum class What { Both, Data, Pic };

/// What came of a transfer.
struct TransferTally
{
    int slots_ = 0; ///< slots that were to be transferred
    int blank = 0;  ///< of these, without an address
    int added = 0, replaced = 0, kept = 0, pictures = 0, failed = 0;
    bool stopped = false;    ///< cancelled: the slots after it were left alone
    bool linkLost = false;   ///< the forms program went away: likewise
    bool notRunning = false; ///< it was not there to begin with
    bool noneOpen = false;   ///< it was, with no report open, or with one that it does not name
    bool otherReport = false; ///< another report is active than the tabs show; nothing was done
    QString words;           ///< of that, and of a report that is not named
    bool busy = false;       ///< another transfer is at work; nothing was done
    QStringList stored;      ///< keys of the records that hold their comp now
    QString note;            ///< about a view that could not be kept as the report had it; "" for none

    /// One line for people.
    [[nodiscard]] QString Text() const;
    /// Did the report have nothing there?
    [[nodiscard]] bool Empty() const { return slots_ == blank; }
    [[nodiscard]] bool Failed() const { return failed > 0 || linkLost || notRunning || otherReport || (noneOpen && !Empty()); }
};

// Each stores the report's column of a slot as a record, its picture as a photo of it, or both. They turn the
// queue between two slots, where the gauge's button stops them; `lblmsg` tells what came of it. A slot
// without a text, and one on a page "N/A", is skipped when all are transferred.

/// @param view  with Pic: 0 the three views of the subject, 1 to 3 one of them, 101 to 136 the general photo
///              of slot view - 100 under the name that stands beside it
TransferTally TransferSubject(LinkDesk& desk, What what, int view);
/// @param all  every slot of the group; else the slot `index` alone
TransferTally TransferComps(LinkDesk& desk, bool all, int index, What what);
TransferTally TransferAltComps(LinkDesk& desk, bool all, int index, What what);
TransferTally TransferListings(LinkDesk& desk, bool all, int index, What what);
TransferTally TransferRentals(LinkDesk& desk, bool all, int index, What what);
/// The five above in that order.
TransferTally TransferAllData(LinkDesk& desk, What what);

/// One slot by its group. Of a general slot its photo alone, under the name that stands beside it; of the subject the
/// photo of the index, all three for an index below 1.
TransferTally TransferSlot(LinkDesk& desk, SlotRef slot, What what);

/// What a drop of a camera picture on a slot leads to, only with the AUTOSAVE preference on: picture and data
/// of the slot go into the Databook. The subject's only for its first view, a general slot's never. The five after it
/// by their own names.
void SaveSlot2Database(LinkDesk& desk, SlotRef slot);
void SaveSubject2Database(LinkDesk& desk, int view);
void SaveComp2Database(LinkDesk& desk, int index);
void SaveAltComp2Database(LinkDesk& desk, int index);
void SaveListing2Database(LinkDesk& desk, int index);
void SaveRental2Database(LinkDesk& desk, int index);

} // namespace vasclip::link
