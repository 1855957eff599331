#pragma once

#include "upkeep/list_look.h"

namespace vasclip::upkeep {

using namespace Qt::StringLiterals;

/// The column of a refused line that says why.
inline const QString kReasonHeading = u"REASON"_s;

/// Letters and digits of a heading in capitals, by which headings are compared.
[[nodiscard]] QString BareHeading(const QString& heading);
/// The field of the Databook that a heading means: its own name, its heading in the grid, or a word that people use
/// ("Sq Ft", "Sale Price"); "" for none.
[[nodiscard]] QString FieldOfHeading(const QString& heading);
/// The columns of a line of headings, with the fields that they mean; each field once, by the first that means it.
[[nodiscard]] QList<ListColumn> ColumnsOf(const QStringList& headings);
/// What a column is called that has no heading. @param column  from 0
[[nodiscard]] QString NameOfColumn(qsizetype column);
/// A field is filled by one column: the first that is to go there.
void DropDoubles(QList<ListColumn>& columns);

} // namespace vasclip::upkeep
