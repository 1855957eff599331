#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"

namespace vasclip::link {

/// What came of sending one proximity.
enum class ProximitySend {
    Sent,
    NoCell,      ///< the form has no cell for it
    NoReport,    ///< no forms program, or no report in it
    OtherReport, ///< another report is active than the tabs show, and nothing was sent; LinkState::notSent tells
};

/// Pokes a comp's proximity, and nothing else of it, into each cell that the mapping has for it. An empty text empties
/// them. @throws RuntimeError of the exchanges and of the mapping
ProximitySend KelUpdateKelProximity(LinkDesk& desk, SlotRef slot, const QString& text);

/// The cells of one slot, after the report has been opened.
/// @return how many were written
int SendBulkProximity(LinkDesk& desk, const QString& formType, const QString& report, SlotRef slot,
                      const QString& text);

} // namespace vasclip::link
