#include "platform/engine/places.h"

#include <algorithm>

namespace vasclip::engine {

namespace {

/// A table may have so many entries for each bookmark.
constexpr quint64 kMostEntries = 4;

} // namespace

Places::Places(const std::vector<Bookmark>& bookmarks)
{
    if (bookmarks.empty())
        return;
    const auto [least, most] = std::minmax_element(bookmarks.begin(), bookmarks.end());
    m_first = static_cast<qint64>(*least);
    const quint64 span = static_cast<quint64>(*most) - static_cast<quint64>(*least);
    if (span / kMostEntries < bookmarks.size()) {
        m_table.assign(static_cast<std::size_t>(span) + 1, -1);
        for (std::size_t i = 0; i < bookmarks.size(); ++i)
            m_table[static_cast<std::size_t>(static_cast<qint64>(bookmarks[i]) - m_first)] =
                static_cast<qint32>(i);
        return;
    }
    m_sorted.reserve(bookmarks.size());
    for (std::size_t i = 0; i < bookmarks.size(); ++i)
        m_sorted.push_back({bookmarks[i], static_cast<qint32>(i)});
    std::sort(m_sorted.begin(), m_sorted.end(),
              [](const Entry& left, const Entry& right) { return left.bookmark < right.bookmark; });
}

qint64 Places::Of(Bookmark bookmark) const
{
    const auto id = static_cast<qint64>(bookmark);
    if (!m_table.empty()) {
        // Unsigned: what lies before the first one is far behind the last.
        const quint64 place = static_cast<quint64>(id) - static_cast<quint64>(m_first);
        return place < m_table.size() ? m_table[place] : -1;
    }
    const auto found =
        std::lower_bound(m_sorted.begin(), m_sorted.end(), bookmark,
                         [](const Entry& entry, Bookmark wanted) { return entry.bookmark < wanted; });
    return found != m_sorted.end() && found->bookmark == bookmark ? found->place : -1;
}

} // namespace vasclip::engine
