#include "photos/photo_records.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/proper_case.h"
#include "photos/format_picture.h"
#include "photos/photo_messages.h"
#include "platform/text/text.h"
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
    book.Recordset().AddNew();
    store::SetFieldData(book, store::Trim2Size(book, text::Folded(key), u"CENTRALKEY"_s), u"CENTRALKEY"_s);
    const QString address = common::AddressInCase(text::Trim(key), desk.globals.addressCase);
    store::SetFieldData(book, store::Trim2Size(book, address, u"ADDRESS"_s), u"ADDRESS"_s);
    book.Recordset().Update();
}

/// A view as a line of PHOTOS can hold it.
QString LineOf(const QString& view)
{
    QString line = view;
    for (const QChar end : u"|\r\n"_s)
        line.replace(end, u' ');
    return line;
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
void WriteOwnRow(PhotoDesk& desk, const QString& key, const QString& before, const QString& view, bool saved)
{
    forms::ListBox& views = desk.lists.lstViews;
    forms::ListBox& stems = desk.lists.lstimages;
    const QString stem = saved ? stems.List(views.IndexOf(view)) : QString();
    engine::Transaction whole(desk.databook.Database());
    if (!Find(desk, key))
        return;
    if (PhotosOfRecord(desk) != before) {
        ReadPhotoLists(desk.databook, views, stems);
        if (saved)
            SetRow(views, stems, view, stem);
    }
    WritePhotoLists(desk.ports, desk.databook, views, stems);
    whole.Commit();
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

bool MayOverwrite(PhotoDesk& desk, const QString& stem, const QString& picture)
{
    const QString existing = common::CkRSlash(desk.globals.G_PhotoDir) + text::Trim(stem) + u".JPG"_s;
    return !desk.disk.FileExists(existing) ||
           desk.questions.Overwrite(existing, picture) == forms::Answer::Yes;
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

bool SavePhotoToViewList(PhotoDesk& desk, forms::ListBox& views, forms::ListBox& stems, const QString& view,
                         const QString& picture, const QString& key)
{
    const RoutineScope scope{"SavePhotoToViewList"};
    desk.PictureSaved = false;
    desk.notSaved.clear();
    if (CheckFiling(desk.disk, key, picture, view) != FilingCheck::Fine || !LoadHidden(desk, picture))
        return false;
    const int row = views.IndexOf(view);
    if (row >= 0 && !MayOverwrite(desk, stems.List(row), picture))
        return false;
    const QString stem = StoreUnderNewStem(desk, picture);
    if (stem.isEmpty())
        return false;
    SetRow(views, stems, LineOf(view), stem);
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
    if (!Find(desk, key)) {
        AddRecord(desk, key);
        if (!Find(desk, key))
            return false;
    }
    const QString before = PhotosOfRecord(desk);
    ReadPhotoLists(desk.databook, desk.lists.lstViews, desk.lists.lstimages);
    const bool saved =
        SavePhotoToViewList(desk, desk.lists.lstViews, desk.lists.lstimages, view, path, key);
    if (!saved && !desk.notSaved.isEmpty())
        desk.status.lblmsg.Show(desk.notSaved, forms::Colour::Red);
    if (desk.setCity && Find(desk, key))
        desk.setCity();
    WriteOwnRow(desk, key, before, LineOf(view), saved);
    return saved;
}

bool SavePhotoToRecord(PhotoDesk& desk, const QString& key, const forms::PictureBox& control,
                       const QString& view)
{
    return SavePhotoToRecord(desk, key, desk.loader.Table().ErrGetPict(control), view);
}

} // namespace vasclip::photos
