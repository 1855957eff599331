#include "platform/street/draw/mark.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

// Four bytes of a bitmap's header that its readers pass over.
constexpr int kReserved = 6;
const QByteArray kOurs("VcMk", 4);

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
    flat.convertToFormat(QImage::Format_Indexed8, Qt::ThresholdDither | Qt::AvoidDither).save(&buffer, "BMP");
    return bytes.replace(kReserved, kOurs.size(), kOurs);
}

} // namespace

QStringList WriteMarks(const QString& nativeDirectory)
{
    QStringList failed;
    const QDir directory(nativeDirectory);
    QStringList there;
    for (const QString& name : directory.entryList(QDir::Files))
        there << name.toUpper();
    there.sort();
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

bool IsOwnBitmap(const QString& nativeFile)
{
    QFile file(nativeFile);
    return file.open(QIODevice::ReadOnly) && file.read(kReserved + kOurs.size()).endsWith(kOurs);
}

} // namespace vasclip::street::draw
