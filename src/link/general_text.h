#pragma once

#include "link/link_desk.h"

namespace vasclip::link {

/// Empties the views of all general slots and reads them, with their addresses, from the report's general
/// pages. The re-entry flag is up meanwhile: what was just read is not poked back.
void TabPopulateGeneralText(LinkDesk& desk);

/// Reads address and description of three general slots from `base` on; a slot without a picture is skipped.
/// @param section  of KEL.INI, for the cells; @param page  form code of the general page, may be blank
/// @throws RuntimeError of the exchange
void GetGeneralText(LinkDesk& desk, const QString& section, const QString& report, const QString& page,
                    int base);

enum class GeneralPoke {
    Sent,
    NoPlace, ///< the report's layout names no cell for it: whatever became of the poke, the report shows nothing
    Failed,  ///< which has been reported
};
/// Writes the description of a general slot, 1 to 36, to the report.
GeneralPoke KelPokeGeneralData(LinkDesk& desk, int index, const QString& text);
/// Writes its address. The report's layout names no cell for a slot above 18: the item then ends in "|".
GeneralPoke KelPokeGeneralAddr(LinkDesk& desk, int index, const QString& text);

/// The view box of a general slot changed: its text goes to the report, unless a refresh is filling it or no
/// report is open.
void cboGeneral_Change(LinkDesk& desk, int index);
/// A line was chosen in it: description and address go to the report.
void cboGeneral_Click(LinkDesk& desk, int index);

} // namespace vasclip::link
