#include "platform/picture/picture.h"

#include "platform/picture/whole.h"
#include "platform/text/runtime_error.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

/// Formats that are pictures of a camera, a scanner or a screen. Others that Qt may have a reader for
/// (drawings, cursors) are left alone: what they may do while being read is nobody's business here.
constexpr const char* kFormats[] = {"jpeg", "jpg",  "png", "bmp", "gif", "tiff",
                                    "tif",  "webp", "pbm", "pgm", "ppm"};

[[noreturn]] void Corrupt(const QString& name, const QString& why)
{
    throw RuntimeError(error::kCorruptPicture,
                       u"'%1' is not a picture that can be read: %2"_s.arg(name, why));
}

/// Readers refuse beyond 128 MB by themselves, which a large camera picture needs.
void RaiseAllocationLimit(const Limits& limits)
{
    const auto megabytes = static_cast<int>(std::min<qint64>(limits.pixels * 8 / (1024 * 1024) + 1, 1 << 20));
    if (QImageReader::allocationLimit() < megabytes)
        QImageReader::setAllocationLimit(megabytes);
}

/// Opens the reader on the header. @return the size as stored, empty if the format doesn't tell before
/// decoding
QSize ReadHeader(QImageReader& reader, const QString& name)
{
    reader.setDecideFormatFromContent(true);
    reader.setAutoTransform(true);
    if (!reader.canRead())
        Corrupt(name, u"its content is of no known kind"_s);
    const QByteArray format = reader.format();
    if (std::none_of(std::begin(kFormats), std::end(kFormats),
                     [&](const char* known) { return format == known; }))
        Corrupt(name, u"pictures of the kind '%1' are not used here"_s.arg(QString::fromLatin1(format)));
    return reader.size();
}

void CheckPixels(QSize size, const QString& name, const Limits& limits)
{
    if (qint64(size.width()) * size.height() > limits.pixels)
        Corrupt(name, u"its size of %1 by %2 is beyond the limit"_s.arg(size.width()).arg(size.height()));
}

void CheckName(const QString& path)
{
    if (path.trimmed().isEmpty())
        throw RuntimeError(error::kBadFileName, u"A picture without a file name can't be read"_s);
}

QSize Within(QSize size, int longerSide)
{
    if (longerSide == kFullSize || std::max(size.width(), size.height()) <= longerSide)
        return size;
    return size.scaled(longerSide, longerSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace

QImage FromBytes(const QByteArray& bytes, const QString& name, int longerSide, const Limits& limits)
{
    if (bytes.isEmpty())
        Corrupt(name, u"the file is empty"_s);
    if (bytes.size() > limits.bytes)
        Corrupt(name, u"the file is larger than %1 bytes"_s.arg(limits.bytes));
    RaiseAllocationLimit(limits);
    QBuffer buffer;
    buffer.setData(bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    const QSize stored = ReadHeader(reader, name);
    CheckPixels(stored, name, limits);
    if ((IsJpeg(bytes) && !IsWholeJpeg(bytes)) || (IsBmp(bytes) && !IsWholeBmp(bytes)))
        Corrupt(name, u"the file is cut short"_s);
    if (!stored.isEmpty() && Within(stored, longerSide) != stored)
        reader.setScaledSize(Within(stored, longerSide));
    QImage image;
    if (!reader.read(&image) || image.isNull())
        Corrupt(name, reader.errorString());
    CheckPixels(image.size(), name, limits);
    if (Within(image.size(), longerSide) != image.size())
        image =
            image.scaled(Within(image.size(), longerSide), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    return image;
}

QImage Load(const files::Disk& disk, const QString& path, int longerSide, const Limits& limits)
{
    CheckName(path);
    if (disk.FileLen(path) > limits.bytes)
        Corrupt(path, u"the file is larger than %1 bytes"_s.arg(limits.bytes));
    return FromBytes(disk.ReadWhole(path), path, longerSide, limits);
}

QSize PictureSize(const files::Disk& disk, const QString& path)
{
    CheckName(path);
    if (disk.FileLen(path) == 0)
        Corrupt(path, u"the file is empty"_s);
    QFile file(disk.ToNative(path));
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(error::kPathFileAccess,
                           u"'%1' can't be opened: %2"_s.arg(path, file.errorString()));
    QImageReader reader(&file);
    QSize size = ReadHeader(reader, path);
    if (size.isEmpty())
        Corrupt(path, u"its header names no size"_s);
    return reader.transformation() & QImageIOHandler::TransformationRotate90 ? size.transposed() : size;
}

QByteArray ToJpeg(const QImage& image, int quality)
{
    if (image.isNull())
        throw RuntimeError(5, u"There is no picture to save"_s);
    QImage ground = image;
    if (image.hasAlphaChannel()) {
        ground = QImage(image.size(), QImage::Format_RGB32);
        ground.fill(Qt::white);
        QPainter(&ground).drawImage(0, 0, image);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setQuality(std::clamp(quality, 1, 100));
    if (!writer.write(ground))
        throw RuntimeError(error::kCorruptPicture,
                           u"The picture can't be written as JPEG: "_s + writer.errorString());
    return bytes;
}

void SaveJpeg(const files::Disk& disk, const QImage& image, const QString& path, int quality)
{
    CheckName(path);
    disk.WriteWhole(path, ToJpeg(image, quality));
}

} // namespace vasclip::picture
