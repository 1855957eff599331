#pragma once

#include <QLatin1StringView>
#include <QList>
#include <QString>

namespace vasclip::forms {
class ControlSet;
}

namespace vasclip::windows {

inline constexpr int kSlotsOnAPage = 3;

/// A family of slots and where its pages stand. A name that is empty is a control that the family does not
/// have.
struct SlotGroup
{
    const char* title; ///< for people: "Comp"
    int dataPage;      ///< page of TabData
    const char* tab;   ///< the inner tab control
    int firstPage;     ///< its first page there
    int pages;
    const char* text; ///< key of the record in the slot
    const char* photo;
    const char* box; ///< data box
    const char* icon;
    const char* anchor;
    const char* heading; ///< label above the page, 0-based
};

inline constexpr SlotGroup kSlotGroups[] = {
    {"Subject", 0, "TabSubject", 0, 1, "", "imaSubject", "", "imaSubjectIcon", "imaSubjectAnchor", ""},
    {"Comp", 1, "TabComp", 0, 3, "txtComp", "imaComp", "geaComp", "imaCompIcon", "imaCompAnchor", "lblComp"},
    {"Alt comp", 1, "TabComp", 3, 2, "txtAltComp", "imaAltComp", "geaAltComp", "imaAltCompIcon",
     "imaAltCompAnchor", "lblAltComp"},
    {"General", 2, "TabGeneral", 0, 12, "cboGeneral", "imaGeneral", "", "imaGeneralIcon", "", ""},
    {"Listing", 3, "TabListing", 0, 2, "txtListing", "imaListing", "geaListing", "imaListingIcon",
     "imaListingAnchor", "lblListing"},
    {"Rental", 4, "TabRental", 0, 3, "txtRental", "imaRental", "geaRental", "imaRentalIcon",
     "imaRentalAnchor", "lblRental"},
};

/// The controls' tab says whether the report has this page: enabled and not "N/A".
[[nodiscard]] bool PageAvailable(const forms::ControlSet& controls, const SlotGroup& group, int page);

} // namespace vasclip::windows
