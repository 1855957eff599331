#include "photos/photo_records.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/content.h"
#include "photos/front_view.h"
#include "photos/photo_copies.h"
#include "photos/photo_files.h"
#include "photos/photo_messages.h"
#include "photos/pointed_file.h"
#include "photos/trash.h"
#include "photos/view_name.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/messages.h"
#include "store/store.h"
#include "store/transaction.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

QString FileOf(const PhotoDesk& desk, const QString& stem)
{
    return common::CkRSlash(desk.globals.G_PhotoDir) + text::Trim(stem) + u".JPG"_s;
}

QString CopyOf(const PhotoDesk& desk, const QString& file)
{
    return common::CkRSlash(desk.globals.G_CaptureDir) + file.mid(file.lastIndexOf(u'\\') + 1);
}

/// Back among the pictures that wait to be filed, where it may be overwritten and deleted like them.
/// @return false if there is a file and no copy of it came to be
bool GiveBack(PhotoDesk& desk, const QString& file)
{
    if (!desk.disk.FileExists(file))
        return true;
    const QString copy = CopyOf(desk, file);
    if (desk.disk.FileExists(copy)) {
        if (!SameContent(desk.disk, file, copy)) // a picture that may be nowhere else
            KeepInTrash(desk.disk, copy);
        if (desk.disk.FileExists(copy))
            desk.disk.SetAttr(copy, files::Normal);
    }
    if (!CopyThePhoto(desk, file))
        return false;
    desk.disk.SetAttr(copy, files::Normal);
    return true;
}

/// Takes the pair out of both lists, wherever it stands in them.
void RemovePair(PhotoLists& lists, const QString& view, const QString& stem)
{
    for (int row = lists.lstViews.ListCount() - 1; row >= 0; --row) {
        if (text::Folded(lists.lstViews.List(row)) != text::Folded(view) ||
            text::Folded(lists.lstimages.List(row)) != text::Folded(stem))
            continue;
        lists.lstViews.RemoveItem(row);
        lists.lstimages.RemoveItem(row);
    }
}

/// Stands on the record again and reads its photos as they are now: a turn of the queue, or another user, may
/// have changed either. @return false if the record is gone
bool ReadAgain(PhotoDesk& desk, const QString& key)
{
    if (!store::FindRecord(desk.ports, desk.databook, key, store::kKeyIndex))
        return false;
    ReadPhotoLists(desk.databook, desk.lists.lstViews, desk.lists.lstimages);
    return true;
}

/// Takes the pair out of the record as it is now. @return false if the record is gone
bool LetGo(PhotoDesk& desk, const QString& key, const QString& view, const QString& stem)
{
    store::Transaction whole(desk.databook);
    if (!ReadAgain(desk, key))
        return false;
    RemovePair(desk.lists, view, stem);
    WritePhotoLists(desk.ports, desk.databook, desk.lists.lstViews, desk.lists.lstimages);
    whole.Commit();
    return true;
}

/// The record keeps its photo: a copy that was made for the deletion goes, and the lists show the photo again.
void KeepPhoto(PhotoDesk& desk, const QString& key, const QString& copy)
{
    try {
        QString prompt;
        (void)DelPict(desk.ports, desk.disk, copy, Quiet::Yes, prompt); // no copy is no file
        (void)ReadAgain(desk, key);
    } catch (const RuntimeError&) {
        // What refused the deletion is told; a copy that stays waits to be filed once more.
    }
}

/// Deletes the stored file of a photo that no record names any more; one that stays is told.
void DeleteStored(PhotoDesk& desk, const QString& key, const QString& view, const QString& file)
{
    try {
        QString prompt;
        (void)DelPict(desk.ports, desk.disk, file, Quiet::Yes, prompt);
    } catch (const RuntimeError& failure) {
        desk.ports.prompter.Box({}, u"%1 has no %2 any more, and its picture is back in %3; but %4 could not be "
                                    u"deleted and stays: %5."_s.arg(key, view, desk.globals.G_CaptureDir, file,
                                                                   failure.Description()));
    }
}

void ShowFirst(PhotoDesk& desk, forms::PictureBox& geamaintain)
{
    desk.lists.lstViews.SetListIndex(0);
    const QString path = FileOf(desk, desk.lists.lstimages.List(0));
    if (text::Folded(desk.loader.Table().ErrGetPict(geamaintain)) != text::Folded(path))
        SelectPhoto(desk.lists, desk.loader, geamaintain, desk.disk,
                    common::CkRSlash(desk.globals.G_PhotoDir));
}

void ShowNone(PhotoDesk& desk, forms::PictureBox& geamaintain)
{
    desk.lists.txtView.SetText({});
    desk.lists.txtimage.SetText({});
    desk.lists.lblPhotomsg.SetCaption({});
    desk.loader.ErrClearPict(geamaintain);
}

} // namespace

PhotoChange CmdDeletePhoto(PhotoDesk& desk, forms::PictureBox& geamaintain)
{
    const RoutineScope scope{"CmdDeletePhoto"};
    PhotoLists& lists = desk.lists;
    const int row = lists.lstViews.ListIndex();
    if (row < 0)
        return PhotoChange::None;
    // While the question stands, another record may come on show.
    const QString key = store::GetFieldData(desk.databook, fields::CENTRALKEY);
    const QString view = lists.lstViews.List(row);
    const QString stem = lists.lstimages.List(row);
    const QString file = FileOf(desk, stem);
    const PointedFile picture = PointAt(desk.disk, file);
    if (!desk.ports.prompter.YesNo({}, kDeletePhoto))
        return PhotoChange::None;
    if (const QString why = WhyAnother(desk.disk, picture); !why.isEmpty()) {
        desk.notSaved = why.chopped(1); // its full stop comes later
        desk.status.lblmsg.Show(why, forms::Colour::Red);
        return PhotoChange::None;
    }
    const bool copied = desk.disk.FileExists(file) && !desk.disk.FileExists(CopyOf(desk, file));
    if (!GiveBack(desk, file))
        return PhotoChange::None; // the only copy stays
    const QString copy = copied ? CopyOf(desk, file) : QString();
    try {
        if (!LetGo(desk, key, view, stem)) {
            KeepPhoto(desk, key, copy);
            desk.notSaved = u"%1 is not in the Databook any more"_s.arg(text::Trim(key));
            desk.status.lblmsg.Show(desk.notSaved, forms::Colour::Red);
            return PhotoChange::None;
        }
    } catch (const RuntimeError&) {
        KeepPhoto(desk, key, copy);
        throw;
    }
    DeleteStored(desk, text::Trim(key), view, file);
    ReadPhotoLists(desk.databook, lists.lstViews, lists.lstimages);
    if (lists.lstViews.ListCount() > 0) {
        ShowFirst(desk, geamaintain);
        return PhotoChange::Changed;
    }
    ShowNone(desk, geamaintain);
    return PhotoChange::LastGone;
}

PhotoChange CmdRenamePhotoView(PhotoDesk& desk)
{
    const RoutineScope scope{"CmdRenamePhotoView"};
    PhotoLists& lists = desk.lists;
    const int selected = lists.lstViews.ListIndex();
    if (selected < 0)
        return PhotoChange::None;
    const QString key = store::GetFieldData(desk.databook, fields::CENTRALKEY);
    const QString old = lists.lstViews.List(selected);
    desk.CurrentView =
        desk.questions.View(FileOf(desk, lists.lstimages.List(selected)), old, text::Trim(key));
    const QString fresh = CleanView(std::exchange(desk.CurrentView, QString()));
    if (text::Trim(fresh).isEmpty())
        return PhotoChange::None;
    if (lists.lstViews.IndexOf(fresh) >= 0) {
        desk.ports.prompter.Box(kNameInUseTitle, kNameInUse);
        return PhotoChange::None;
    }
    store::Transaction whole(desk.databook);
    if (!ReadAgain(desk, key))
        return PhotoChange::None;
    const int row = lists.lstViews.IndexOf(old);
    if (row < 0 || lists.lstViews.IndexOf(fresh) >= 0)
        return PhotoChange::None; // another user was quicker
    lists.lstViews.SetListIndex(row);
    lists.txtView.SetText(fresh);
    lists.lstViews.SetItem(row, fresh);
    WritePhotoLists(desk.ports, desk.databook, lists.lstViews, lists.lstimages);
    whole.Commit();
    return PhotoChange::Changed;
}

} // namespace vasclip::photos
