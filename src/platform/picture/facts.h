#pragma once

#include "platform/files/disk.h"

#include <QByteArray>
#include <QDateTime>
#include <QImage>
#include <QSize>
#include <QString>

namespace vasclip::picture {

/// What a camera notes beside its picture and what stays with it when it is written again.
struct Notes
{
    QDateTime taken; ///< local time of the camera; invalid if it is not told
    QString make, model;
    /// The camera's whole EXIF data, a TIFF structure: where the picture was taken, exposure, the maker's own.
    QByteArray exif = {};
    /// Do they tell the same? The data they were read from may differ.
    bool operator==(const Notes& other) const
    {
        return taken == other.taken && make == other.make && model == other.model;
    }
};

/// What a picture file says of itself, from its head alone.
struct Facts
{
    QSize size;          ///< upright; empty for a format whose head does not tell
    QString format;      ///< "JPEG", "BMP", "PNG", "TIFF", "HEIC", ...; empty if it is no picture
    QString compression; ///< "JPEG", "JPEG progressive", "RLE", "None", ...; empty if it is not told
    int bitsPerPixel = 0;
    int orientation = 1; ///< 1 to 8 as in EXIF
    Notes notes;
};

/// @throws RuntimeError 52, 53, 481 as picture::Load, without decoding anything
[[nodiscard]] Facts Describe(const files::Disk& disk, const QString& path);
[[nodiscard]] Facts DescribeNativeFile(const QString& nativePath, const QString& name);

/// The small picture that a camera puts into the head of its file, upright. It may have another shape than
/// the picture (black bars above and below).
struct SmallPicture
{
    QImage image;  ///< null if there is none, also for a file that is not there or can't be read
    QSize ofWhole; ///< upright pixels of the picture itself; empty where they stand too far behind
};
[[nodiscard]] SmallPicture EmbeddedThumbnail(const files::Disk& disk, const QString& path) noexcept;
/// For threads that work beside the rules.
[[nodiscard]] SmallPicture EmbeddedThumbnailOfNativeFile(const QString& nativePath) noexcept;

/// The embedded thumbnail as it stands in the file, for who decodes it later or elsewhere.
struct ThumbnailBytes
{
    QByteArray jpeg; ///< empty if there is none
    int orientation = 1;
    QSize ofWhole; ///< upright pixels of the picture itself; empty where they stand too far behind
};
[[nodiscard]] ThumbnailBytes EmbeddedThumbnailBytes(const QString& nativePath);

} // namespace vasclip::picture
