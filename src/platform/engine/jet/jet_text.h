#pragma once

#include "platform/engine/jet/bytes.h"

#include <QString>

namespace vasclip::engine::jet {

/// UTF-16 as names are stored.
[[nodiscard]] QString PlainText(const Bytes& bytes);
/// A text of Jet 4, which may be compressed.
[[nodiscard]] QString UnicodeText(const Bytes& bytes);
/// A text of Jet 3. @throws Damaged for a code page that this system does not know
[[nodiscard]] QString CodePageText(const Bytes& bytes, quint16 codePage);

/// Longest text, in bytes of UTF-16, that is stored compressed.
inline constexpr qsizetype kLongestCompressed = 1024;
/// As a column stores it, compressed where that is shorter and allowed.
[[nodiscard]] QByteArray StoredText(const QString& text, bool compress);

} // namespace vasclip::engine::jet
