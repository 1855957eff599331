#pragma once

#include "platform/picture/facts.h"
#include "platform/picture/jpeg_reader.h"

namespace vasclip::picture {

/// True for bytes that begin as the pictures of phones do: HEIC and its kin.
[[nodiscard]] bool IsHeif(QByteArrayView bytes);

/// Decodes the main picture, upright as the file's own transformations have it.
/// @throws RuntimeError 481 as picture::Load
[[nodiscard]] QImage ReadHeif(QByteArrayView bytes, const QString& name, const TargetSize& target,
                              const Limits& limits);

/// Size, depth and notes; the whole file is needed for them. @throws RuntimeError 481
[[nodiscard]] Facts DescribeHeif(QByteArrayView bytes, const QString& name);

/// The smaller picture that the file carries; null if there is none.
[[nodiscard]] QImage HeifThumbnail(QByteArrayView bytes);

} // namespace vasclip::picture
