#include "platform/engine/sqlite/super_journal.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr qint64 kYoungSeconds = 3600;

bool IsNeeded(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return true;
    // The names of the journals, each ended by a zero byte, in the engine's encoding on every system.
    for (const QByteArray& name : file.readAll().split('\0')) {
        if (!name.isEmpty() && QFile::exists(QString::fromUtf8(name)))
            return true;
    }
    return false;
}

} // namespace

void SweepSuperJournals(const QString& nativePath, const QDateTime& now)
{
    const QFileInfo info(nativePath);
    const QDir directory(info.path());
    const QDateTime limit = now.addSecs(-kYoungSeconds);
    // Brackets and stars in a name are characters to match here, so the names are compared one by one.
    const QString start = info.fileName() + u"-mj"_s;
    for (const QFileInfo& entry : directory.entryInfoList(QDir::Files)) {
        if (entry.fileName().startsWith(start) && entry.lastModified() < limit && !IsNeeded(entry.filePath()))
            QFile::remove(entry.filePath());
    }
}

} // namespace vasclip::engine
