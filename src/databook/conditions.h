#pragma once

#include "databook/record_desk.h"

namespace vasclip::databook {

using namespace Qt::StringLiterals;

/// The quick find's chip; those of a search bear the names of their boxes.
inline const QString kQuickFindChip = u"txtQuickFind"_s;

/// What the records in the grid have in common, in an appraiser's words: a chip for each condition of the search
/// on display, and one for the quick find.
[[nodiscard]] QList<forms::Chip> Conditions(const RecordDesk& desk);

/// Takes one condition out of the search on display, whose order stays as it is; the next display searches
/// without it, or shows all records if it was the last one.
void Relax(GridState& state, const QString& chip);
/// Takes out all of them.
void EndSearch(GridState& state);

} // namespace vasclip::databook
