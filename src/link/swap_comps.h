#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

enum class SwapOutcome {
    Swapped,     ///< and the two slots show what the report holds
    Unread,      ///< swapped, but what the report holds was not read again: cancelled, or failed and reported
    Failed,      ///< the report refused, which has been reported
    Unsure,      ///< it did not answer, which has been reported
    NotSent,     ///< cancelled, or another report is active than the tabs show, or none; LinkState::notSent tells
    Busy,        ///< a refresh or a transfer is at work
    NoSuchSlot,  ///< one of the two is a comp that the report has not, or both are the same
};

/// Tells the report on the tabs, if it is the active one, to exchange two sales comps; no slot changes here.
[[nodiscard]] SwapOutcome SendSwap(LinkDesk& desk, int target, int source);

/// Exchanges two sales comps, 1 to 9, within the report, and reads the two of them again: address, city line and
/// picture. The column of each goes over whole, with its adjustments; nothing of the Databook is read or written.
SwapOutcome SwapComps(LinkDesk& desk, int target, int source);

/// A comp's slot anew from the report: its address, its city and, by the images list that is asked for first, its
/// picture; its data box and its icons follow. @throws RuntimeError of the exchange or the mapping
void ReadSalesSlots(LinkDesk& desk, const QList<int>& comps);

} // namespace vasclip::link
