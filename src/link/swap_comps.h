#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

enum class SwapOutcome {
    Swapped,     ///< and the two slots show what the report holds
    Unread,      ///< swapped, but what the report holds could not be read again, which has been reported
    Failed,      ///< the report refused or did not answer, which has been reported
    NotRunning,  ///< which has been said
    OtherReport, ///< another report than the one that the tabs show is in front
    Busy,        ///< a refresh or a transfer is at work
    NoSuchSlot,  ///< one of the two is a comp that the report has not, or both are the same
};

/// Exchanges two sales comps, 1 to 9, within the report, and reads the two of them again: address, city line and
/// picture. The column of each goes over whole, with its adjustments; nothing of the Databook is read or written.
SwapOutcome SwapComps(LinkDesk& desk, int target, int source);

/// A comp's slot anew from the report: its address, its city and, by the images list that is asked for first, its
/// picture; its data box and its icons follow. @throws RuntimeError of the exchange or the mapping
void ReadSalesSlots(LinkDesk& desk, const QList<int>& comps);

} // namespace vasclip::link
