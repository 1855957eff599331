#include "platform/engine/jet/row.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr quint8 kNoJump = 0xFF;

/// Bytes of a value of fixed length.
int FixedSize(const Column& column)
{
    switch (column.type) {
    case ColumnType::Boolean:
        return 0;
    case ColumnType::Byte:
        return 1;
    case ColumnType::Integer:
        return 2;
    case ColumnType::Long:
    case ColumnType::Single:
        return 4;
    case ColumnType::Currency:
    case ColumnType::Double:
    case ColumnType::Date:
        return 8;
    case ColumnType::Guid:
        return 16;
    case ColumnType::Decimal:
        return 17;
    default:
        return column.length;
    }
}

} // namespace

Row::Row(const Format& format, const Definition& table, const Bytes& bytes)
    : m_format(format)
    , m_bytes(bytes)
    , m_columns(format.jet4 ? bytes.U16(0) : bytes.U8(0))
    , m_mask(bytes.Size() - (m_columns + 7) / 8)
{
    const int head = format.jet4 ? 2 : 1;
    if (m_mask < head)
        throw Damaged(u"a row is shorter than its mask of Nulls"_s);
    if (table.variableColumns == 0)
        return;
    const qsizetype count = m_mask - head;
    m_variable = format.jet4 ? bytes.U16(count) : bytes.U8(count);
    m_offsets = count;
    if (!format.jet4)
        m_jumps = static_cast<int>((bytes.Size() - 1) / 256);
    m_offsets -= m_jumps;
    if (m_offsets - static_cast<qsizetype>(head) * (m_variable + 1) < head)
        throw Damaged(u"a row has less room than its values of variable length need"_s);
}

int Row::Offset(int index) const
{
    if (m_format.jet4)
        return m_bytes.U16(m_offsets - 2 * (static_cast<qsizetype>(index) + 1));
    int offset = m_bytes.U8(m_offsets - (index + 1));
    for (int jump = 0; jump < m_jumps; ++jump) {
        const quint8 from = m_bytes.U8(m_offsets + m_jumps - 1 - jump);
        if (from != kNoJump && from <= index)
            offset += 256;
    }
    return offset;
}

bool Row::IsNull(const Column& column) const
{
    return column.number >= m_columns || (m_bytes.U8(m_mask + column.number / 8) >> (column.number % 8) & 1) == 0;
}

std::optional<Bytes> Row::Value(const Column& column) const
{
    if (IsNull(column))
        return std::nullopt;
    if (column.type == ColumnType::Boolean)
        return Bytes();
    if (column.fixed) {
        const qsizetype start = (m_format.jet4 ? 2 : 1) + column.fixedOffset;
        const int size = FixedSize(column);
        if (start + size > m_mask)
            throw Damaged(u"a value lies outside of its row"_s);
        return m_bytes.Part(start, size);
    }
    if (column.variableIndex >= m_variable)
        return std::nullopt;
    const int start = Offset(column.variableIndex);
    const int end = Offset(column.variableIndex + 1);
    if (end < start || end > m_mask)
        throw Damaged(u"the offsets of a row's values are wrong"_s);
    return m_bytes.Part(start, end - start);
}

} // namespace vasclip::engine::jet
