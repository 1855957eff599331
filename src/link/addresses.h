#pragma once

#include "link/link_desk.h"

#include <optional>

namespace vasclip::link {

/// One of the four groups of comps, by the mapping's word: where its addresses stand in frm_Addr and on the
/// window.
struct AddressGroup
{
    QLatin1StringView compType; ///< SALE, ALT, RENT, LIST
    const forms::ControlArray<forms::TextBox>& addr;
    const forms::ControlArray<forms::TextBox>& city;
    const forms::ControlArray<forms::TextBox>& state;
    const forms::ControlArray<forms::TextBox>& zip;
    const forms::ControlArray<forms::TextBox>& slots; ///< the text slots of the window

    /// Slots run from 1 to this.
    [[nodiscard]] int Last() const { return slots.Last(); }
};
/// SALE, ALT, RENT, LIST: the order in which addresses are gathered.
[[nodiscard]] std::array<AddressGroup, 4> AddressGroups(LinkDesk& desk);

/// A comp of the report: its group word (COMP, ALT, RENT, LIST, or SALE for the subject) and its number, 10
/// for the subject.
struct ReportPlace
{
    QLatin1StringView groupWord;
    qint16 comp = 0;
};
/// Where in the report an address stands, as the last refresh read it; the first place of several.
[[nodiscard]] std::optional<ReportPlace> PlaceInReport(LinkDesk& desk, const QString& address);

/// Copies the addresses of frm_Addr to the window: subject, comps, alternates, listings, rentals, and the
/// general slots' fallback.
void SetKelAddresses(LinkDesk& desk);
/// All 36 general slots take the subject's address, the window's where it differs from the report's.
void SetGeneralAddresses(LinkDesk& desk);

/// Empties every text field of frm_Addr and its address list.
void ClearKelAddresses(frm_Addr& addr);
/// Empties what one refresh reads of the report's fields, so that nothing of another report survives; the
/// report's name, forms and images stay.
void ClearReportFields(frm_Addr& addr);

// The label steps of a refresh.
void setSubjectLabels(LinkDesk& desk);
void SetSalesLabels(LinkDesk& desk);
void SetAltSalesLabels(LinkDesk& desk);
void SetListingLabels(LinkDesk& desk);
void SetRentalLabels(LinkDesk& desk);

/// Fills lstAddr with the complete addresses of subject, comps, alternates, rentals and listings, each once;
/// what an empty slot leaves is taken out.
void FillAddressList(LinkDesk& desk);

} // namespace vasclip::link
