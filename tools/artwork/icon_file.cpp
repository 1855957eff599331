#include "artwork/icon_file.h"

#include <QBuffer>
#include <QDataStream>

namespace vasclip::artwork {

namespace {

constexpr int kLargest = 256; ///< which a byte tells as 0

QByteArray Png(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    picture.save(&buffer, "PNG");
    return bytes;
}

/// The pixels from the bottom up, and behind them a mask of a bit each, in lines of whole four bytes.
QByteArray Bitmap(const QImage& picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    const int side = image.width(), maskLine = (side + 31) / 32 * 4;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint32(40) << qint32(side) << qint32(2 * side) << quint16(1) << quint16(32) << quint32(0)
        << quint32(side * (side * 4 + maskLine)) << qint32(0) << qint32(0) << quint32(0) << quint32(0);
    for (int y = side - 1; y >= 0; --y) {
        for (int x = 0; x < side; ++x)
            out << quint32(image.pixel(x, y));
    }
    for (int y = side - 1; y >= 0; --y) {
        QByteArray line(maskLine, '\0');
        for (int x = 0; x < side; ++x) {
            if (qAlpha(image.pixel(x, y)) == 0)
                line[x / 8] = char(line[x / 8] | 0x80 >> x % 8);
        }
        out.writeRawData(line.constData(), maskLine);
    }
    return bytes;
}

} // namespace

QByteArray IconFile(const QList<QImage>& pictures)
{
    QList<QByteArray> contents;
    for (const QImage& picture : pictures)
        contents.append(picture.width() == kLargest ? Png(picture) : Bitmap(picture));

    QByteArray file;
    QDataStream out(&file, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << quint16(1) << quint16(pictures.size());
    qsizetype at = 6 + 16 * pictures.size();
    for (qsizetype i = 0; i < pictures.size(); ++i) {
        const quint8 side = quint8(pictures[i].width() % kLargest);
        out << side << side << quint8(0) << quint8(0) << quint16(1) << quint16(32) << quint32(contents[i].size())
            << quint32(at);
        at += contents[i].size();
    }
    for (const QByteArray& content : contents)
        out.writeRawData(content.constData(), int(content.size()));
    return file;
}

} // namespace vasclip::artwork
