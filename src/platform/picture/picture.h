#pragma once

#include "platform/files/disk.h"
#include "platform/picture/facts.h"

#include <QByteArray>
#include <QImage>
#include <QSize>
#include <QString>

#include <functional>

namespace vasclip::picture {

/// What a picture may cost. A file that asks for more is refused, by its head where the head tells.
struct Limits
{
    qint64 pixels = 200'000'000;              ///< width times height, as stored
    qint64 bytes = qint64(512) * 1024 * 1024; ///< length of the file
    double seconds = 30;                      ///< of decoding
    /// Asked now and then while decoding; true gives up. May be empty.
    std::function<bool()> cancelled = {};
};

/// Takes the picture's whole size, or no limit on its longer side.
inline constexpr int kFullSize = 0;

/// Decodes a picture file and turns it upright as its orientation tag says.
///
/// The content decides the format, not the extension: JPEG of every kind, PNG, BMP, GIF, TIFF, WebP, HEIC or
/// portable pixmap. With a `longerSide` a larger picture comes out scaled down to it, in its proportions (a
/// JPEG is then decoded at a reduced size, which is much quicker); a smaller one keeps its size.
///
/// @throws RuntimeError 52 for an empty name, 53 if there is no such file, 481 with the file's name if it is
/// empty, cut short, damaged, of an unknown kind, beyond the limits or cancelled, and the errors of Disk
[[nodiscard]] QImage Load(const files::Disk& disk, const QString& path, int longerSide = kFullSize,
                          const Limits& limits = {});

/// The same with each side cut to its own limit, without regard to the proportions: 4000 by 300 within 800 by
/// 600 comes out as 800 by 300.
[[nodiscard]] QImage LoadWithin(const files::Disk& disk, const QString& path, QSize within,
                                const Limits& limits = {});

/// Load on bytes in memory. @param name  what the error calls the picture
[[nodiscard]] QImage FromBytes(const QByteArray& bytes, const QString& name, int longerSide = kFullSize,
                               const Limits& limits = {});
[[nodiscard]] QImage WithinFromBytes(const QByteArray& bytes, const QString& name, QSize within,
                                     const Limits& limits = {});

/// Load on a file of the system, for threads that work beside the rules. @param name  what the error calls it
[[nodiscard]] QImage FromNativeFile(const QString& nativePath, const QString& name,
                                    int longerSide = kFullSize, const Limits& limits = {});

/// Width and height of the upright picture, from the file's head alone. @throws as Load
[[nodiscard]] QSize PictureSize(const files::Disk& disk, const QString& path);

/// The picture as a JPEG on a white ground, upright, with the notes and the camera's EXIF data beside it.
/// @param quality  1 to 100, kept within
/// @throws RuntimeError 5 for a null image
[[nodiscard]] QByteArray ToJpeg(const QImage& image, int quality, const Notes& notes = {});

/// Writes a JPEG: to a new file, flushed, then renamed, so that an older file of that name is whole until the
/// new one is. @throws as ToJpeg and Disk::WriteWhole
void SaveJpeg(const files::Disk& disk, const QImage& image, const QString& path, int quality,
              const Notes& notes = {});

} // namespace vasclip::picture
