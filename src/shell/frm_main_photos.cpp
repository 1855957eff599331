// The photos of the record on show: their lists, their buttons, their pop-up menu.

#include "common/error_block.h"
#include "photos/capture_desk.h"
#include "photos/front_view.h"
#include "photos/photo_records.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::WirePhotos()
{
    connect(&photoLists.lstViews, &forms::ListBox::ListIndexChanged, this, [this] {
        photos::SelectPhoto(photoLists, *m_slotLoader, slots.geamaintain, m_base.disk, globals.G_PhotoDir);
    });
    const auto enable = [this] {
        const common::RoutineScope step{"Handling Photo Buttons"};
        const bool selected = photoLists.lstViews.ListIndex() >= 0;
        photoLists.CmdDeletePhoto.SetEnabled(selected);
        photoLists.CmdRenamePhotoView.SetEnabled(selected);
    };
    connect(&photoLists.lstViews, &forms::ListBox::ListIndexChanged, this, enable);
    connect(&photoLists.lstViews, &forms::ListBox::ItemsChanged, this, enable);
    connect(&photoLists.lstimages, &forms::ListBox::ListIndexChanged, this, [this] {
        if (photoLists.lstViews.ListIndex() != photoLists.lstimages.ListIndex())
            photoLists.lstViews.SetListIndex(photoLists.lstimages.ListIndex());
    });
    connect(&slots.geamaintain, &forms::Control::DoubleClicked, this,
            [this] { SlotPhoto_DblClick(slots.geamaintain); });
    connect(&photoLists.CmdDeletePhoto, &forms::Control::Clicked, this, &frm_Main::CmdDeletePhoto_Click);
    connect(&photoLists.CmdRenamePhotoView, &forms::Control::Clicked, this, &frm_Main::CmdRenamePhotoView_Click);
    connect(&popPhoto_M, &forms::Menu::Chosen, this, [this](const QString&, int index) {
        if (Refused(ShownPhoto() == m_menuPhoto ? photos::WhyAnother(m_base.disk, m_menuFile)
                                                : u"Another photo is on show now than when the menu opened. "
                                                  u"Nothing was done."_s))
            return;
        if (index == 0)
            CmdRenamePhotoView_Click();
        else
            CmdDeletePhoto_Click();
    });
}

/// Record, view and file name of the selected photo of the record on show.
QString frm_Main::ShownPhoto() const
{
    const int row = photoLists.lstViews.ListIndex();
    return QStringList{text::Folded(records.grddatabook.CurrentText(u"CENTRALKEY"_s)), photoLists.lstViews.List(row),
                       photoLists.lstimages.List(row)}
        .join(u'|');
}

/// Other look-ups have moved the record since it came on show, and another user may have changed its photos.
/// @return false if there is no selected photo to work on, which has been told unless none was selected
bool frm_Main::StandOnShownPhoto()
{
    photos::PhotoLists& lists = photoLists;
    const QString& key = m_shownKey;
    if (lists.lstViews.ListIndex() < 0 || !sources.datDatabook.Bound() || key.isEmpty())
        return false;
    const QString view = lists.lstViews.List(lists.lstViews.ListIndex());
    if (!store::FindRecord(m_base.ports, sources.datDatabook, key, u"CENTRALKEY"_s)) {
        status.lblmsg.Show(u"%1 is not in the Databook any more."_s.arg(key), forms::Colour::Red);
        return false;
    }
    if (photos::ParsePhotos(photos::ComposePhotos(lists.lstViews, lists.lstimages)) ==
        photos::ParsePhotos(store::GetFieldData(sources.datDatabook, u"PHOTOS"_s)))
        return true;
    photos::ReadPhotoLists(sources.datDatabook, lists.lstViews, lists.lstimages);
    const int row = lists.lstViews.IndexOf(view);
    lists.lstViews.SetListIndex(row);
    if (row < 0)
        status.lblmsg.Show(u"%1 has no %2 any more."_s.arg(key, view), forms::Colour::Red);
    return row >= 0;
}

void frm_Main::CmdDeletePhoto_Click()
{
    const common::RoutineScope scope{"CmdDeletePhoto"};
    if (!StandOnShownPhoto())
        return;
    const QString view = photoLists.lstViews.List(photoLists.lstViews.ListIndex());
    if (photos::CmdDeletePhoto(*m_photos, slots.geamaintain) == photos::PhotoChange::None)
        return;
    records.grddatabook.Refresh(); // the mark of the front photo and the views
    m_capture->RefreshCapture();   // where its picture waits now
    status.lblmsg.Show(u"The %1 is deleted; its picture is back in %2."_s.arg(view, globals.G_CaptureDir),
                       forms::Colour::Blue);
}

void frm_Main::CmdRenamePhotoView_Click()
{
    const common::RoutineScope scope{"CmdRenamePhotoView"};
    if (!StandOnShownPhoto())
        return;
    const int row = photoLists.lstViews.ListIndex();
    const QString old = photoLists.lstViews.List(row);
    if (photos::CmdRenamePhotoView(*m_photos) == photos::PhotoChange::None)
        return;
    const QString fresh = photoLists.lstViews.List(row);
    records.grddatabook.Refresh();
    ShowRecordPhoto(); // it may have its front view now, or have it no more
    photoLists.lstViews.SetListIndex(row);
    status.lblmsg.Show(u"The %1 is the %2 now."_s.arg(old, fresh), forms::Colour::Blue);
}

} // namespace vasclip::shell
