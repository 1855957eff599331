#include "photos/trash_icon.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/photo_files.h"
#include "photos/trash_messages.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

TrashDrop geatrashcan_DragDrop(const TrashDesk& desk, PictureIs saved, const QString& source,
                               const PointedFile& dragged)
{
    const RoutineScope scope{"geatrashcan_DragDrop"};
    const QString& picture = dragged.path;
    if (text::Folded(source) != u"GEATHUMB"_s || !desk.disk.FileExists(picture))
        return TrashDrop::Nothing;
    const bool forGood = IsInTrashCan(picture);
    if (!desk.ports.prompter.YesNo({}, (forGood ? kDeleteFromTrash : kDeleteQuestion).arg(picture)))
        return TrashDrop::Nothing;
    if (!WhyAnother(desk.disk, dragged).isEmpty())
        return TrashDrop::Another;
    if (forGood) {
        QString prompt;
        return DelPict(desk.ports, desk.disk, picture, Quiet::Yes, prompt) ? TrashDrop::Deleted
                                                                           : TrashDrop::Nothing;
    }
    const common::FileNameParts parts = common::SplitFilePath(picture);
    switch (SendToTrashCan(desk, saved, parts.drive + parts.directory, picture, parts.name, parts.extension)) {
    case Trashed::Moved:
        return TrashDrop::Moved;
    case Trashed::Copied:
        return TrashDrop::Copied;
    case Trashed::No:
        break;
    }
    return TrashDrop::Stayed;
}

QString imaTrashcan_Click(forms::Prompter& prompter, const files::Disk& disk, const QString& captureDir)
{
    const RoutineScope scope{"imaTrashcan_Click"};
    if (!text::Folded(common::CkRSlash(captureDir)).endsWith(u"TRASHCAN\\"_s)) {
        if (!prompter.YesNo({}, kToTrashDirectory))
            return {};
        // The text as it stands: without its backslash it names another directory, and nothing changes.
        const QString trash = captureDir + u"trashcan"_s;
        return disk.DirExists(trash) ? common::CkRSlash(captureDir) + u"trashcan\\"_s : QString();
    }
    return prompter.YesNo({}, kBackToCapture) ? TrashParentDir(captureDir) : QString();
}

} // namespace vasclip::photos
