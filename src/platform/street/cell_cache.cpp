#include "platform/street/cell_cache.h"

#include "platform/street/cell_codec.h"

namespace vasclip::street {

std::shared_ptr<const Cell> CellCache::Find(Key key)
{
    const std::lock_guard lock(m_guard);
    const auto found = m_byKey.constFind(key);
    if (found == m_byKey.cend())
        return {};
    m_entries.splice(m_entries.begin(), m_entries, *found);
    return m_entries.front().cell;
}

void CellCache::Keep(Key key, std::shared_ptr<const Cell> cell)
{
    const qsizetype bytes = BytesOf(*cell);
    const std::lock_guard lock(m_guard);
    // Two threads may have read it at the same time.
    if (m_byKey.contains(key))
        return;
    m_entries.push_front({key, std::move(cell), bytes});
    m_byKey.insert(key, m_entries.begin());
    m_bytes += bytes;
    while (m_bytes > m_limit && m_entries.size() > 1) {
        m_bytes -= m_entries.back().bytes;
        m_byKey.remove(m_entries.back().key);
        m_entries.pop_back();
    }
}

qsizetype CellCache::Bytes() const
{
    const std::lock_guard lock(m_guard);
    return m_bytes;
}

} // namespace vasclip::street
