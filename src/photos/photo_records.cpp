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
#include "store/fields.h"
#include "store/messages.h"
#include "store/store.h"
#include "store/transaction.h"

#include <utility>

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;
using common::RoutineScope;

namespace {

std::optional<PhotoList> PhotosOf(const PhotoDesk& desk, const QString& key)
{
    const std::optional<store::Record> record = store::ReadRecord(desk.ports, desk.databook, key);
    return record ? std::optional(PhotoList(*record)) : std::nullopt;
}

void AddRecord(PhotoDesk& desk, const QString& key)
{
    if (desk.addRecord) {
        desk.addRecord(key);
        return;
    }
    const store::DataSource& book = desk.databook;
    store::Change change(desk.databook, store::Change::NewKey{}, kAddForPhotoWords.arg(text::Folded(key)));
    change.Set(fields::CENTRALKEY, store::Trim2Size(book, text::Folded(key), fields::CENTRALKEY));
    const QString address = common::AddressInCase(text::Trim(key), desk.globals.addressCase);
    change.Set(fields::ADDRESS, store::Trim2Size(book, address, fields::ADDRESS));
    change.Store();
}

/// Writes the photos. Where somebody else has changed the record's since `before` was read, only our own row goes into
/// theirs.
/// @param stem  of our own row, "" if there is none
/// @return false if the record is gone
bool WriteOwnRow(PhotoDesk& desk, const QString& key, const PhotoList& before, PhotoList photos, const QString& view,
                 const QString& stem)
{
    store::Transaction whole(desk.databook);
    const std::optional<PhotoList> now = PhotosOf(desk, key);
    if (!now)
        return false;
    if (now->Pairs() != before.Pairs()) {
        photos = *now;
        if (!stem.isEmpty())
            photos.Put(view, stem);
    }
    StorePhotos(desk.databook, key, photos);
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
        (void)store::Change::DeleteKey(desk.databook, key, kTakeBackWords.arg(text::Folded(key)));
    } catch (const RuntimeError&) {
        desk.notSaved = u"The new record %1 stays, without a photo"_s.arg(key);
    }
}

/// A record that is there, or one that is added for its first photo, takes the photos.
/// @param before  what it had when they were read; nothing if it was not there
/// @return false if it could not be added, or was deleted meanwhile
bool Enter(PhotoDesk& desk, const QString& key, const std::optional<PhotoList>& before, const PhotoList& photos,
           const QString& view, const QString& stem)
{
    bool added = false;
    bool written = false;
    try {
        if (!before && !PhotosOf(desk, key)) {
            AddRecord(desk, key);
            added = PhotosOf(desk, key).has_value();
        }
        if (desk.setCity)
            desk.setCity(text::Folded(key));
        written = WriteOwnRow(desk, key, before.value_or(PhotoList()), photos, view, stem);
    } catch (const RuntimeError& failure) {
        TakeBack(desk, key, stem, added);
        if (desk.notSaved.isEmpty())
            throw;
        throw RuntimeError(failure.Number(), failure.Description() + u". "_s + desk.notSaved);
    }
    if (written || stem.isEmpty())
        return written;
    TakeBack(desk, key, stem, added);
    desk.notSaved = before ? u"%1 is not in the Databook any more"_s.arg(key)
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

bool SavePhotoToViewList(PhotoDesk& desk, PhotoList& photos, const QString& given, const QString& picture,
                         const QString& key)
{
    const RoutineScope scope{"SavePhotoToViewList"};
    const QString view = CleanView(given);
    desk.PictureSaved = false;
    desk.notSaved.clear();
    if (CheckFiling(desk.disk, key, picture, view) != FilingCheck::Fine || !LoadHidden(desk, picture))
        return false;
    const PointedFile shown = PointAt(desk.disk, picture);
    if (photos.Has(view) && !MayOverwrite(desk, photos.StemOf(view), picture, key))
        return false;
    if (const QString why = WhyAnother(desk.disk, shown); !why.isEmpty()) {
        desk.notSaved = why.chopped(1); // its full stop comes later
        return false;
    }
    const QString stem = StoreUnderNewStem(desk, picture);
    if (stem.isEmpty())
        return false;
    photos.Put(view, stem);
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
    const std::optional<PhotoList> before = PhotosOf(desk, key);
    PhotoList photos = before.value_or(PhotoList());
    bool saved = SavePhotoToViewList(desk, photos, view, path, key);
    const QString stem = saved ? photos.StemOf(CleanView(view)) : QString();
    if (saved || before) // a refused picture is no reason for a new record
        saved = Enter(desk, key, before, photos, CleanView(view), stem) && saved;
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
