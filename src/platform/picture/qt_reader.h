#pragma once

#include "platform/picture/facts.h"
#include "platform/picture/jpeg_reader.h"

namespace vasclip::picture {

/// Decodes what Qt has a reader for (PNG, BMP, TIFF, GIF, WebP, portable pixmaps), upright.
/// @throws RuntimeError 481 as picture::Load
[[nodiscard]] QImage ReadWithQt(const QByteArray& bytes, const QString& name, const TargetSize& target,
                                const Limits& limits);

/// Facts without notes, from as much of the file as the reader asks for. @throws RuntimeError 481
[[nodiscard]] Facts DescribeWithQt(QIODevice& device, const QString& name);

} // namespace vasclip::picture
