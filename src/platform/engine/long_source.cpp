#include "platform/engine/long_source.h"

#include "platform/engine/errors.h"
#include "platform/engine/row_store.h"

#include <algorithm>
#include <memory>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

using Held = std::shared_ptr<const LongSource>;

QByteArray ReadPiece(const LongSource& source, qint64 offset, qint64 most)
{
    const qint64 wanted = std::min(most, source.size - offset);
    QByteArray piece = source.read(offset, wanted);
    if (piece.size() != wanted)
        throw RuntimeError(error::kDeviceIo,
                           u"A picture or another long value could be read up to byte %1 of %2 only"_s.arg(
                               QString::number(offset + piece.size()), QString::number(source.size)));
    return piece;
}

} // namespace

QVariant LongValue(LongSource source)
{
    return QVariant::fromValue<Held>(std::make_shared<const LongSource>(std::move(source)));
}

QVariant LongValueOf(RowStore& rows, Bookmark id, int field, const QVariant& size)
{
    const int source = rows.Shape().sources[static_cast<std::size_t>(field)];
    if (!size.isValid() || source < 0 || size.toLongLong() <= kHeldWhole)
        return size.isValid() ? rows.ReadLong(id, field) : QVariant();
    // A store that finds a part of it missing has none of it.
    if (rows.ReadPiece(id, source, 0, 1).isEmpty())
        return {};
    return LongValue({size.toLongLong(), [&rows, id, source](qint64 offset, qint64 bytes) {
                          return rows.ReadPiece(id, source, offset, bytes);
                      }});
}

const LongSource* LongSourceOf(const QVariant& value)
{
    const auto* held = value.metaType() == QMetaType::fromType<Held>() ? static_cast<const Held*>(value.constData()) : nullptr;
    return held == nullptr ? nullptr : held->get();
}

void ReadInPieces(const LongSource& source, qint64 most,
                  const std::function<void(qint64 offset, const QByteArray& piece)>& use)
{
    for (qint64 offset = 0; offset < source.size; offset += most)
        use(offset, ReadPiece(source, offset, most));
}

QByteArray ReadWhole(const LongSource& source)
{
    return source.size == 0 ? QByteArray("") : ReadPiece(source, 0, source.size);
}

QVariant WholeValue(const QVariant& value)
{
    const LongSource* source = LongSourceOf(value);
    return source == nullptr ? value : QVariant(ReadWhole(*source));
}

bool SameBytes(const LongSource& left, const LongSource& right)
{
    bool same = left.size == right.size;
    for (qint64 offset = 0; same && offset < left.size; offset += kLongPiece)
        same = ReadPiece(left, offset, kLongPiece) == ReadPiece(right, offset, kLongPiece);
    return same;
}

} // namespace vasclip::engine
