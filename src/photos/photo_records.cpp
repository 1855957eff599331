#include "photos/photo_records.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/proper_case.h"
#include "photos/format_picture.h"
#include "photos/photo_files.h"
#include "photos/photo_messages.h"
#include "photos/pointed_file.h"
#include "photos/view_name.h"
#include "platform/text/text.h"
#include "store/change.h"
#include "store/messages.h"
#include "store/store.h"

#include <utility>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

const QString kPhotos = u"PHOTOS"_s;

QString PhotosOfRecord(const PhotoDesk& desk)
{
    return store::GetFieldData(desk.databook, kPhotos);
}

bool Find(PhotoDesk& desk, const QString& key)
{
    return store::FindRecord(desk.ports, desk.databook, key, store::kKeyIndex);
}

void AddRecord(PhotoDesk& desk, const QString& key)
{
    if (desk.addRecord) {
        desk.addRecord(key);
        return;
    }
    store::DataSource& book = desk.databook;
    store::Change change(book, store::Change::NewRecord{}, kAddForPhotoWords.arg(text::Folded(key)));
    change.Set(u"CENTRALKEY"_s, store::Trim2Size(book, text::Folded(key), u"CENTRALKEY"_s));
    const QString address = common::AddressInCase(text::Trim(key), desk.globals.addressCase);
    change.Set(u"ADDRESS"_s, store::Trim2Size(book, address, u"ADDRESS"_s));
    change.Store();
}

void SetRow(forms::ListBox& views, forms::ListBox& stems, const QString& view, const QString& stem)
{
    const int row = views.IndexOf(view);
    if (row >= 0) {
        stems.SetItem(row, stem);
        return;
    }
    views.AddItem(view);
    stems.AddItem(stem);
}

/// Writes the lists. Where somebody else has changed the record's photos since `before` was read, only our own
/// row goes into theirs.
/// @param stem  of our own row, "" if there is none
/// @return false if the record is gone
bool WriteOwnRow(PhotoDesk& desk, const QString& key, const QString& before, const QString& view,
                 const QString& stem)
{
    forms::ListBox& views = desk.lists.lstViews;
    forms::ListBox& stems = desk.lists.lstimages;
    engine::Transaction whole(desk.databook.Database());
    if (!Find(desk, key))
        return false;
    if (PhotosOfRecord(desk) != before) {
        ReadPhotoLists(desk.databook, views, stems);
        if (!stem.isEmpty())
            SetRow(views, stems, view, stem);
    }
    WritePhotoLists(desk.ports, desk.databook, views, stems);
    whole.Commit();
    return true;
}

/// The record did not take the photo: neither its stored file stays nor a record that was added for it.
void TakeBack(PhotoDesk& desk, const QString& key, const QString& stem, bool added)
{
    desk.PictureSaved = false;
    // A file that can't be deleted is one that no record names, which harms nobody.
    (void)DeletePhotos(desk.ports, desk.disk, desk.globals.G_PhotoDir,
                       stem.isEmpty() ? QStringList() : QStringList{stem});
    if (!added)
        return;
    try {
        if (Find(desk, key))
            store::Change::Delete(desk.databook, kTakeBackWords.arg(text::Folded(key)));
    } catch (const RuntimeError&) {
        desk.notSaved = u"The new record %1 stays, without a photo"_s.arg(key);
    }
}

/// A record that is there, or one that is added for its first photo, takes what the lists hold.
/// @param there  was it there when the lists were read?
/// @return false if it could not be added, or was deleted meanwhile
bool Enter(PhotoDesk& desk, const QString& key, const QString& before, const QString& view,
           const QString& stem, bool there)
{
    bool added = false;
    bool written = false;
    try {
        if (!there && !Find(desk, key)) {
            AddRecord(desk, key);
            added = Find(desk, key);
        }
        if (desk.setCity && Find(desk, key))
            desk.setCity();
        written = WriteOwnRow(desk, key, before, view, stem);
    } catch (const RuntimeError& failure) {
        TakeBack(desk, key, stem, added);
        if (desk.notSaved.isEmpty())
            throw;
        throw RuntimeError(failure.Number(), failure.Description() + u". "_s + desk.notSaved);
    }
    if (written || stem.isEmpty())
        return written;
    TakeBack(desk, key, stem, added);
    desk.notSaved = there ? u"%1 is not in the Databook any more"_s.arg(key)
                          : u"%1 could not be added to the Databook"_s.arg(key);
    return false;
}

/// Stores the picture under a stem of its own. @return the stem, "" if it was not stored
QString StoreUnderNewStem(PhotoDesk& desk, const QString& picture)
{
    try {
        const QString stem = findunique(desk);
        return FormatPictureNow(desk, picture, desk.geatemp, Stem::Given, stem) ? stem : QString();
    } catch (const RuntimeError& failure) {
        desk.notSaved = failure.Description(); // the photo directory lies on no drive
        return {};
    }
}

bool MayOverwrite(PhotoDesk& desk, const QString& stem, const QString& picture, const QString& key)
{
    const QString existing = common::CkRSlash(desk.globals.G_PhotoDir) + text::Trim(stem) + u".JPG"_s;
    return !desk.disk.FileExists(existing) ||
           desk.questions.Overwrite(existing, picture, text::Trim(key)) == forms::Answer::Yes;
}

/// Loads the picture into the hidden control; a corrupt one shows its dialog. @return false then
bool LoadHidden(PhotoDesk& desk, const QString& picture)
{
    desk.loader.geaClearImage(desk.geatemp);
    desk.loader.ErrLoadPict(desk.geatemp, picture);
    return !desk.loader.Table().ErrGetPict(desk.geatemp).isEmpty();
}

} // namespace

FilingCheck CheckFiling(const files::Disk& disk, const QString& key, const QString& source,
                        const QString& view)
{
    if (text::Trim(key).isEmpty())
        return FilingCheck::BlankKey;
    if (text::Trim(source).isEmpty())
        return FilingCheck::BlankSource;
    if (!disk.FileExists(source))
        return FilingCheck::MissingSource;
    return text::Trim(view).isEmpty() ? FilingCheck::BlankView : FilingCheck::Fine;
}

bool SavePhotoToViewList(PhotoDesk& desk, forms::ListBox& views, forms::ListBox& stems, const QString& given,
                         const QString& picture, const QString& key)
{
    const RoutineScope scope{"SavePhotoToViewList"};
    const QString view = CleanView(given);
    desk.PictureSaved = false;
    desk.notSaved.clear();
    if (CheckFiling(desk.disk, key, picture, view) != FilingCheck::Fine || !LoadHidden(desk, picture))
        return false;
    const int row = views.IndexOf(view);
    const PointedFile shown = PointAt(desk.disk, picture);
    if (row >= 0 && !MayOverwrite(desk, stems.List(row), picture, key))
        return false;
    if (const QString why = WhyAnother(desk.disk, shown); !why.isEmpty()) {
        desk.notSaved = why.chopped(1); // its full stop comes later
        return false;
    }
    const QString stem = StoreUnderNewStem(desk, picture);
    if (stem.isEmpty())
        return false;
    SetRow(views, stems, view, stem);
    return true;
}

bool SavePhotoToRecord(PhotoDesk& desk, const QString& key, const QString& picture, const QString& view)
{
    const RoutineScope scope{"SavePhotoToRecord"};
    if (text::Trim(key).isEmpty()) {
        desk.status.lblmsg.Show(kBlankAddress, forms::Colour::Red);
        return false;
    }
    const QString path = text::Trim(picture);
    if (path.isEmpty() || path.toUpper().contains("EMPTY"_L1)) {
        desk.status.lblmsg.Show(kNoPicture, forms::Colour::Red);
        return false;
    }
    forms::ListBox& views = desk.lists.lstViews;
    forms::ListBox& stems = desk.lists.lstimages;
    const bool there = Find(desk, key);
    QString before;
    if (there) {
        before = PhotosOfRecord(desk);
        ReadPhotoLists(desk.databook, views, stems);
    } else {
        views.Clear();
        stems.Clear();
    }
    bool saved = SavePhotoToViewList(desk, views, stems, view, path, key);
    const QString stem = saved ? stems.List(views.IndexOf(CleanView(view))) : QString();
    if (saved || there) // a refused picture is no reason for a new record
        saved = Enter(desk, key, before, CleanView(view), stem, there) && saved;
    if (!saved && !desk.notSaved.isEmpty())
        desk.status.lblmsg.Show(desk.notSaved, forms::Colour::Red);
    return saved;
}

bool SavePhotoToRecord(PhotoDesk& desk, const QString& key, const forms::PictureBox& control,
                       const QString& view)
{
    return SavePhotoToRecord(desk, key, desk.loader.Table().ErrGetPict(control), view);
}

} // namespace vasclip::photos
