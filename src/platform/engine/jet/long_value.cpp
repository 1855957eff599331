#include "platform/engine/jet/long_value.h"

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

qint64 LongValueSize(const Bytes& head)
{
    return head.U32(0) & kLongSize;
}

QByteArray ReadLongValue(PageFile& file, const Bytes& head)
{
    LongReader reader(file, head);
    return reader.Size() == 0 ? QByteArray("") : reader.Read(0, reader.Size());
}

LongReader::LongReader(PageFile& file, const Bytes& head)
    : m_file(file)
    , m_head(head.Copy())
    , m_size(LongValueSize(head))
{
    if (m_size > 0 && (head.U32(0) & kLongInline) == 0 && m_size > m_file.Size())
        throw Damaged(u"a long value claims %1 bytes, more than the file has"_s.arg(m_size));
    Begin();
}

/// To the first part of it.
void LongReader::Begin()
{
    const Bytes head(m_head);
    const quint32 form = head.U32(0);
    m_begin = 0;
    m_part = {};
    m_seen.clear();
    m_next = {};
    if (m_size == 0)
        return;
    if ((form & kLongInline) != 0) {
        m_part = head.Part(kLongHead, m_size);
        return;
    }
    m_next = RowPointer::Of(head.U32(4));
    if ((form & kLongOneRow) == 0)
        return;
    m_row = ReadRowAt(m_file, m_next);
    m_part = m_row.bytes.Part(0, m_size);
}

/// To the next part of a chain, which is none where the value is over.
void LongReader::NextPart()
{
    m_begin += m_part.Size();
    if (m_next.page == 0 || m_seen.contains(m_next.Stored()))
        throw Damaged(u"only %1 of %2 bytes of a long value are there"_s.arg(QString::number(m_begin),
                                                                              QString::number(m_size)));
    m_seen.insert(m_next.Stored());
    m_row = ReadRowAt(m_file, m_next);
    m_next = RowPointer::Of(m_row.bytes.U32(0));
    m_part = m_row.bytes.Part(4, std::min<qint64>(m_row.bytes.Size() - 4, m_size - m_begin));
}

QByteArray LongReader::Read(qint64 offset, qint64 bytes)
{
    if (offset < m_begin)
        Begin();
    const qint64 end = std::min(m_size, offset + bytes);
    QByteArray read;
    read.reserve(std::max<qint64>(0, end - offset));
    while (offset < end) {
        while (offset >= m_begin + m_part.Size())
            NextPart();
        const Bytes here = m_part.Part(offset - m_begin, std::min(end, m_begin + m_part.Size()) - offset);
        read.append(here.Data(), here.Size());
        offset += here.Size();
    }
    return read;
}

void LongReader::NeedWhole()
{
    Begin();
    while (m_begin + m_part.Size() < m_size)
        NextPart();
    Begin();
}

} // namespace vasclip::engine::jet
