#include "shell/record_photos.h"

#include "common/error_block.h"
#include "photos/capture_desk.h"
#include "photos/front_view.h"
#include "photos/photo_records.h"
#include "platform/text/text.h"
#include "shell/adjust.h"
#include "shell/menu_point.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "store/fields.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

QString ShownPhoto(const Program& program)
{
    const int row = program.photoLists.lstViews.ListIndex();
    return QStringList{text::Folded(program.records.grddatabook.CurrentText(fields::CENTRALKEY)),
                       program.photoLists.lstViews.List(row), program.photoLists.lstimages.List(row)}
        .join(u'|');
}

RecordPhotos::RecordPhotos(Program& program, RecordOnShow& shown, const MenuPoint& point)
    : m_program(program)
    , m_shown(shown)
    , m_point(point)
{
    connect(&m_program.photoLists.lstViews, &forms::ListBox::ListIndexChanged, this, [this] {
        photos::SelectPhoto(m_program.photoLists, m_program.Loader(), m_program.slots.geamaintain,
                            m_program.Disk(), m_program.globals.G_PhotoDir);
    });
    const auto enable = [this] {
        const common::RoutineScope step{"Handling Photo Buttons"};
        const bool selected = m_program.photoLists.lstViews.ListIndex() >= 0;
        m_program.photoLists.CmdDeletePhoto.SetEnabled(selected);
        m_program.photoLists.CmdRenamePhotoView.SetEnabled(selected);
    };
    connect(&m_program.photoLists.lstViews, &forms::ListBox::ListIndexChanged, this, enable);
    connect(&m_program.photoLists.lstViews, &forms::ListBox::ItemsChanged, this, enable);
    connect(&m_program.photoLists.lstimages, &forms::ListBox::ListIndexChanged, this, [this] {
        if (m_program.photoLists.lstViews.ListIndex() != m_program.photoLists.lstimages.ListIndex())
            m_program.photoLists.lstViews.SetListIndex(m_program.photoLists.lstimages.ListIndex());
    });
    connect(&m_program.slots.geamaintain, &forms::Control::DoubleClicked, this,
            [this] { SlotPhoto_DblClick(m_program, m_program.slots.geamaintain); });
    connect(&m_program.photoLists.CmdDeletePhoto, &forms::Control::Clicked, this,
            &RecordPhotos::CmdDeletePhoto_Click);
    connect(&m_program.photoLists.CmdRenamePhotoView, &forms::Control::Clicked, this,
            &RecordPhotos::CmdRenamePhotoView_Click);
}

void RecordPhotos::FromMenu(void (RecordPhotos::*choice)())
{
    const QString why = ShownPhoto(m_program) == m_point.photo
                            ? photos::WhyAnother(m_program.Disk(), m_point.file)
                            : u"Another photo is on show now than when the menu opened. Nothing was done."_s;
    if (!Refused(m_program.status, why))
        (this->*choice)();
}

/// Other look-ups have moved the record since it came on show, and another user may have changed its photos.
/// @return false if there is no selected photo to work on, which has been told unless none was selected
bool RecordPhotos::StandOnShownPhoto()
{
    photos::PhotoLists& lists = m_program.photoLists;
    const QString& key = m_shown.Key();
    if (lists.lstViews.ListIndex() < 0 || !m_program.sources.datDatabook.Bound() || key.isEmpty())
        return false;
    const QString view = lists.lstViews.List(lists.lstViews.ListIndex());
    if (!store::FindRecord(m_program.Ports(), m_program.sources.datDatabook, key, fields::CENTRALKEY)) {
        m_program.status.lblmsg.Show(u"%1 is not in the Databook any more."_s.arg(key), forms::Colour::Red);
        return false;
    }
    if (photos::ParsePhotos(photos::ListedPhotos(lists.lstViews, lists.lstimages).Text()) ==
        photos::ParsePhotos(store::GetFieldData(m_program.sources.datDatabook, fields::PHOTOS)))
        return true;
    photos::ReadPhotoLists(m_program.sources.datDatabook, lists.lstViews, lists.lstimages);
    const int row = lists.lstViews.IndexOf(view);
    lists.lstViews.SetListIndex(row);
    if (row < 0)
        m_program.status.lblmsg.Show(u"%1 has no %2 any more."_s.arg(key, view), forms::Colour::Red);
    return row >= 0;
}

void RecordPhotos::CmdDeletePhoto_Click()
{
    const common::RoutineScope scope{"CmdDeletePhoto"};
    if (!StandOnShownPhoto())
        return;
    const QString view = m_program.photoLists.lstViews.List(m_program.photoLists.lstViews.ListIndex());
    if (photos::CmdDeletePhoto(m_program.Photos(), m_program.slots.geamaintain) == photos::PhotoChange::None)
        return;
    m_program.records.grddatabook.Refresh(); // the mark of the front photo and the views
    m_program.Capture().RefreshCapture();    // where its picture waits now
    m_program.status.lblmsg.Show(
        u"The %1 is deleted; its picture is back in %2."_s.arg(view, m_program.globals.G_CaptureDir),
        forms::Colour::Blue);
}

void RecordPhotos::CmdRenamePhotoView_Click()
{
    const common::RoutineScope scope{"CmdRenamePhotoView"};
    if (!StandOnShownPhoto())
        return;
    const int row = m_program.photoLists.lstViews.ListIndex();
    const QString old = m_program.photoLists.lstViews.List(row);
    if (photos::CmdRenamePhotoView(m_program.Photos()) == photos::PhotoChange::None)
        return;
    const QString fresh = m_program.photoLists.lstViews.List(row);
    m_program.records.grddatabook.Refresh();
    m_shown.ShowPhoto(); // it may have its front view now, or have it no more
    m_program.photoLists.lstViews.SetListIndex(row);
    m_program.status.lblmsg.Show(u"The %1 is the %2 now."_s.arg(old, fresh), forms::Colour::Blue);
}

} // namespace vasclip::shell
