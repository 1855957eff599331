#include "upkeep/archive_target.h"

#include "platform/engine/genuine_file.h"

#include <QFileInfo>

namespace vasclip::upkeep {

using namespace Qt::Literals::StringLiterals;

namespace {

const QString kAccessTitle = u"Archive Is an Access Database"_s;
const QString kAccess =
    u"%1 is an Access database, which is read here and never written. Convert it first: open it as the Databook and "
    u"answer Yes, or use vasctl convert. Nothing was moved."_s;

} // namespace

void MakeDirectoriesOf(const files::Disk& disk, const QString& file)
{
    for (qsizetype slash = file.indexOf(u'\\', 3); slash > 0; slash = file.indexOf(u'\\', slash + 1))
        if (!disk.DirExists(file.left(slash)))
            disk.MkDir(file.left(slash));
}

bool RefusesAccess(forms::Prompter& prompter, const files::Disk& disk, const QString& file)
{
    if (!disk.Found(file, files::ReadOnly | files::Hidden) || !engine::IsGenuineFile(disk, file))
        return false;
    prompter.Box(kAccessTitle, kAccess.arg(file));
    return true;
}

bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other)
{
    const QString native = QFileInfo(disk.ToNative(one)).canonicalFilePath();
    return !native.isEmpty() && native == QFileInfo(disk.ToNative(other)).canonicalFilePath();
}

} // namespace vasclip::upkeep
