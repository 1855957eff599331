#include "platform/street/draw/mark.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

// Four bytes of a bitmap's header that its readers pass over.
constexpr int kReserved = 6;
const QByteArray kOurs("VcMk", 4);

/// The names of a directory's files in capitals, sorted.
QStringList NamesIn(const QDir& directory)
{
    QStringList names;
    for (const QString& name : directory.entryList(QDir::Files))
        names << name.toUpper();
    names.sort();
    return names;
}

/// A mark on white: a bitmap has no alpha.
QByteArray Bitmap(const Mark& mark)
{
    const QImage drawn = DrawMark(mark, 1, false);
    QImage flat(drawn.size(), QImage::Format_RGB32);
    flat.fill(Qt::white);
    QPainter painter(&flat);
    painter.drawImage(0, 0, drawn);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImage indexed = flat.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither);
    for (int y = 0; y < indexed.height(); ++y) // the file takes what lay in memory behind each row along
        std::fill(indexed.scanLine(y) + indexed.width(), indexed.scanLine(y) + indexed.bytesPerLine(), uchar{0});
    indexed.save(&buffer, "BMP");
    return bytes.replace(kReserved, kOurs.size(), kOurs);
}

} // namespace

QStringList WriteMarks(const QString& nativeDirectory)
{
    QStringList failed;
    const QDir directory(nativeDirectory);
    const QStringList there = NamesIn(directory);
    for (const QString& name : MarkNames()) {
        if (std::binary_search(there.cbegin(), there.cend(), name.toUpper()))
            continue;
        const QByteArray bytes = Bitmap(*ReadMark(name));
        QSaveFile file(directory.filePath(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit())
            failed << u"%1: %2"_s.arg(directory.filePath(name), file.errorString());
    }
    return failed;
}

QStringList DeliverMarks(const QString& delivered, const QString& nativeDirectory)
{
    QStringList failed;
    const QDir from(delivered);
    const QDir to(nativeDirectory);
    const QStringList there = NamesIn(to);
    for (const QString& name : from.entryList(QDir::Files)) {
        if (std::binary_search(there.cbegin(), there.cend(), name.toUpper()))
            continue;
        QFile file(from.filePath(name));
        if (!QDir().mkpath(nativeDirectory) || !file.copy(to.filePath(name)))
            failed << u"%1: %2"_s.arg(to.filePath(name), file.errorString());
    }
    return failed;
}

bool IsOwnBitmap(const QString& nativeFile)
{
    QFile file(nativeFile);
    return file.open(QIODevice::ReadOnly) && file.read(kReserved + kOurs.size()).endsWith(kOurs);
}

} // namespace vasclip::street::draw
