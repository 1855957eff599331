#include "platform/engine/jet/long_writer.h"

#include "platform/engine/errors.h"
#include "platform/engine/jet/long_value.h"

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

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
    const auto part = [&value](qint64 offset, qint64 bytes) { return value.mid(offset, bytes); };
    return HeadOf(size, 0, AddChain({value.size(), part}).Stored());
}

QByteArray LongWriter::Add(const LongSource& value)
{
    if (value.size <= kMostInOneRow)
        return Add(ReadWhole(value));
    if (value.size > kLongSize)
        throw RuntimeError(error::kRecordTooLarge, u"A value of %1 bytes is longer than a record can hold there"_s.arg(value.size));
    return HeadOf(static_cast<quint32>(value.size), 0, AddChain(value).Stored());
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

RowPointer LongWriter::AddChain(const LongSource& value)
{
    std::vector<quint32> pages;
    try {
        WriteChain(value, pages);
    } catch (...) {
        for (const quint32 page : pages)
            m_pages.Release(page);
        throw;
    }
    for (const quint32 page : pages)
        m_owned.Add(page);
    return {pages.front(), 0};
}

/// @param pages  gets those that were taken, in their order
void LongWriter::WriteChain(const LongSource& value, std::vector<quint32>& pages)
{
    constexpr qint64 kAtOnce = kLongPiece / kChainPart * kChainPart;
    pages.push_back(m_pages.Take());
    ReadInPieces(value, kAtOnce, [&](qint64 offset, const QByteArray& piece) {
        for (qsizetype at = 0; at < piece.size(); at += kChainPart) {
            const quint32 page = pages.back();
            const bool last = offset + at + kChainPart >= value.size;
            if (!last)
                pages.push_back(m_pages.Take());
            QByteArray row(4, '\0');
            qToLittleEndian(last ? 0U : pages.back() << 8, row.data());
            PageBuilder builder(kLongValueOwner);
            builder.Add(row + piece.mid(at, kChainPart));
            m_pages.Write(page, builder.Bytes());
        }
    });
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
