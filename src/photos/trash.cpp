#include "photos/trash.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/content.h"
#include "photos/photo_files.h"
#include "photos/pointed_file.h"
#include "photos/trash_messages.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::CkRSlash;
using common::RoutineScope;

namespace {

constexpr auto kTrash = "TRASHCAN\\"_L1;

/// A read-only file is replaced too: what comes from a disc bears the attribute.
void MakeWritable(const files::Disk& disk, const QString& path)
{
    if (!disk.Found(path))
        return;
    const unsigned attributes = disk.GetAttr(path);
    if (attributes & files::ReadOnly)
        disk.SetAttr(path, attributes & ~static_cast<unsigned>(files::ReadOnly));
}

void MakeTrashDirectory(const files::Disk& disk, const QString& directory)
{
    QString trash = TrashDirectory(directory);
    if (!disk.DirExists(trash))
        disk.MkDir(common::StripRChar(trash));
}

/// The name as the disk spells it: paths reach us in capitals.
QString SpelledName(const files::Disk& disk, const QString& source, const QString& name)
{
    const QStringList found = disk.Dir(source);
    return found.size() == 1 && text::Folded(found.first()) == text::Folded(name) ? found.first() : name;
}

} // namespace

QString TrashDirectory(const QString& directory)
{
    return CkRSlash(directory) + kTrash;
}

bool IsInTrashCan(const QString& path)
{
    return common::IsTrashDirectory(path);
}

QString TrashParentDir(const QString& path)
{
    QString directory = CkRSlash(text::Folded(path));
    if (directory.endsWith(kTrash))
        directory.chop(kTrash.size());
    return CkRSlash(directory);
}

Trashed SendToTrashCan(const TrashDesk& desk, PictureIs saved, const QString& directory,
                       const QString& source, const QString& stem, const QString& extension)
{
    const RoutineScope scope{"SendToTrashCan"};
    if (desk.globals.trashcan == 0 || IsInTrashCan(source))
        return Trashed::No;
    const QString name = SpelledName(desk.disk, source, stem + u'.' + extension);
    const QString target = TrashDirectory(directory) + name;
    bool copied = false;
    const bool goOn = common::Guarded(desk.ports.prompter, [&] {
        MakeTrashDirectory(desk.disk, directory);
        MakeWritable(desk.disk, target);
        copied = desk.disk.FileCopyChecked(source, target);
    });
    if (!goOn || !copied)
        return Trashed::No;
    if (desk.globals.autoDelete != 1 || saved != PictureIs::Saved)
        return Trashed::Copied;
    QString prompt;
    return DelPict(desk.ports, desk.disk, source, Quiet::Yes, prompt) ? Trashed::Moved : Trashed::Copied;
}

Trashed TrashPicture(const TrashDesk& desk, PictureIs saved, const SlotTable& table,
                     const forms::PictureBox& control)
{
    const QString path = text::Trim(table.ErrGetPict(control));
    const common::FileNameParts parts = common::SplitFilePath(path);
    if (path.isEmpty())
        return Trashed::No;
    return SendToTrashCan(desk, saved, parts.drive + parts.directory, path, parts.name, parts.extension);
}

QString KeepInTrash(const files::Disk& disk, const QString& path)
{
    const RoutineScope scope{"KeepInTrash"};
    const qsizetype slash = path.lastIndexOf(u'\\') + 1;
    const QString directory = path.left(slash);
    const QString name = SpelledName(disk, path, path.mid(slash));
    const qsizetype dot = name.lastIndexOf(u'.');
    const QString stem = dot < 0 ? name : name.left(dot);
    const QString extension = dot < 0 ? QString() : name.mid(dot);
    MakeTrashDirectory(disk, directory);
    for (int number = 1;; ++number) {
        const QString kept = TrashDirectory(directory) + stem +
                             (number == 1 ? QString() : u" (%1)"_s.arg(number)) + extension;
        if (!disk.Found(kept)) {
            disk.FileCopyChecked(path, kept);
            return kept;
        }
        if (SameContent(disk, path, kept))
            return kept;
    }
}

QList<TrashedFile> TrashedFiles(const files::Disk& disk, const QString& trashDirectory)
{
    const QString directory = CkRSlash(trashDirectory);
    QList<TrashedFile> found;
    for (const QString& name : PictureNames(disk, directory, kTrashPatterns)) {
        try {
            found.append({name, disk.FileDateTime(directory + name), disk.FileLen(directory + name)});
        } catch (const RuntimeError& failure) {
            if (failure.Number() != error::kFileNotFound) // gone since it was listed
                throw;
        }
    }
    return found;
}

Restored RestoreFromTrash(const TrashDesk& desk, const QString& trashDirectory, const QString& name)
{
    const RoutineScope scope{"RestoreFromTrash"};
    const QString source = CkRSlash(trashDirectory) + name;
    if (!IsInTrashCan(source) || !desk.disk.Found(source))
        return Restored::Missing;
    const QString target = TrashParentDir(trashDirectory) + SpelledName(desk.disk, source, name);
    if (!desk.disk.Found(target)) {
        desk.disk.Name(source, target);
        return Restored::Yes;
    }
    if (!SameContent(desk.disk, source, target)) {
        const PointedFile pointed = PointAt(desk.disk, source);
        if (!desk.ports.prompter.YesNo({}, kRestoreOver.arg(name, TrashParentDir(trashDirectory))))
            return Restored::Declined;
        if (!WhyAnother(desk.disk, pointed).isEmpty())
            return Restored::Another;
        KeepInTrash(desk.disk, target);
        MakeWritable(desk.disk, target);
        desk.disk.FileCopyChecked(source, target);
    }
    QString prompt;
    (void)DelPict(desk.ports, desk.disk, source, Quiet::Yes, prompt);
    return Restored::Yes;
}

QString WhyAnother(const files::Disk& disk, const QString& trashDirectory, const TrashedFile& listed)
{
    return WhyAnother(disk, {CkRSlash(trashDirectory) + listed.name, listed.modified, listed.bytes});
}

Emptied EmptyTrash(const TrashDesk& desk, const QString& trashDirectory, const QList<TrashedFile>& pictures,
                   const std::function<bool(int done)>& step)
{
    const RoutineScope scope{"EmptyTrash"};
    Emptied done;
    for (const TrashedFile& picture : pictures) {
        const QString& name = picture.name;
        const QString path = CkRSlash(trashDirectory) + name;
        if (desk.disk.Found(path) && !WhyAnother(desk.disk, trashDirectory, picture).isEmpty()) {
            done.changed.append(name);
            continue;
        }
        try {
            QString prompt;
            const bool gone = DelPict(desk.ports, desk.disk, path, Quiet::Yes, prompt);
            (gone || !desk.disk.Found(path) ? done.deleted : done.left).append(name);
        } catch (const RuntimeError&) {
            done.left.append(name);
        }
        if (step && !step(static_cast<int>(done.deleted.size() + done.left.size() + done.changed.size())))
            break;
    }
    return done;
}

} // namespace vasclip::photos
