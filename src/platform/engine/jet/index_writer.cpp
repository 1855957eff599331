#include "platform/engine/jet/index_writer.h"

#include "platform/engine/jet/entry_sorter.h"

#include <optional>

namespace vasclip::engine::jet {

namespace {

constexpr int kRoom = kJet4.pageSize - kIndexEntries;

/// One page of one level.
class IndexPage
{
public:
    IndexPage(quint32 table, int level)
        : m_page(kJet4.pageSize, '\0')
    {
        m_page[0] = static_cast<char>(level == 0 ? kLeafPage : kNodePage);
        m_page[1] = 1;
        m_page[26] = static_cast<char>(level);
        qToLittleEndian(table, m_page.data() + 4);
    }

    bool Add(const QByteArray& entry)
    {
        if (m_used + entry.size() > kRoom)
            return false;
        std::memcpy(m_page.data() + kIndexEntries + m_used, entry.constData(), static_cast<std::size_t>(entry.size()));
        m_used += static_cast<int>(entry.size());
        char& bits = m_page.data()[kIndexBitmap + m_used / 8];
        bits = static_cast<char>(bits | 1 << m_used % 8);
        return true;
    }
    [[nodiscard]] const QByteArray& Bytes(quint32 previous, quint32 next, quint32 tail)
    {
        qToLittleEndian(static_cast<quint16>(kRoom - m_used), m_page.data() + 2);
        qToLittleEndian(previous, m_page.data() + 12);
        qToLittleEndian(next, m_page.data() + 16);
        qToLittleEndian(tail, m_page.data() + 20);
        return m_page;
    }

private:
    QByteArray m_page;
    int m_used = 0;
};

/// A level that is written page by page; of each page the last leaf entry below it goes up one level.
class Level
{
public:
    Level(PageWriter& pages, PageSet& owned, quint32 table, int number)
        : m_pages(pages)
        , m_owned(owned)
        , m_table(table)
        , m_number(number)
    {}

    void Add(const QByteArray& entry, const QByteArray& leaf, quint32 child)
    {
        // The child before is an entry only now that it is known not to be the level's last one.
        if (m_number > 0 && m_pending)
            Put(m_pendingEntry, m_pendingLeaf);
        if (m_number > 0) {
            m_pending = child;
            m_pendingEntry = entry;
            m_pendingLeaf = leaf;
            return;
        }
        Put(entry, leaf);
    }

    /// @param root  where a level of one page goes
    /// @return true if this level is the top
    bool Finish(quint32 root)
    {
        const bool top = m_above == nullptr; // it has one page, whose place was left open
        if (!m_page)
            m_page.emplace(m_table, m_number);
        const quint32 place = top ? root : m_place;
        m_owned.Add(place);
        m_pages.Write(place, m_page->Bytes(m_previous, 0, m_pending.value_or(0)));
        if (top)
            return true;
        Up(m_pending ? m_pendingLeaf : m_last, place);
        return false;
    }
    [[nodiscard]] Level* Above() { return m_above.get(); }

private:
    void Put(const QByteArray& entry, const QByteArray& leaf)
    {
        if (!m_page)
            m_page.emplace(m_table, m_number);
        if (!m_page->Add(entry)) {
            if (m_place == 0)
                m_place = m_pages.Take();
            const quint32 next = m_pages.Take();
            m_owned.Add(m_place);
            m_pages.Write(m_place, m_page->Bytes(m_previous, next, 0));
            Up(m_last, m_place);
            m_previous = m_place;
            m_place = next;
            m_page.emplace(m_table, m_number);
            const bool fits = m_page->Add(entry);
            Q_ASSERT(fits);
        }
        m_last = leaf;
    }
    void Up(const QByteArray& leaf, quint32 page)
    {
        if (!m_above)
            m_above = std::make_unique<Level>(m_pages, m_owned, m_table, m_number + 1);
        QByteArray child(4, '\0');
        qToBigEndian(page, child.data());
        m_above->Add(leaf + child, leaf, page);
    }

    PageWriter& m_pages;
    PageSet& m_owned;
    quint32 m_table;
    int m_number;
    std::optional<IndexPage> m_page;
    quint32 m_place = 0;
    quint32 m_previous = 0;
    QByteArray m_last; ///< the last leaf entry on or below the page
    std::optional<quint32> m_pending;
    QByteArray m_pendingEntry;
    QByteArray m_pendingLeaf;
    std::unique_ptr<Level> m_above;
};

} // namespace

BuiltIndex WriteIndex(PageWriter& pages, EntrySorter& entries, quint32 table, quint32 root)
{
    BuiltIndex built;
    Level leaves(pages, built.pages, table, 0);
    QByteArray entry;
    QByteArray key;
    while (entries.Next(entry)) {
        const QByteArray next = entry.chopped(kEntryPointer);
        const bool same = built.keys > 0 && next == key;
        built.repeated = built.repeated || same;
        built.keys += same ? 0 : 1;
        key = next;
        leaves.Add(entry, entry, 0);
    }
    for (Level* level = &leaves; !level->Finish(root);)
        level = level->Above();
    return built;
}

} // namespace vasclip::engine::jet
