#include "kelforms/window/picture_cache.h"

#include "platform/text/runtime_error.h"

#include <QDateTime>
#include <QFileInfo>
#include <QImageReader>

using namespace Qt::Literals::StringLiterals;

namespace kelforms {

namespace {

constexpr int kKilobytes = 64 * 1024;

QPixmap Read(const QString& file, const QSize& room)
{
    QImageReader reader(file);
    reader.setAutoTransform(true);
    QSize size = reader.size();
    if (size.isValid()) {
        // A picture that lies on its side is turned after it was scaled.
        const bool turned = reader.transformation() & QImageIOHandler::TransformationRotate90;
        size.scale(turned ? room.transposed() : room, Qt::KeepAspectRatio);
        reader.setScaledSize(size);
    }
    return QPixmap::fromImage(reader.read());
}

} // namespace

PictureCache::PictureCache(const vasclip::files::Disk& disk)
    : m_disk(disk)
    , m_pictures(kKilobytes)
{}

QPixmap PictureCache::Fetch(const QString& path, const QSize& room)
{
    QString file;
    try {
        file = m_disk.ToNative(path);
    } catch (const vasclip::RuntimeError&) {
        return {}; // a path outside the home shows as a missing picture
    }
    const QString key = u"%1|%2|%3x%4"_s.arg(file)
                            .arg(QFileInfo(file).lastModified().toMSecsSinceEpoch())
                            .arg(room.width())
                            .arg(room.height());
    if (const QPixmap* kept = m_pictures.object(key))
        return *kept;
    const QPixmap picture = Read(file, room);
    m_pictures.insert(key, new QPixmap(picture), picture.width() * picture.height() * 4 / 1024 + 1);
    return picture;
}

} // namespace kelforms
