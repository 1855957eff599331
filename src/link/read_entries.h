#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// The read of a refresh: copies the addresses of the report's subject, comps, alternates, listings and
/// rentals into frm_Addr, fills the slots from the report (SetAllDde) and gathers the address list. With no
/// report active it empties frm_Addr and the slots' texts.
void AddKelEntries2VASP(LinkDesk& desk);

/// Fills all picture slots and their texts from the report, a gauge text and a log text a step.
void SetAllDde(LinkDesk& desk);

} // namespace vasclip::link
