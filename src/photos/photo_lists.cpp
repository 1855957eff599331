#include "photos/photo_lists.h"

#include "common/error_block.h"
#include "photos/photo_messages.h"
#include "store/change.h"
#include "store/fields.h"
#include "store/store.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

PhotoLists::PhotoLists(forms::ControlSet& set)
    : lstViews(set, u"lstViews"_s)
    , lstimages(set, u"lstimages"_s)
    , txtView(set, u"txtView"_s)
    , txtimage(set, u"txtimage"_s)
    , lblLabelTag(set, u"lblLabelTag"_s)
    , lblPhotomsg(set, u"lblPhotomsg"_s)
    , CmdDeletePhoto(set, u"CmdDeletePhoto"_s)
    , CmdRenamePhotoView(set, u"CmdRenamePhotoView"_s)
{
    CmdDeletePhoto.SetCaption(u"Delete Photo"_s);
    CmdDeletePhoto.SetToolTipText(u"Delete the selected photo of the record (Del); its picture goes back to the "
                                  u"capture directory"_s);
    CmdRenamePhotoView.SetCaption(u"Rename View"_s);
    CmdRenamePhotoView.SetToolTipText(u"Give the selected photo another view (F2)"_s);
    CmdDeletePhoto.SetEnabled(false);
    CmdRenamePhotoView.SetEnabled(false);
}

void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems)
{
    views.Clear();
    stems.Clear();
    for (const auto& [view, stem] : ParsePhotos(store::GetFieldData(source, fields::PHOTOS))) {
        views.AddItem(view);
        stems.AddItem(stem);
    }
}

PhotoList ListedPhotos(const forms::ListBox& views, const forms::ListBox& stems)
{
    QList<PhotoPair> pairs;
    for (int row = 0; row < views.ListCount(); ++row)
        pairs.append({views.List(row), stems.List(row)});
    return PhotoList(pairs);
}

void SetFrontFlag(store::DataSource& source, const PhotoList& photos)
{
    store::SetFieldData(source, photos.Has(kFrontView) ? u"1"_s : QString(), fields::FRONT);
}

void StorePhotos(store::DataSource& source, const QString& key, const PhotoList& photos)
{
    store::Change change(source, store::Change::OfKey{key}, kPhotosWords);
    change.Set(fields::PHOTOS, photos.Text());
    SetFrontFlag(change.Source(), photos);
    change.Store();
}

void WritePhotoLists(const forms::Ports& ports, store::DataSource& source, const forms::ListBox& views,
                     const forms::ListBox& stems)
{
    const common::RoutineScope scope{"WritePhotoLists"};
    const QString key = store::GetFieldData(source, fields::CENTRALKEY);
    const PhotoList photos = ListedPhotos(views, stems);
    store::Change change(source, kPhotosWords);
    change.Set(fields::PHOTOS, photos.Text());
    SetFrontFlag(source, photos);
    store::Updateandfind(ports, source, key);
}

} // namespace vasclip::photos
