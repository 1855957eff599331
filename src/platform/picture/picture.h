#pragma once

#include "platform/files/disk.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

namespace vasclip::picture {

/// What a picture may cost. A file that asks for more is refused before anything is allocated for it.
struct Limits
{
    qint64 pixels = 200'000'000;              ///< width times height, as stored
    qint64 bytes = qint64(512) * 1024 * 1024; ///< length of the file
};

/// Takes the picture's whole size, or no limit on its longer side.
inline constexpr int kFullSize = 0;

/// Decodes a picture file and turns it upright as its orientation tag says.
///
/// The content decides the format, not the extension: JPEG, PNG, BMP, GIF, TIFF, WebP or portable pixmap, as
/// far as Qt has a reader installed. With a `longerSide` a larger picture comes out scaled down to it, in its
/// proportions (a JPEG is then decoded at a reduced size, which is much quicker); a smaller one keeps its
/// size.
///
/// @throws RuntimeError 52 for an empty name, 53 if there is no such file, 481 with the file's name if it is
/// empty, cut short, damaged, of an unknown kind or beyond the limits, and the errors of Disk
[[nodiscard]] QImage Load(const files::Disk& disk, const QString& path, int longerSide = kFullSize,
                          const Limits& limits = {});

/// The same on bytes in memory. @param name  what the error calls the picture
[[nodiscard]] QImage FromBytes(const QByteArray& bytes, const QString& name, int longerSide = kFullSize,
                               const Limits& limits = {});

/// Width and height of the upright picture, from the file's header alone. @throws as Load
[[nodiscard]] QSize PictureSize(const files::Disk& disk, const QString& path);

/// The picture as a JPEG on a white ground. @param quality  1 to 100, kept within
/// @throws RuntimeError 5 for a null image
[[nodiscard]] QByteArray ToJpeg(const QImage& image, int quality);

/// Writes a JPEG: to a new file, flushed, then renamed, so that an older file of that name is whole until the
/// new one is. @throws as ToJpeg and Disk::WriteWhole
void SaveJpeg(const files::Disk& disk, const QImage& image, const QString& path, int quality);

} // namespace vasclip::picture
