#pragma once

#include "common/status.h"
#include "databook/search_form.h"
#include "forms/chips.h"
#include "forms/grid.h"
#include "forms/ports.h"
#include "store/data_source.h"

#include <optional>

namespace vasclip::databook {

/// What the grid shows now, and how it came to it.
struct GridState
{
    QString sqlText;     ///< the current SELECT; "" before the first display
    QString orderByText; ///< the ORDER BY of a search
    bool searchOnDisplay = false;
    bool wildcards = true; ///< the texts of a search may stand anywhere in their fields
    std::optional<SearchForm> search = {}; ///< what the search on display was built from
};

/// The "Add a comp" area and the grid group of the main window, with their guards.
class RecordDesk
{
public:
    explicit RecordDesk(forms::ControlSet& set);

    forms::Label lblAddingaComp;
    forms::TextBox txtcentralkey;
    forms::ComboBox cboapprslType;
    forms::Button cmdAdd, cmdCopy, cmdDelete, cmdRename, cmdEdit, cmdSearch, cmdAddManual;
    forms::Label lblTwin;  ///< of another record at the address that is typed
    forms::Button cmdTwin; ///< goes there
    forms::TextBox txtQuickFind; ///< narrows the grid; see quick_find.h
    forms::ChipList lstConditions; ///< of what the grid shows; see conditions.h
    forms::Button cmdShowAll;      ///< ends all of them
    forms::Grid grddatabook;
    forms::Button cmdPrint, cmdRefresh, cmdDetails;
    forms::Label lblDatabookADDR;

    GridState state;

    /// Fills `cboapprslType` with the six types.
    void LoadCompType();

    /// Selects the text of `cboapprslType` for the first letter of an APPRSLTYPE value; "F" and a blank are
    /// single family. Any other code, and an empty one, leaves the box as it is.
    void SetAppraisalType(const QString& code);

    /// Guards. Each says what is missing in `lblmsg`, in blue.
    [[nodiscard]] bool VerifyAddress(common::StatusDesk& status);
    [[nodiscard]] bool
    SetAppraisalType(common::StatusDesk& status);                ///< a type is chosen; else focus to the list
    [[nodiscard]] bool VerifyFields(common::StatusDesk& status); ///< both: the address first

    /// Looks the address of `txtcentralkey` up in the Databook and shows what can be done with it: buttons,
    /// type and status line. Found, `databook` stands on its record.
    void CheckStatus(const forms::Ports& ports, store::DataSource& databook, common::StatusDesk& status);

    /// There is no record: no address, no type, and nothing that acts on one.
    void ShowNone();

    /// "Found" and "Not Found", trimmed and without regard to case; any other text changes nothing.
    void ButtonStatus(const QString& state);
};

} // namespace vasclip::databook
