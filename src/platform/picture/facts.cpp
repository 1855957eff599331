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

Facts DescribeJpeg(QFile& file, const QByteArray& begin, const QString& name)
{
    JpegHead head = ReadJpegHead(begin);
    if (head.size.isEmpty() && file.seek(0))
        head = ReadJpegHead(file.read(kLongHeadLength));
    if (head.size.isEmpty())
        Refuse(name, u"its header names no size"_s);
    Facts facts;
    facts.orientation = head.exif.orientation;
    facts.size = SwapsSides(facts.orientation) ? head.size.transposed() : head.size;
    facts.format = u"JPEG"_s;
    facts.compression = head.progressive ? u"JPEG progressive"_s : u"JPEG"_s;
    facts.bitsPerPixel = head.components * head.bits;
    facts.notes = head.exif.notes;
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

QImage EmbeddedThumbnailOfNativeFile(const QString& nativePath) noexcept
{
    try {
        QFile file(nativePath);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            return {};
        const QByteArray begin = file.read(kHeadLength);
        if (IsHeif(begin))
            return HeifThumbnail(begin + file.readAll());
        if (!IsJpeg(begin))
            return {};
        const Exif exif = ReadJpegHead(begin).exif;
        if (!IsJpeg(exif.thumbnail))
            return {};
        const auto asItIs = [](QSize size) { return size; };
        const QImage small = ReadJpeg(exif.thumbnail, u"thumbnail"_s, asItIs, {});
        if (small.width() < kSmallestSide || small.height() < kSmallestSide)
            return {};
        return Upright(small, exif.orientation);
    } catch (const std::exception&) {
        return {}; // the picture itself is decoded instead
    }
}

QImage EmbeddedThumbnail(const files::Disk& disk, const QString& path) noexcept
{
    try {
        return EmbeddedThumbnailOfNativeFile(disk.ToNative(path));
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace vasclip::picture
