#include "platform/engine/jet/long_value.h"

#include "platform/engine/jet/data_page.h"

#include <QSet>

#include <algorithm>

namespace vasclip::engine::jet {

using namespace Qt::Literals::StringLiterals;

namespace {

QByteArray ReadChain(PageFile& file, RowPointer next, qint64 size)
{
    QByteArray value;
    QSet<quint32> seen;
    while (value.size() < size) {
        if (next.page == 0 || seen.contains(next.Stored()))
            throw Damaged(u"only %1 of %2 bytes of a long value are there"_s.arg(QString::number(value.size()),
                                                                                  QString::number(size)));
        seen.insert(next.Stored());
        const RowBytes row = ReadRowAt(file, next);
        next = RowPointer::Of(row.bytes.U32(0));
        const Bytes part = row.bytes.Part(4, row.bytes.Size() - 4);
        value.append(part.Data(), std::min<qsizetype>(part.Size(), size - value.size()));
    }
    return value;
}

} // namespace

qint64 LongValueSize(const Bytes& head)
{
    return head.U32(0) & kLongSize;
}

QByteArray ReadLongValue(PageFile& file, const Bytes& head)
{
    const quint32 form = head.U32(0);
    const qint64 size = LongValueSize(head);
    if (size == 0)
        return QByteArray("");
    if ((form & kLongInline) != 0)
        return head.Part(kLongHead, size).Copy();
    if (size > file.Size())
        throw Damaged(u"a long value claims %1 bytes, more than the file has"_s.arg(size));
    const RowPointer first = RowPointer::Of(head.U32(4));
    if ((form & kLongOneRow) == 0)
        return ReadChain(file, first, size);
    const RowBytes row = ReadRowAt(file, first);
    return row.bytes.Part(0, size).Copy();
}

} // namespace vasclip::engine::jet
