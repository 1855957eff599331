#include "platform/picture/facts.h"

#include "platform/picture/exif.h"
#include "platform/picture/heif_reader.h"
#include "platform/picture/jpeg_reader.h"
#include "platform/picture/qt_reader.h"
#include "platform/picture/refusal.h"

#include <QFile>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

/// Holds the EXIF data of a camera, which may be 64 KB long, and the frame behind it.
constexpr qint64 kHeadLength = 72 * 1024;
/// Some cameras put large notes of their own between the two.
constexpr qint64 kLongHeadLength = 4 * 1024 * 1024;
constexpr int kSmallestSide = 16;
/// A block of a card; the EXIF data tells how much more of it there is.
constexpr qint64 kFirstRead = 4096;
/// Behind the EXIF data come tables, often a profile, and then the frame, which tells the size.
constexpr qint64 kReadBehindExif = 4096;

/// Where the EXIF data of a JPEG ends, 0 without any within the bytes.
qint64 EndOfExif(const QByteArray& begin)
{
    constexpr qsizetype kLengthAndMark = 4;
    const qsizetype at = begin.indexOf(QByteArrayView("Exif\0\0", 6));
    if (at < kLengthAndMark)
        return 0;
    return at - 2 + (qint64(static_cast<uchar>(begin[at - 2])) << 8 | static_cast<uchar>(begin[at - 1]));
}

QImage HeifThumbnailOfFile(const QString& nativePath)
{
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray begin = file.read(kFirstRead);
    return IsHeif(begin) ? HeifThumbnail(begin + file.readAll()) : QImage();
}

QSize UprightSize(const JpegHead& head)
{
    return SwapsSides(head.exif.orientation) ? head.size.transposed() : head.size;
}

Facts DescribeJpeg(QFile& file, const QByteArray& begin, const QString& name)
{
    QByteArray bytes = begin;
    JpegHead head = ReadJpegHead(bytes);
    if (head.size.isEmpty() && file.seek(0)) {
        bytes = file.read(kLongHeadLength);
        head = ReadJpegHead(bytes);
    }
    if (head.size.isEmpty())
        Refuse(name, u"its header names no size"_s);
    Facts facts;
    facts.orientation = head.exif.orientation;
    facts.size = UprightSize(head);
    facts.format = u"JPEG"_s;
    facts.compression = head.progressive ? u"JPEG progressive"_s : u"JPEG"_s;
    facts.bitsPerPixel = head.components * head.bits;
    facts.notes = head.exif.notes;
    facts.notes.exif = head.exif.tiff.toByteArray();
    return facts;
}

} // namespace

Facts DescribeNativeFile(const QString& nativePath, const QString& name)
{
    if (name.trimmed().isEmpty())
        throw RuntimeError(error::kBadFileName, u"A picture without a file name can't be read"_s);
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(file.exists() ? error::kPathFileAccess : error::kFileNotFound,
                           u"'%1' can't be opened: %2"_s.arg(name, file.errorString()));
    const QByteArray begin = file.read(kHeadLength);
    if (begin.isEmpty())
        Refuse(name, u"the file is empty"_s);
    if (IsJpeg(begin))
        return DescribeJpeg(file, begin, name);
    if (IsHeif(begin))
        return DescribeHeif(begin + file.readAll(), name);
    if (!file.seek(0))
        Refuse(name, file.errorString());
    return DescribeWithQt(file, name);
}

Facts Describe(const files::Disk& disk, const QString& path)
{
    if (path.trimmed().isEmpty())
        throw RuntimeError(error::kBadFileName, u"A picture without a file name can't be read"_s);
    (void)disk.FileLen(path); // its error for a file that is not there
    return DescribeNativeFile(disk.ToNative(path), path);
}

ThumbnailBytes EmbeddedThumbnailBytes(const QString& nativePath)
{
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {};
    QByteArray head = file.read(kFirstRead);
    if (!IsJpeg(head))
        return {};
    const qint64 wanted = EndOfExif(head);
    if (wanted > head.size())
        head += file.read(wanted - head.size() + kReadBehindExif);
    const JpegHead facts = ReadJpegHead(head);
    const Exif& exif = facts.exif;
    return {IsJpeg(exif.thumbnail) ? exif.thumbnail.toByteArray() : QByteArray(), exif.orientation,
            UprightSize(facts)};
}

SmallPicture EmbeddedThumbnailOfNativeFile(const QString& nativePath) noexcept
{
    try {
        const ThumbnailBytes found = EmbeddedThumbnailBytes(nativePath);
        if (found.jpeg.isEmpty())
            return {HeifThumbnailOfFile(nativePath), {}};
        const auto asItIs = [](QSize size) { return size; };
        const QImage small = ReadJpeg(found.jpeg, u"thumbnail"_s, asItIs, {});
        if (small.width() < kSmallestSide || small.height() < kSmallestSide)
            return {};
        return {Upright(small, found.orientation), found.ofWhole};
    } catch (const std::exception&) {
        return {}; // the picture itself is decoded instead
    }
}

SmallPicture EmbeddedThumbnail(const files::Disk& disk, const QString& path) noexcept
{
    try {
        return EmbeddedThumbnailOfNativeFile(disk.ToNative(path));
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace vasclip::picture
