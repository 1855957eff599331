#pragma once

#include <QByteArrayView>

namespace vasclip::picture {

/// True for bytes that begin as a JPEG does.
[[nodiscard]] bool IsJpeg(QByteArrayView bytes);

// Decoders fill what is missing with grey or black and report nothing; these find out what is cut short.

/// True if a JPEG runs through to the end of its image.
[[nodiscard]] bool IsWholeJpeg(QByteArrayView bytes);

/// True for bytes that begin as a BMP does.
[[nodiscard]] bool IsBmp(QByteArrayView bytes);

/// True if a BMP has all the rows that its header names. Compressed ones count as whole.
[[nodiscard]] bool IsWholeBmp(QByteArrayView bytes);

} // namespace vasclip::picture
