#pragma once

#include "platform/picture/facts.h"

#include <QByteArray>
#include <QByteArrayView>

namespace vasclip::picture {

/// What is used of the EXIF data in a picture file.
struct Exif
{
    int orientation = 1;       ///< 1 to 8
    Notes notes;
    QByteArrayView tiff;       ///< all of it, within the bytes that were read; empty for none
    QByteArrayView thumbnail;  ///< a JPEG within the bytes that were read; empty if there is none
};

/// Reads a TIFF structure as it stands behind "Exif\0\0". Damaged parts count as absent: every offset is
/// checked against the data and no directory is followed twice.
[[nodiscard]] Exif ReadExif(QByteArrayView tiff);

/// The head of a JPEG up to its first scan, or as far as `bytes` reach.
struct JpegHead
{
    Exif exif;
    QSize size;          ///< as stored; empty if the frame is not within the bytes
    int components = 0;
    int bits = 0;        ///< of one component
    bool progressive = false;
};
[[nodiscard]] JpegHead ReadJpegHead(QByteArrayView bytes);

/// The content of an EXIF segment ("Exif\0\0" and a TIFF structure) that says orientation 1: the camera's own
/// data without their small picture, or where the notes bring none that fit, the notes alone.
/// @param size  of the picture that is written
[[nodiscard]] QByteArray ExifSegment(const Notes& notes, QSize size);

/// Does the orientation turn the picture on its side?
[[nodiscard]] constexpr bool SwapsSides(int orientation)
{
    return orientation >= 5 && orientation <= 8;
}

/// The picture turned upright from how an orientation of 1 to 8 has it stored.
[[nodiscard]] QImage Upright(const QImage& image, int orientation);

} // namespace vasclip::picture
