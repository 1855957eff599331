#include "platform/picture/exif.h"

#include "platform/picture/tiff.h"

#include <QTransform>

#include <algorithm>

namespace vasclip::picture {

namespace {

QDateTime DateOf(const QString& text)
{
    return QDateTime::fromString(text.left(kDateFormat.size()), kDateFormat);
}

} // namespace

Exif ReadExif(QByteArrayView bytes)
{
    Exif exif;
    const Tiff tiff(bytes);
    if (!tiff.Valid())
        return exif;
    exif.tiff = bytes;
    quint32 detail = 0;
    QDateTime changed;
    const quint32 first = tiff.Number32(4).value_or(0);
    const quint32 second = tiff.ForEach(first, [&](const Entry& entry) {
        switch (entry.tag) {
        case Make:
            exif.notes.make = tiff.Text(entry);
            break;
        case Model:
            exif.notes.model = tiff.Text(entry);
            break;
        case Orientation:
            if (const quint32 value = tiff.Value(entry); value >= 1 && value <= 8)
                exif.orientation = static_cast<int>(value);
            break;
        case DateTime:
            changed = DateOf(tiff.Text(entry));
            break;
        case ExifDirectory:
            detail = tiff.Value(entry);
            break;
        default:
            break;
        }
    });
    if (detail != 0) {
        (void)tiff.ForEach(detail, [&](const Entry& entry) {
            if (entry.tag == DateTimeOriginal)
                exif.notes.taken = DateOf(tiff.Text(entry));
        });
    }
    if (!exif.notes.taken.isValid())
        exif.notes.taken = changed;
    if (second != 0 && second != first) {
        quint32 at = 0;
        quint32 length = 0;
        (void)tiff.ForEach(second, [&](const Entry& entry) {
            if (entry.tag == ThumbnailOffset)
                at = tiff.Value(entry);
            else if (entry.tag == ThumbnailLength)
                length = tiff.Value(entry);
        });
        exif.thumbnail = tiff.Slice(at, length);
    }
    return exif;
}

JpegHead ReadJpegHead(QByteArrayView bytes)
{
    constexpr uchar kMark = 0xFF;
    constexpr auto kExif = QByteArrayView("Exif\0\0", 6);
    JpegHead head;
    bool hasExif = false;
    const auto byte = [bytes](qsizetype at) { return static_cast<uchar>(bytes[at]); };
    qsizetype at = 2; // behind the start of the image
    while (at + 4 <= bytes.size()) {
        if (byte(at) != kMark || byte(at + 1) == kMark || byte(at + 1) == 0x00) {
            ++at; // garbage and filling between segments
            continue;
        }
        const uchar marker = byte(at + 1);
        if (marker == 0x01 || (marker >= 0xD0 && marker <= 0xD8)) {
            at += 2;
            continue;
        }
        if (marker == 0xDA || marker == 0xD9)
            break;
        const qsizetype length = qsizetype(byte(at + 2)) << 8 | byte(at + 3);
        if (length < 2)
            break;
        const bool isFrame =
            marker >= 0xC0 && marker <= 0xCF && marker != 0xC4 && marker != 0xC8 && marker != 0xCC;
        if (isFrame && length >= 8 && at + 10 <= bytes.size()) {
            head.bits = byte(at + 4);
            head.size = QSize(byte(at + 7) << 8 | byte(at + 8), byte(at + 5) << 8 | byte(at + 6));
            head.components = byte(at + 9);
            head.progressive = marker == 0xC2 || marker == 0xC6 || marker == 0xCA || marker == 0xCE;
        }
        const QByteArrayView content =
            bytes.sliced(at + 4, std::min(length - 2, bytes.size() - at - 4));
        if (marker == 0xE1 && !hasExif && content.startsWith(kExif)) {
            head.exif = ReadExif(content.sliced(kExif.size()));
            hasExif = true;
        }
        at += 2 + length;
    }
    return head;
}

QImage Upright(const QImage& image, int orientation)
{
    switch (orientation) {
    case 2:
        return image.mirrored(true, false);
    case 3:
        return image.mirrored(true, true);
    case 4:
        return image.mirrored(false, true);
    case 5:
        return image.transformed(QTransform(0, 1, 1, 0, 0, 0));
    case 6:
        return image.transformed(QTransform().rotate(90));
    case 7:
        return image.transformed(QTransform(0, -1, -1, 0, 0, 0));
    case 8:
        return image.transformed(QTransform().rotate(-90));
    default:
        return image;
    }
}

} // namespace vasclip::picture
