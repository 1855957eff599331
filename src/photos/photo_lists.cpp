#include "photos/photo_lists.h"

#include "platform/text/text.h"
#include "store/store.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::photos {

namespace {

constexpr auto kFrontView = "FRONT VIEW"_L1;

} // namespace

PhotoLists::PhotoLists(forms::ControlSet& set)
    : lstViews(set, u"lstViews"_s)
    , lstimages(set, u"lstimages"_s)
    , txtView(set, u"txtView"_s)
    , txtimage(set, u"txtimage"_s)
    , lblLabelTag(set, u"lblLabelTag"_s)
    , lblPhotomsg(set, u"lblPhotomsg"_s)
{}

QList<PhotoPair> ParsePhotos(const QString& photos)
{
    constexpr auto kLineEnd = "\r\n"_L1;
    QList<PhotoPair> pairs;
    qsizetype at = 0;
    for (qsizetype end = photos.indexOf(kLineEnd); end > at; end = photos.indexOf(kLineEnd, at)) {
        const QString line = photos.mid(at, end - at);
        const qsizetype bar = line.indexOf(u'|');
        pairs.append(bar < 0 ? PhotoPair(line, {}) : PhotoPair(line.left(bar), line.mid(bar + 1)));
        at = end + kLineEnd.size();
    }
    return pairs;
}

void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems)
{
    views.Clear();
    stems.Clear();
    for (const auto& [view, stem] : ParsePhotos(store::GetFieldData(source, u"PHOTOS"_s))) {
        views.AddItem(view);
        stems.AddItem(stem);
    }
}

void TestFrontView(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box, const files::Disk& disk,
                   const QString& photoDir, const QString& key)
{
    const int row = lists.lstViews.IndexOf(QString(kFrontView));
    if (row < 0) {
        lists.lblPhotomsg.SetCaption(u"A 'FRONT VIEW' for '%1' is not available."_s.arg(key));
        loader.ErrClearPict(box);
        return;
    }
    lists.lstViews.SetListIndex(row);
    lists.lstimages.SetListIndex(row);
    const QString stem = lists.lstimages.List(row);
    lists.txtimage.SetText(stem);
    const QString path = photoDir + text::Trim(stem) + ".jpg"_L1;
    if (disk.FileExists(path)) {
        lists.lblPhotomsg.SetCaption({});
        loader.ErrLoadPict(box, path);
    } else {
        lists.lblPhotomsg.SetCaption(
            u"The 'FRONT VIEW' was found but the photo called %1 does not exist."_s.arg(path));
        loader.ErrClearPict(box);
    }
}

void SelectPhotoRow(PhotoLists& lists, int row, SlotLoader& loader, forms::PictureBox& box,
                    const files::Disk& disk, const QString& photoDir)
{
    if (row < 0 || row >= lists.lstViews.ListCount() || row >= lists.lstimages.ListCount())
        return;
    lists.lstViews.SetListIndex(row);
    lists.lstimages.SetListIndex(row);
    lists.txtView.SetText(lists.lstViews.List(row));
    lists.txtimage.SetText(lists.lstimages.List(row));
    const QString path = photoDir + text::Trim(lists.lstimages.List(row)) + ".JPG"_L1;
    lists.lblLabelTag.SetCaption(path);
    const bool found = disk.FileExists(path);
    box.SetVisible(found);
    if (found)
        loader.ErrLoadPict(box, path);
}

} // namespace vasclip::photos
