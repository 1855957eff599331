#include "platform/picture/picture.h"

#include "platform/picture/heif_reader.h"
#include "platform/picture/jpeg_reader.h"
#include "platform/picture/qt_reader.h"
#include "platform/picture/refusal.h"

#include <QFile>

#include <algorithm>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::picture {

namespace {

void CheckName(const QString& path)
{
    if (path.trimmed().isEmpty())
        throw RuntimeError(error::kBadFileName, u"A picture without a file name can't be read"_s);
}

void CheckLength(qint64 length, const QString& name, const Limits& limits)
{
    if (length == 0)
        Refuse(name, u"the file is empty"_s);
    if (length > limits.bytes)
        Refuse(name, u"the file is larger than %1 bytes"_s.arg(limits.bytes));
}

TargetSize LongerSide(int longerSide)
{
    return [longerSide](QSize size) {
        if (longerSide == kFullSize || std::max(size.width(), size.height()) <= longerSide)
            return size;
        return size.scaled(longerSide, longerSide, Qt::KeepAspectRatio).expandedTo({1, 1});
    };
}

TargetSize Within(QSize limit)
{
    return [limit](QSize size) { return size.boundedTo(limit).expandedTo({1, 1}); };
}

QImage Decoded(const QByteArray& bytes, const QString& name, const TargetSize& target, const Limits& limits)
{
    CheckLength(bytes.size(), name, limits);
    if (IsJpeg(bytes))
        return ReadJpeg(bytes, name, target, limits);
    if (IsHeif(bytes))
        return ReadHeif(bytes, name, target, limits);
    return ReadWithQt(bytes, name, target, limits);
}

QByteArray Content(const files::Disk& disk, const QString& path, const Limits& limits)
{
    CheckName(path);
    CheckLength(disk.FileLen(path), path, limits);
    return disk.ReadWhole(path);
}

} // namespace

QImage FromBytes(const QByteArray& bytes, const QString& name, int longerSide, const Limits& limits)
{
    return Decoded(bytes, name, LongerSide(longerSide), limits);
}

QImage WithinFromBytes(const QByteArray& bytes, const QString& name, QSize within, const Limits& limits)
{
    return Decoded(bytes, name, Within(within), limits);
}

QImage Load(const files::Disk& disk, const QString& path, int longerSide, const Limits& limits)
{
    return FromBytes(Content(disk, path, limits), path, longerSide, limits);
}

QImage LoadWithin(const files::Disk& disk, const QString& path, QSize within, const Limits& limits)
{
    return WithinFromBytes(Content(disk, path, limits), path, within, limits);
}

QImage FromNativeFile(const QString& nativePath, const QString& name, int longerSide, const Limits& limits)
{
    CheckName(name);
    QFile file(nativePath);
    if (!file.open(QIODevice::ReadOnly))
        throw RuntimeError(file.exists() ? error::kPathFileAccess : error::kFileNotFound,
                           u"'%1' can't be opened: %2"_s.arg(name, file.errorString()));
    CheckLength(file.size(), name, limits);
    return FromBytes(file.readAll(), name, longerSide, limits);
}

QSize PictureSize(const files::Disk& disk, const QString& path)
{
    return Describe(disk, path).size;
}

void SaveJpeg(const files::Disk& disk, const QImage& image, const QString& path, int quality,
              const Notes& notes)
{
    CheckName(path);
    disk.WriteWhole(path, ToJpeg(image, quality, notes));
}

} // namespace vasclip::picture
