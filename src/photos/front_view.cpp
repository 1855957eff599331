#include "photos/front_view.h"

#include "common/error_block.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

void SelectPhoto(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box, const files::Disk& disk,
                 const QString& photoDir)
{
    const int row = lists.lstViews.ListIndex();
    lists.lstimages.SetListIndex(row);
    lists.txtView.SetText(lists.lstViews.List(row));
    const QString stem = text::Trim(lists.lstimages.List(row));
    lists.txtimage.SetText(stem);
    if (row < 0)
        return;
    const QString path = photoDir + stem + u".JPG"_s;
    lists.lblLabelTag.SetCaption(path);
    const common::RoutineScope step{"Photo Box View"};
    if (!disk.FileExists(path)) {
        box.SetVisible(false);
        return;
    }
    box.SetVisible(true);
    loader.ErrLoadPict(box, path);
}

void TestFrontView(const store::DataSource& source, const QString& key, PhotoLists& lists, SlotLoader& loader,
                   forms::PictureBox& box, const files::Disk& disk, const QString& photoDir)
{
    const QString view = u"FRONT VIEW"_s;
    lists.lblPhotomsg.SetCaption({});
    {
        const common::RoutineScope step{"List Photos"};
        ReadPhotoLists(source, lists.lstViews, lists.lstimages);
    }
    const common::RoutineScope step{"Checking Front View"};
    const int row = lists.lstViews.IndexOf(view);
    if (row < 0) {
        lists.lblPhotomsg.SetCaption(u"A 'FRONT VIEW' for '"_s + key + u"' is not available."_s);
        lists.txtView.SetText({}); // no row is selected: those of the record before must not stay
        lists.txtimage.SetText({});
        loader.ErrClearPict(box);
        return;
    }
    const QString stem = text::Trim(lists.lstimages.List(row));
    lists.lstViews.SetListIndex(row);
    lists.lstimages.SetListIndex(row);
    lists.txtimage.SetText(stem);
    const QString path = photoDir + stem + u".jpg"_s;
    if (!disk.FileExists(path)) {
        lists.lblPhotomsg.SetCaption(u"The 'FRONT VIEW' was found but the photo called "_s + path +
                                     u" does not exist."_s);
        loader.ErrClearPict(box);
        return;
    }
    // On the main window the selection has loaded the file by now.
    if (text::Folded(loader.Table().ErrGetPict(box)) != text::Folded(path))
        SelectPhoto(lists, loader, box, disk, photoDir);
}

void ShowNoPhotos(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box)
{
    lists.lstViews.Clear();
    lists.lstimages.Clear();
    lists.txtView.SetText({});
    lists.txtimage.SetText({});
    lists.lblLabelTag.SetCaption({});
    lists.lblPhotomsg.SetCaption({});
    loader.ErrClearPict(box);
}

} // namespace vasclip::photos
