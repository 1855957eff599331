#include "upkeep/archive_target.h"

#include <QFileInfo>

namespace vasclip::upkeep {

void MakeDirectoriesOf(const files::Disk& disk, const QString& file)
{
    for (qsizetype slash = file.indexOf(u'\\', 3); slash > 0; slash = file.indexOf(u'\\', slash + 1))
        if (!disk.DirExists(file.left(slash)))
            disk.MkDir(file.left(slash));
}

bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other)
{
    const QString native = QFileInfo(disk.ToNative(one)).canonicalFilePath();
    return !native.isEmpty() && native == QFileInfo(disk.ToNative(other)).canonicalFilePath();
}

} // namespace vasclip::upkeep
