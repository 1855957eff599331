#pragma once

#include "store/fields.h"

#include <QLatin1StringView>
#include <QString>

#include <vector>

namespace vasclip::databook {

/// Date fields take a date from the calendar; a note is a tall box; what is shown only cannot be typed into.
enum class EntryKind { Text, Number, Date, Note, ShownOnly };

/// One box of an entry screen and the field behind it.
struct EntryField
{
    QLatin1StringView control;
    QLatin1StringView field;
    EntryKind kind = EntryKind::Text;
    int limit = 0;                   ///< of the box as it is drawn; 0 is the field's size
    QLatin1StringView label = {};    ///< empty: the column's heading
    QLatin1StringView calendar = {}; ///< the control of its calendar icon
    QLatin1StringView calendarTitle = {};
};

/// Are there words beside the box about its text? Dates, prices and areas have them about what is made of it, the address
/// about another record that stands there.
[[nodiscard]] bool HasNote(const EntryField& field);

/// Boxes that stand together on paper, in their order. With heads it is a table: as many boxes a line as
/// there are heads, each line named by `lineName` and its number.
struct EntryGroup
{
    QLatin1StringView title;
    int column = 0; ///< of the screen, from the left
    std::vector<EntryField> fields;
    std::vector<QLatin1StringView> heads = {};
    QLatin1StringView lineName = {};
};

/// An entry screen. Its groups give the boxes, their fields and limits, the tab order and the window's
/// layout.
struct EntryForm
{
    QLatin1StringView screen; ///< "frm_CompMnt1"
    QLatin1StringView caption;
    std::vector<EntryGroup> groups;
    QLatin1StringView dateField = fields::SALEDATE; ///< the field that plays the sale date's part
    const char* validation = nullptr;  ///< the routine that is run when the screen opens
    bool limitsAtLoad = false; ///< with it every box takes its field's size at once, not only on focus
    bool rentalAge = false;    ///< the age is what ReturnRentalAge makes of its box
    bool secondPage = false;
};

/// The screens of the six types and, last, the second page that all of them share.
[[nodiscard]] const std::vector<EntryForm>& EntryForms();
/// By the screen's name; nullptr if there is none of that name.
[[nodiscard]] const EntryForm* FindEntryForm(QLatin1StringView screen);
[[nodiscard]] const EntryForm& SecondPage();

/// What people call a box: its label, its column's heading, or "Unit 2 Rooms" within a table.
[[nodiscard]] QString EntryLabel(const EntryGroup& group, std::size_t index);

} // namespace vasclip::databook
