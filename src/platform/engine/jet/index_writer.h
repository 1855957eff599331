#pragma once

#include "platform/engine/jet/page_writer.h"

namespace vasclip::engine::jet {

class EntrySorter;

/// What became of an index.
struct BuiltIndex
{
    PageSet pages;
    quint32 keys = 0;      ///< distinct ones
    bool repeated = false; ///< two entries have one key
};

/// The shape of an index page.
inline constexpr int kIndexBitmap = 27;
inline constexpr int kIndexEntries = 0x1E0;
/// Bytes behind a key that say which row it belongs to.
inline constexpr int kEntryPointer = 4;

/// A longer key would not fit into a page beside the pointers to its row and its child.
inline constexpr int kLongestKey = kJet4.pageSize - kIndexEntries - kEntryPointer - 4;

/// Writes the pages of an index from its sorted entries, level by level.
/// @param table  the page of its table's definition
/// @param root   where its top shall lie
[[nodiscard]] BuiltIndex WriteIndex(PageWriter& pages, EntrySorter& entries, quint32 table, quint32 root);

} // namespace vasclip::engine::jet
