#include "platform/engine/jet/long_writer.h"

#include "platform/engine/jet/long_value.h"

namespace vasclip::engine::jet {

namespace {

constexpr qsizetype kMostInline = 64;
constexpr qsizetype kMostInOneRow = 4076;
constexpr qsizetype kChainPart = 4072;

QByteArray HeadOf(quint32 size, quint32 form, quint32 place)
{
    QByteArray head(kLongHead, '\0');
    qToLittleEndian(size | form, head.data());
    qToLittleEndian(place, head.data() + 4);
    return head;
}

} // namespace

QByteArray LongWriter::Add(const QByteArray& value)
{
    const auto size = static_cast<quint32>(value.size());
    if (value.size() <= kMostInline)
        return HeadOf(size, kLongInline, 0) + value;
    if (value.size() <= kMostInOneRow)
        return HeadOf(size, kLongOneRow, AddShared(value).Stored());
    return HeadOf(size, 0, AddChain(value).Stored());
}

RowPointer LongWriter::AddShared(const QByteArray& row)
{
    int place = m_shared ? m_shared->Add(row) : -1;
    if (place < 0) {
        WriteShared();
        m_number = m_pages.Take();
        m_owned.Add(m_number);
        m_shared.emplace(kLongValueOwner);
        place = m_shared->Add(row);
    }
    return {m_number, static_cast<quint8>(place)};
}

RowPointer LongWriter::AddChain(const QByteArray& value)
{
    const quint32 first = m_pages.Take();
    quint32 page = first;
    for (qsizetype at = 0; at < value.size(); at += kChainPart) {
        const quint32 next = at + kChainPart < value.size() ? m_pages.Take() : 0;
        QByteArray row(4, '\0');
        qToLittleEndian(next << 8, row.data());
        PageBuilder builder(kLongValueOwner);
        builder.Add(row + value.mid(at, kChainPart));
        m_pages.Write(page, builder.Bytes());
        m_owned.Add(page);
        page = next;
    }
    return {first, 0};
}

void LongWriter::WriteShared()
{
    if (m_shared)
        m_pages.Write(m_number, m_shared->Bytes());
    m_shared.reset();
}

void LongWriter::Finish(MapWriter& maps, RowPointer owned, RowPointer withRoom)
{
    if (m_shared) {
        PageSet room;
        room.Add(m_number);
        maps.Set(withRoom, room);
    }
    WriteShared();
    maps.Set(owned, m_owned);
}

} // namespace vasclip::engine::jet
