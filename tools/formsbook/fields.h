#pragma once

#include "formsbook/forms.h"

#include <QList>

namespace vasclip::formsbook {

enum class Group { Sale, Alt, Rent, List };

/// "SALE", "ALT", "RENT", "LIST", as the mapping writes it.
[[nodiscard]] QLatin1StringView GroupWord(Group group);
/// "Comparable", "Alternate", "Rental", "Listing": what one of the group is called on a page.
[[nodiscard]] QLatin1StringView GroupNoun(Group group);
/// First comps of the group's pages: 1, 4, 7 or 1, 4.
[[nodiscard]] QList<int> PageBases(Group group);

enum class LineKind {
    Text,
    Check,       ///< a box that is ticked or not
    NetAdjust,   ///< filled by Recalculate: the sum of the adjustments above
    Adjusted,    ///< filled by Recalculate: the price with the adjustments
    AdjustedUnit ///< filled by Recalculate: the adjusted price by living area
};

/// A line of a comparison grid.
struct Field
{
    QLatin1StringView name; ///< column of COMPS or special name; "" for a line that is not sent
    QLatin1StringView label;
    LineKind kind = LineKind::Text;
    bool adjusted = false;           ///< has an adjustment beside the value
    QLatin1StringView trueFalse{""}; ///< TRUEFALSE of its mapping rows
    QLatin1StringView sentAs{""};    ///< what is sent to the cell, if another word than the one it is read as
};

/// The lines of a family's grid, from the top.
[[nodiscard]] QList<Field> GridFields(Family family, Group group);

} // namespace vasclip::formsbook
