#pragma once

#include "platform/engine/jet/page_file.h"

namespace vasclip::engine::jet {

/// Bytes of a memo or picture, as its head in the row says.
[[nodiscard]] qint64 LongValueSize(const Bytes& head);
/// The value whole. @throws Damaged if a part of it is missing
[[nodiscard]] QByteArray ReadLongValue(PageFile& file, const Bytes& head);

// The forms of a head.
inline constexpr quint32 kLongInline = 0x80000000;
inline constexpr quint32 kLongOneRow = 0x40000000;
inline constexpr quint32 kLongSize = 0x3FFFFFFF;
inline constexpr int kLongHead = 12;

} // namespace vasclip::engine::jet
