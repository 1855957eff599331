#pragma once

#include "platform/picture/facts.h"
#include "platform/picture/jpeg_reader.h"

namespace vasclip::picture {

/// True for bytes that begin as the pictures of phones do: HEIC and its kin.
[[nodiscard]] bool IsHeif(QByteArrayView bytes);

/// Decodes the main picture, upright as the file's own transformations have it.
///
/// The library can't be stopped within a picture. One that takes too long, or is not wanted any more, is left to
/// a thread of its own, which ends when the library is done with it.
/// @throws RuntimeError 481 as picture::Load
[[nodiscard]] QImage ReadHeif(const QByteArray& bytes, const QString& name, const TargetSize& target,
                              const Limits& limits);

/// Size, depth and notes; the whole file is needed for them. @throws RuntimeError 481
[[nodiscard]] Facts DescribeHeif(QByteArrayView bytes, const QString& name);

/// The smaller picture that the file carries; null if there is none.
[[nodiscard]] QImage HeifThumbnail(QByteArrayView bytes);

} // namespace vasclip::picture
