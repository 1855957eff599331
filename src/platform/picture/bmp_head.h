#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace vasclip::picture {

/// What the head of a BMP says. There are three families: OS/2's with 12 bytes, its later one whose head may be cut
/// short from 16 bytes on, and Windows' with 40 and more.
struct BmpHead
{
    qint64 length = 0;    ///< bytes of the head behind the file's own 14
    qint64 width = 0;
    qint64 height = 0;    ///< negative: the top row comes first
    int bits = 0;         ///< per pixel
    qint64 method = 0;    ///< of compression
    qint64 colours = 0;   ///< in the palette, 0 for as many as the bits allow
    qint64 firstData = 0; ///< where the rows begin

    /// "None", "RLE"; "" for a method that has no name here.
    [[nodiscard]] QString CompressionName() const;
};

/// nullopt for bytes that are no BMP, or end before its head does.
[[nodiscard]] std::optional<BmpHead> ReadBmpHead(QByteArrayView bytes);

/// An uncompressed OS/2 bitmap as Windows would write it, with as many colours as the file has room for before its
/// rows; the decoder assumes a whole palette and would take rows for colours. Any other file as it is.
[[nodiscard]] QByteArray AsWindowsBmp(const QByteArray& bytes);

} // namespace vasclip::picture
