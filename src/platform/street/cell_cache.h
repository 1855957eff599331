#pragma once

#include "platform/street/cell.h"

#include <QHash>

#include <list>
#include <mutex>

namespace vasclip::street {

/// Decoded cells, those used last first, up to a number of bytes. Any thread may ask.
class CellCache
{
public:
    explicit CellCache(qsizetype limitBytes)
        : m_limit(limitBytes)
    {}

    struct Key
    {
        quint32 county = 0;
        quint32 cell = 0;
        friend bool operator==(const Key&, const Key&) = default;
        friend size_t qHash(const Key& key, size_t seed) { return qHashMulti(seed, key.county, key.cell); }
    };

    /// Null where it isn't kept.
    [[nodiscard]] std::shared_ptr<const Cell> Find(Key key);
    void Keep(Key key, std::shared_ptr<const Cell> cell);
    [[nodiscard]] qsizetype Bytes() const;

private:
    struct Entry
    {
        Key key;
        std::shared_ptr<const Cell> cell;
        qsizetype bytes;
    };

    const qsizetype m_limit;
    mutable std::mutex m_guard;
    qsizetype m_bytes = 0;
    std::list<Entry> m_entries; ///< the one used last is the first
    QHash<Key, std::list<Entry>::iterator> m_byKey;
};

} // namespace vasclip::street
