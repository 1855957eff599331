#pragma once

#include "platform/engine/types.h"

#include <vector>

namespace vasclip::engine {

/// Where each bookmark stands in a list of them.
class Places
{
public:
    explicit Places(const std::vector<Bookmark>& bookmarks);
    [[nodiscard]] qint64 Of(Bookmark bookmark) const; ///< -1 for one that is not in the list

private:
    struct Entry
    {
        Bookmark bookmark;
        qint32 place;
    };

    // Of numbers that lie close together a table, of others a sorted list: what is kept follows how many
    // there are, never how large they are.
    qint64 m_first = 0;
    std::vector<qint32> m_table;
    std::vector<Entry> m_sorted;
};

} // namespace vasclip::engine
