#pragma once

#include <QString>

namespace vasclip::upkeep {

/// What a SELECT of the grid narrows and sorts by: the text behind its WHERE, ORDER BY and all; else "ORDER BY ...";
/// "" for all records as they come.
[[nodiscard]] QString SearchTextOf(const QString& select);
/// Does the text narrow? One that begins with "ORDER BY", with however many blanks between, does not.
[[nodiscard]] bool Narrows(const QString& search);

/// The ORDER BY of a search, with a blank before it; "" without one. What stands in quotes or brackets is none.
[[nodiscard]] QString SortOf(const QString& search);

/// The statement that makes a table of those records of another file that a search finds.
/// @param search  as SearchTextOf has it; one that is only a sort finds all
[[nodiscard]] QString ExportStatement(const QString& target, const QString& table, const QString& databook,
                                      const QString& sourceTable, const QString& search);

} // namespace vasclip::upkeep
