#pragma once

#include "upkeep/list_file.h"

namespace vasclip::upkeep {

/// The first lines of a list.
struct ListSample
{
    QList<ListLine> lines;
    bool whole = true; ///< the list has no more
};
/// @throws RuntimeError as ListFile::Open and ListReader::Next
[[nodiscard]] ListSample SampleOf(const ListFile& file, const ListLook& look, qsizetype lines);

/// The line of headings: the one of the first lines with the most words that mean a field of the Databook, else the first
/// one. 0 for an empty list.
[[nodiscard]] qint64 HeadingLineOf(const ListSample& sample);

/// How dates are written, by those in the columns that are dates: nothing where each can be read in more than one way.
[[nodiscard]] std::optional<DateOrder> DatesOf(const ListSample& sample, const ListLook& look);
/// The decimal sign of prices, areas and places, by those in their columns; nothing where each can be read in both ways.
[[nodiscard]] std::optional<QChar> DecimalOf(const ListSample& sample, const ListLook& look);

} // namespace vasclip::upkeep
