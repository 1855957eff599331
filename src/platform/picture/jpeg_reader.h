#pragma once

#include "platform/picture/picture.h"

namespace vasclip::picture {

/// The size that a picture of the given upright size is to have.
using TargetSize = std::function<QSize(QSize)>;

/// True for bytes that begin as a JPEG does.
[[nodiscard]] bool IsJpeg(QByteArrayView bytes);

/// Decodes a JPEG upright at its target size: at an eighth, a quarter or a half of its size first where that is
/// enough. Its colour profile stays with the image.
/// @throws RuntimeError 481 as picture::Load
[[nodiscard]] QImage ReadJpeg(QByteArrayView bytes, const QString& name, const TargetSize& target,
                              const Limits& limits);

} // namespace vasclip::picture
