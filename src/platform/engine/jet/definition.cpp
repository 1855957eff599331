#include "platform/engine/jet/definition.h"

#include "platform/engine/jet/jet_text.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kMostPages = 64;
constexpr int kMostColumns = 255;
constexpr int kMostIndexes = 64;
constexpr int kKeyColumns = 10;
constexpr quint16 kNoColumn = 0xFFFF;

/// The definition in one piece: its first page whole, then what the others add.
QByteArray Gather(PageFile& file, quint32 first, QList<quint32>& pages)
{
    QByteArray block;
    quint32 next = first;
    while (next != 0) {
        if (pages.size() == kMostPages || pages.contains(next))
            throw Damaged(u"the definition of a table does not end"_s);
        const QByteArray page = file.Page(next);
        const Bytes bytes(page);
        if (bytes.U8(0) != kDefinitionPage)
            throw Damaged(u"page %1 does not define a table"_s.arg(next));
        pages.append(next);
        block += pages.size() == 1 ? page : page.mid(8);
        next = bytes.U32(4);
    }
    const qsizetype length = Bytes(block).U32(8);
    // The length counts what the definition uses; where it is wrong the bytes that are there decide.
    return length > 0 && length < block.size() ? block.left(std::max<qsizetype>(length + 8, 64)) : block;
}

/// Reads a definition from its front to its end.
class Cursor
{
public:
    Cursor(const QByteArray& block, const Format& format, quint16 codePage)
        : m_bytes(block)
        , m_format(format)
        , m_codePage(codePage)
    {}

    Bytes Take(qsizetype size)
    {
        const Bytes taken = m_bytes.Part(m_at, size);
        m_at += size;
        return taken;
    }
    QString Name()
    {
        const qsizetype length = m_format.jet4 ? Take(2).U16(0) : Take(1).U8(0);
        const Bytes name = Take(length);
        return m_format.jet4 ? PlainText(name) : CodePageText(name, m_codePage);
    }
    void GoTo(qsizetype at) { m_at = at; }
    [[nodiscard]] bool AtEnd() const { return m_at + 10 > m_bytes.Size(); }

private:
    Bytes m_bytes;
    const Format& m_format;
    quint16 m_codePage;
    qsizetype m_at = 0;
};

Column ReadColumn(const Bytes& bytes, const Format& format)
{
    const int at = format.jet4 ? 5 : 1;
    const int sorting = format.jet4 ? 11 : 9;
    const int flags = format.jet4 ? 15 : 13;
    const int offset = format.jet4 ? 21 : 14;
    Column column;
    column.type = static_cast<ColumnType>(bytes.U8(0));
    column.number = bytes.U16(at);
    column.variableIndex = bytes.U16(at + 2);
    column.sorting = format.jet4 ? bytes.U32(sorting) : bytes.U16(sorting);
    const int decimal = format.jet4 ? sorting : 11;
    column.precision = bytes.U8(decimal);
    column.scale = bytes.U8(decimal + 1);
    column.fixed = (bytes.U8(flags) & 0x01) != 0;
    column.fixedOffset = bytes.U16(offset);
    column.length = bytes.U16(offset + 2);
    return column;
}

/// A stored index, which logical ones name by its number.
Index ReadReal(const Bytes& bytes, const Format& format)
{
    Index index;
    int at = format.jet4 ? 4 : 0;
    for (int i = 0; i < kKeyColumns; ++i, at += 3) {
        const quint16 number = bytes.U16(at);
        if (number != kNoColumn)
            index.columns.append({number, bytes.U8(at + 2) == 0});
    }
    index.map = RowPointer::Of(bytes.U32(at));
    index.root = bytes.U32(at + 4);
    const quint8 flags = bytes.U8(at + (format.jet4 ? 12 : 8));
    index.unique = (flags & 0x01) != 0;
    index.ignoresNulls = (flags & 0x02) != 0;
    return index;
}

} // namespace

const Column* Definition::ColumnOf(int number) const
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [&](const Column& column) { return column.number == number; });
    return found == columns.end() ? nullptr : &*found;
}

Definition ReadDefinition(PageFile& file, quint32 page)
{
    const Format& format = file.Shape();
    Definition table;
    table.page = page;
    const QByteArray block = Gather(file, page, table.pages);
    const Bytes bytes(block);
    table.rows = bytes.U32(format.rows);
    table.variableColumns = bytes.U16(format.variableColumns);
    const int columns = bytes.U16(format.columns);
    const quint32 logical = bytes.U32(format.logicalIndexes);
    const quint32 real = bytes.U32(format.realIndexes);
    if (columns > kMostColumns || logical > 4 * kMostIndexes || real > kMostIndexes)
        throw Damaged(u"the definition on page %1 claims %2 columns and %3 indexes"_s.arg(
            QString::number(page), QString::number(columns), QString::number(real)));
    table.owned = RowPointer::Of(bytes.U32(format.ownedMap));

    Cursor cursor(block, format, file.Head().codePage);
    cursor.GoTo(format.variablePart + static_cast<qsizetype>(real) * format.keyCounts);
    for (int i = 0; i < columns; ++i)
        table.columns.append(ReadColumn(cursor.Take(format.column), format));
    for (Column& column : table.columns)
        column.name = cursor.Name();
    std::stable_sort(table.columns.begin(), table.columns.end(),
                     [](const Column& left, const Column& right) { return left.number < right.number; });
    QList<Index> stored;
    for (quint32 i = 0; i < real; ++i)
        stored.append(ReadReal(cursor.Take(format.realIndex), format));
    for (quint32 i = 0; i < logical; ++i) {
        const Bytes entry = cursor.Take(format.logicalIndex);
        const int at = format.jet4 ? 4 : 0;
        const quint32 number = entry.U32(at + 4);
        Index index = number < real ? stored[static_cast<qsizetype>(number)] : Index{};
        index.real = static_cast<int>(number);
        const quint8 kind = entry.U8(at + 19);
        index.primary = kind == 1;
        index.relation = kind == 2;
        table.indexes.append(index);
    }
    for (Index& index : table.indexes)
        index.name = cursor.Name();
    while (!cursor.AtEnd()) {
        const Bytes entry = cursor.Take(10);
        if (entry.U16(0) == kNoColumn)
            break;
        table.longs.append({entry.U16(0), RowPointer::Of(entry.U32(2))});
    }
    return table;
}

} // namespace vasclip::engine::jet
