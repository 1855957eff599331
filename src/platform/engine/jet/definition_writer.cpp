// The bytes of the definition of a new table.

#include "platform/engine/jet/new_table.h"

#include <algorithm>
#include <numeric>

namespace vasclip::engine::jet {

namespace {

constexpr int kHead = 8; ///< of a page that goes on with a definition
constexpr quint32 kConstant = 0x659;
constexpr quint32 kIndexConstant = 0x783;
constexpr quint16 kEnglish = 0x409;
constexpr int kKeyColumns = 10;

/// Numbers one behind the other.
class Block
{
public:
    Block& U8(quint32 value)
    {
        m_bytes.append(static_cast<char>(value));
        return *this;
    }
    Block& U16(quint32 value) { return U8(value & 0xFF).U8(value >> 8 & 0xFF); }
    Block& U32(quint32 value) { return U16(value & 0xFFFF).U16(value >> 16); }
    Block& Zeros(int count)
    {
        m_bytes.append(count, '\0');
        return *this;
    }
    Block& Name(const QString& name)
    {
        U16(static_cast<quint32>(2 * name.size()));
        for (const QChar character : name)
            U16(character.unicode());
        return *this;
    }
    [[nodiscard]] QByteArray& Bytes() { return m_bytes; }

private:
    QByteArray m_bytes;
};

/// The order in which things are listed: that of their names in system tables, their own in others.
template <class List>
std::vector<qsizetype> OrderOf(const List& list, bool byName)
{
    std::vector<qsizetype> order(static_cast<std::size_t>(list.size()));
    std::iota(order.begin(), order.end(), 0);
    if (byName)
        std::stable_sort(order.begin(), order.end(), [&](qsizetype left, qsizetype right) {
            return list[left].name.compare(list[right].name, Qt::CaseInsensitive) < 0;
        });
    return order;
}

void AddColumn(Block& block, const NewTable& table, qsizetype number)
{
    const NewColumn& column = table.columns[number];
    const quint32 own = (column.Fixed() ? 0x01 : 0x00) | 0x02;
    block.U8(static_cast<quint8>(column.type)).U32(kConstant).U16(static_cast<quint32>(number));
    block.U16(static_cast<quint32>(column.variableIndex)).U16(table.system ? 0 : static_cast<quint32>(number));
    block.U16(kEnglish).U16(0).U8(own | column.marks).U8(column.compress ? 1 : 0).U32(0);
    block.U16(static_cast<quint32>(column.fixedOffset)).U16(static_cast<quint32>(column.length));
}

void AddRealIndex(Block& block, const NewIndex& index, const DefinitionFacts::IndexFacts& facts)
{
    block.U32(kIndexConstant);
    for (int i = 0; i < kKeyColumns; ++i) {
        const bool used = i < index.columns.size();
        block.U16(used ? static_cast<quint32>(index.columns[i]) : 0xFFFF).U8(used ? 1 : 0);
    }
    block.U32(facts.map.Stored()).U32(facts.root).U32(0).U8(index.marks).Zeros(5);
}

void AddLogicalIndex(Block& block, const NewIndex& index, qsizetype number)
{
    block.U32(kConstant).U32(static_cast<quint32>(number)).U32(static_cast<quint32>(number));
    block.U8(0).U32(0xFFFFFFFF).U32(0).U8(4).U8(4).U8(index.primary ? 1 : 0).U32(0);
}

} // namespace

QByteArray DefinitionBlock(const NewTable& table, const DefinitionFacts& facts)
{
    Block block;
    block.U8(kDefinitionPage).U8(1).U16(0).U32(0).U32(0).U32(kConstant).U32(facts.rows).U32(0).U32(1).Zeros(8);
    block.U32(table.system ? 0 : 0xFFFFFFFF).U8(table.system ? 0x53 : 0x4E);
    const auto columns = static_cast<quint32>(table.columns.size());
    const auto indexes = static_cast<quint32>(table.indexes.size());
    block.U16(columns).U16(static_cast<quint32>(table.VariableColumns())).U16(columns);
    block.U32(indexes).U32(indexes).U32(facts.owned.Stored()).U32(facts.withRoom.Stored());
    for (const DefinitionFacts::IndexFacts& index : facts.indexes)
        block.U32(0).U32(index.keys).U32(0);
    const auto order = OrderOf(table.columns, table.system);
    for (const qsizetype number : order)
        AddColumn(block, table, number);
    for (const qsizetype number : order)
        block.Name(table.columns[number].name);
    for (qsizetype i = 0; i < table.indexes.size(); ++i)
        AddRealIndex(block, table.indexes[i], facts.indexes[i]);
    const auto byName = OrderOf(table.indexes, true);
    for (const qsizetype number : byName)
        AddLogicalIndex(block, table.indexes[number], number);
    for (const qsizetype number : byName)
        block.Name(table.indexes[number].name);
    QList<int> longs;
    for (qsizetype i = 0; i < table.columns.size(); ++i) {
        if (table.columns[i].Long())
            longs.append(static_cast<int>(i));
    }
    for (const qsizetype number : order) {
        const qsizetype place = longs.indexOf(static_cast<int>(number));
        if (place >= 0)
            block.U16(static_cast<quint32>(number))
                .U32(facts.longs[place].owned.Stored())
                .U32(facts.longs[place].withRoom.Stored());
    }
    block.U16(0xFFFF);
    qToLittleEndian(static_cast<quint32>(block.Bytes().size()), block.Bytes().data() + 8);
    return block.Bytes();
}

int PageCountOf(qsizetype block)
{
    const qsizetype rest = block - kJet4.pageSize;
    constexpr qsizetype kMore = kJet4.pageSize - kHead;
    return rest <= 0 ? 1 : static_cast<int>(1 + (rest + kMore - 1) / kMore);
}

QList<QByteArray> PagesOfDefinition(const QByteArray& block, const QList<quint32>& pages)
{
    QList<QByteArray> cut;
    const int count = PageCountOf(block.size());
    qsizetype at = 0;
    for (int i = 0; i < count; ++i) {
        QByteArray page = i == 0 ? QByteArray() : block.left(kHead);
        const qsizetype size = std::min<qsizetype>(kJet4.pageSize - page.size(), block.size() - at);
        page += block.mid(at, size);
        at += size;
        const qsizetype free = std::max<qsizetype>(kJet4.pageSize - page.size() - kHead, 0);
        qToLittleEndian(static_cast<quint16>(free), page.data() + 2);
        qToLittleEndian(i + 1 < count ? pages[i + 1] : 0U, page.data() + 4);
        cut.append(page.leftJustified(kJet4.pageSize, '\0'));
    }
    return cut;
}

} // namespace vasclip::engine::jet
