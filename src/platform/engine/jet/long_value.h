#pragma once

#include "platform/engine/jet/data_page.h"

#include <QSet>

namespace vasclip::engine::jet {

/// Bytes of a memo or picture, as its head in the row says.
[[nodiscard]] qint64 LongValueSize(const Bytes& head);
/// The value whole. @throws Damaged if a part of it is missing
[[nodiscard]] QByteArray ReadLongValue(PageFile& file, const Bytes& head);

/// A memo or picture that is read from its begin to its end, so that no more than a page of it is held.
class LongReader
{
public:
    /// @param file  that outlives it. @throws Damaged if it claims more than the file can hold
    LongReader(PageFile& file, const Bytes& head);

    [[nodiscard]] qint64 Size() const { return m_size; }
    /// Bytes from an offset on, fewer at its end: quick behind those that were read last, else all before them are passed.
    /// @throws Damaged if a part of it is missing
    [[nodiscard]] QByteArray Read(qint64 offset, qint64 bytes);
    void NeedWhole(); ///< @throws Damaged if a part of it is missing

private:
    void Begin();
    void NextPart();

    PageFile& m_file;
    QByteArray m_head;
    qint64 m_size = 0;
    RowPointer m_next; ///< part of a chain
    RowBytes m_row;    ///< that m_part lies in
    Bytes m_part;
    qint64 m_begin = 0; ///< of m_part in the value
    QSet<quint32> m_seen;
};

// The forms of a head.
inline constexpr quint32 kLongInline = 0x80000000;
inline constexpr quint32 kLongOneRow = 0x40000000;
inline constexpr quint32 kLongSize = 0x3FFFFFFF;
inline constexpr int kLongHead = 12;

} // namespace vasclip::engine::jet
