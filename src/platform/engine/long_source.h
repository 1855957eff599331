#pragma once

#include "platform/engine/types.h"

#include <QByteArray>
#include <QVariant>

#include <functional>

namespace vasclip::engine {

/// A long binary value that is read while it is stored, so that nobody holds it whole. A field is set to it by LongValue,
/// through a record set or at the seam.
struct LongSource
{
    qint64 size = 0;
    /// Gives the bytes from an offset on: asked for in their order, and from the begin again where it is stored once more.
    /// Fewer than were asked for mean that the value is cut short, and it is not stored. What it throws reaches whoever
    /// stores the record, which is then as it was.
    std::function<QByteArray(qint64 offset, qint64 bytes)> read;
};

/// A value up to this size is held whole after all: a picture of a report, which most are.
inline constexpr qint64 kHeldWhole = 1 << 20;
/// What is asked of a larger one at once, and held of it.
inline constexpr qint64 kLongPiece = 256 * 1024;

[[nodiscard]] QVariant LongValue(LongSource source);
class RowStore;
/// A row's long binary value for another store, held whole where it is small; Null where a genuine file has lost a part of it.
/// @param field  of the store's shape, whose size the row told; the store outlives the value
[[nodiscard]] QVariant LongValueOf(RowStore& rows, Bookmark id, int field, const QVariant& size);
/// @return null for a value that is no such source
[[nodiscard]] const LongSource* LongSourceOf(const QVariant& value);

/// Hands a value on in pieces. @param most  bytes of one
/// @throws 57 if it is cut short
void ReadInPieces(const LongSource& source, qint64 most,
                  const std::function<void(qint64 offset, const QByteArray& piece)>& use);
[[nodiscard]] QByteArray ReadWhole(const LongSource& source); ///< @throws 57 if it is cut short
/// The value itself, or what its source holds. @throws 57
[[nodiscard]] QVariant WholeValue(const QVariant& value);
/// Do two values hold the same bytes? @throws 57
[[nodiscard]] bool SameBytes(const LongSource& left, const LongSource& right);

} // namespace vasclip::engine
