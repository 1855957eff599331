#include "platform/engine/jet/index_check.h"

#include "platform/engine/jet/index_key.h"
#include "platform/engine/jet/index_writer.h"
#include "platform/text/counted.h"

#include <QSet>

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

const text::Counted kEntries{u"entry"_s, u"entries"_s};
const text::Counted kRecords{u"record"_s, u"records"_s};
constexpr int kDeepest = 16;
constexpr quint32 kKnownSorting = 0x409; ///< English, of the first version

/// An index page taken apart.
struct Node
{
    bool leaf = true;
    QList<QByteArray> entries;
    quint32 tail = 0;
    quint32 previous = 0;
    quint32 next = 0;
};

Node ReadNode(PageFile& file, quint32 number, quint32 table)
{
    const bool jet4 = file.Shape().jet4;
    const QByteArray page = file.Page(number);
    const Bytes bytes(page);
    const quint8 type = bytes.U8(0);
    if ((type != kNodePage && type != kLeafPage) || bytes.U32(4) != table)
        throw Damaged(u"page %1 is not one of this index"_s.arg(number));
    Node node;
    node.leaf = type == kLeafPage;
    node.previous = bytes.U32(jet4 ? 12 : 8);
    node.next = bytes.U32(jet4 ? 16 : 12);
    node.tail = bytes.U32(jet4 ? 20 : 16);
    const int shared = jet4 ? bytes.U16(24) : bytes.U8(20);
    const int bitmap = jet4 ? kIndexBitmap : 22;
    const int first = jet4 ? kIndexEntries : 0xF8;
    int begin = 0;
    for (int end = 1; end < (first - bitmap) * 8 && first + end <= bytes.Size(); ++end) {
        if ((bytes.U8(bitmap + end / 8) >> end % 8 & 1) == 0)
            continue;
        const QByteArray entry = bytes.Part(first + begin, end - begin).Copy();
        node.entries.append(node.entries.isEmpty() ? entry : node.entries[0].left(shared) + entry);
        begin = end;
    }
    return node;
}

class Walk
{
public:
    Walk(PageFile& file, Findings& findings, TableRows& rows, const Index& index)
        : m_file(file)
        , m_findings(findings)
        , m_rows(rows)
        , m_index(index)
        , m_live(rows.InOrder(nullptr))
    {
        std::sort(m_live.begin(), m_live.end());
    }

    void Run()
    {
        try {
            Visit(m_index.root, 0);
            if (!m_index.ignoresNulls && m_entries != m_live.size())
                Say(u"has %1 for %2"_s.arg(kEntries(static_cast<qint64>(m_entries)), kRecords(static_cast<qint64>(m_live.size()))));
        } catch (const Damaged& damage) {
            Say(damage.Description());
        }
    }

private:
    void Say(const QString& what)
    {
        m_findings.Add(m_rows.Rows().Def().name, {}, u"index %1"_s.arg(m_index.name), what);
    }

    void Visit(quint32 page, int depth)
    {
        if (depth > kDeepest || m_seen.contains(page))
            throw Damaged(u"its pages lead in a circle"_s);
        m_seen.insert(page);
        const Node node = ReadNode(m_file, page, m_rows.Rows().Stored().page);
        // Whoever goes through all keys follows the leaves by themselves.
        if (node.leaf && m_leaf != 0 && (node.previous != m_leaf || m_next != page))
            throw Damaged(u"page %1 does not follow page %2"_s.arg(QString::number(page), QString::number(m_leaf)));
        if (node.leaf) {
            m_leaf = page;
            m_next = node.next;
        }
        for (const QByteArray& entry : node.entries) {
            if (entry.size() <= kEntryPointer)
                throw Damaged(u"an entry on page %1 is too short"_s.arg(page));
            if (node.leaf) {
                Take(entry);
                continue;
            }
            Visit(qFromBigEndian<quint32>(entry.constData() + entry.size() - 4), depth + 1);
            if (entry.chopped(4) < m_last)
                throw Damaged(u"page %1 sends keys the wrong way"_s.arg(page));
        }
        if (!node.leaf && node.tail != 0)
            Visit(node.tail, depth + 1);
    }

    void Take(const QByteArray& entry)
    {
        if (m_entries > 0 && entry <= m_last)
            throw Damaged(u"its entries are out of order"_s);
        m_last = entry;
        ++m_entries;
        const auto* tail = reinterpret_cast<const uchar*>(entry.constData() + entry.size() - kEntryPointer);
        const RowPointer place{static_cast<quint32>(tail[0] << 16 | tail[1] << 8 | tail[2]), tail[3]};
        if (!std::binary_search(m_live.begin(), m_live.end(), BookmarkOf(place)))
            throw Damaged(u"an entry leads to row %1 of page %2, which is not there"_s.arg(
                QString::number(place.row), QString::number(place.page)));
        const auto key = KeyOf(place);
        if (key && *key != entry.chopped(kEntryPointer))
            throw Damaged(u"row %1 of page %2 has another key there"_s.arg(QString::number(place.row),
                                                                        QString::number(place.page)));
    }

    /// The key that a row should have; nothing where the order of its values is not known.
    [[nodiscard]] std::optional<QByteArray> KeyOf(RowPointer place)
    {
        Table& table = m_rows.Rows();
        const auto row = m_file.Shape().jet4 ? table.Find(place) : std::nullopt;
        QByteArray whole;
        for (const KeyColumn& part : m_index.columns) {
            const Column* const column = table.Stored().ColumnOf(part.number);
            int field = 0;
            while (field < table.Def().fields.size() && &table.ColumnOf(field) != column)
                ++field;
            const bool known = row && column && field < table.Def().fields.size() &&
                               column->type <= ColumnType::Text && column->sorting == kKnownSorting;
            const auto key = known ? IndexKey(column->type, table.Value(*row, field)) : std::nullopt;
            if (!key)
                return std::nullopt;
            whole += part.descending ? Descending(*key, column->type) : *key;
        }
        return whole;
    }

    PageFile& m_file;
    Findings& m_findings;
    TableRows& m_rows;
    const Index& m_index;
    std::vector<Bookmark> m_live;
    QSet<quint32> m_seen;
    QByteArray m_last;
    std::size_t m_entries = 0;
    quint32 m_leaf = 0; ///< the last one
    quint32 m_next = 0; ///< the one that it names as the next
};

} // namespace

void CheckIndex(PageFile& file, Findings& findings, TableRows& rows, const Index& index)
{
    Walk(file, findings, rows, index).Run();
}

} // namespace vasclip::engine::jet
