#include "photos/photo_copies.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/format_picture.h"
#include "photos/photo_messages.h"
#include "platform/text/text.h"
#include "store/store.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The last part of a path as it is spelled, where ParseFileName gives it in capitals.
QString SpelledName(const QString& path)
{
    return text::Trim(path.mid(path.lastIndexOf(u'\\') + 1));
}

} // namespace

QString NameForReport(const QString& name)
{
    if (!name.contains(u']'))
        return name;
    return QString(name).replace(u'[', u'(').replace(u']', u')');
}

bool CopyFile(const forms::Ports& ports, const files::Disk& disk, const QString& source,
              const QString& directory)
{
    const common::RoutineScope scope{"CopyFile"};
    const common::FileNameParts parts = common::ParseFileName(source);
    const QString destination = common::CkRSlash(directory);
    if (text::Folded(common::CkRSlash(parts.drive + parts.directory)) == text::Folded(destination)) {
        ports.prompter.Box({}, kSamePaths);
        return false;
    }
    if (!disk.DirExists(destination)) {
        if (!ports.prompter.YesNo({}, kMakeDestination)) {
            ports.prompter.Box({}, kNoCopy);
            return false;
        }
        for (qsizetype at = destination.indexOf(u'\\', 3); at >= 0; at = destination.indexOf(u'\\', at + 1))
            if (const QString part = destination.left(at); !disk.DirExists(part))
                disk.MkDir(part);
    }
    if (!disk.FileExists(source))
        return false;
    const QString target = destination + SpelledName(source);
    if (disk.Found(target))
        disk.SetAttr(target, files::Normal); // a copy from before may have kept its write protection
    disk.FileCopy(source, target);
    return true;
}

bool CopyThePhoto(PhotoDesk& desk, const QString& source)
{
    return CopyFile(desk.ports, desk.disk, source, desk.globals.G_CaptureDir);
}

QString CopyPhotoRename(PhotoDesk& desk, const QString& source, const forms::PictureBox& control)
{
    const common::RoutineScope scope{"CopyPhotoRename"};
    const common::FileNameParts parts = common::ParseFileName(source);
    if (parts.name.isEmpty() || !desk.disk.FileExists(source))
        return {};
    const QString target =
        common::CkRSlash(desk.globals.G_PhotoDir) + findunique(desk) + u'.' + parts.extension;
    desk.disk.FileCopy(source, target);
    desk.loader.Table().ErrSetPict(control, target);
    return target;
}

void ApplyWriteProtect(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                       const QString& path)
{
    constexpr int kReadOnly = 1;
    if (globals.writeProtectPhotos && !text::Trim(path).isEmpty() && disk.FileExists(path))
        store::DalmoSetReadWriteBit(ports, disk, path, kReadOnly);
}

} // namespace vasclip::photos
