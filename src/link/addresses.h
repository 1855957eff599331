#pragma once

#include "link/link_desk.h"
#include "link/slot_table.h"

#include <optional>

namespace vasclip::link {

/// A comp of the report, or the subject with kSubjectComp.
struct ReportPlace
{
    Group group = Group::Subject;
    qint16 comp = 0;
};
/// Where in the report an address stands, as the last refresh read it; the first place of several.
[[nodiscard]] std::optional<ReportPlace> PlaceInReport(ReportMirror& desk, const QString& address);

/// Copies the addresses of frm_Addr to the window: subject, comps, alternates, listings, rentals, and the
/// general slots' fallback.
void SetKelAddresses(ReportMirror& desk);
/// All 36 general slots take the subject's address, the window's where it differs from the report's.
void SetGeneralAddresses(ReportMirror& desk);

/// Empties every text field of frm_Addr and its address list.
void ClearKelAddresses(frm_Addr& addr);
/// Empties what one refresh reads of the report's fields, so that nothing of another report survives; the
/// report's name, forms and images stay.
void ClearReportFields(frm_Addr& addr);

// The label steps of a refresh.
void setSubjectLabels(ReportMirror& desk);
void SetSalesLabels(ReportMirror& desk);
void SetAltSalesLabels(ReportMirror& desk);
void SetListingLabels(ReportMirror& desk);
void SetRentalLabels(ReportMirror& desk);

/// Fills lstAddr with the complete addresses of subject, comps, alternates, rentals and listings, each once;
/// what an empty slot leaves is taken out.
void FillAddressList(LinkDesk& desk);

} // namespace vasclip::link
