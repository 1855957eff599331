#pragma once

#include <QByteArrayView>

namespace vasclip::picture {

// The decoder fills what is missing with black and reports nothing; these find out what is cut short.

/// True for bytes that begin as a BMP does.
[[nodiscard]] bool IsBmp(QByteArrayView bytes);

/// True if a BMP has all the rows that its header names. Compressed ones count as whole.
[[nodiscard]] bool IsWholeBmp(QByteArrayView bytes);

} // namespace vasclip::picture
