#pragma once

#include "forms/grid.h"

#include <QList>

namespace vasclip::databook {

/// Rows of a grid for the clipboard, in the columns that it shows, as it shows them.
struct CopiedRows
{
    QString text; ///< a line a record with CR LF, the columns parted by tabs, the headings first
    QString html; ///< the same as a table
};

/// Rows from..to, both included.
struct RowRange
{
    qint64 from = 0;
    qint64 to = 0;
};

/// As many rows as one copy takes.
inline constexpr qint64 kMostRowsCopied = 20'000;

/// @param rows  in any order; the copy has them in the grid's
/// @throws RuntimeError 7 for more than kMostRowsCopied, which says how many there are; nothing is read then
[[nodiscard]] CopiedRows CopyRows(const forms::Grid& grid, QList<RowRange> rows);

} // namespace vasclip::databook
