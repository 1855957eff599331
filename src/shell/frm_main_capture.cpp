// The capture browser of the main screen: its events, its directory, its pop-up menu.

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/capture_desk.h"
#include "photos/frm_camera_dir.h"
#include "photos/frm_double.h"
#include "photos/photo_copies.h"
#include "photos/photo_files.h"
#include "photos/trash_icon.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
#include "shell/menus.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// The adjust window on a picture. @return the file that is to be shown from now on, and whether it changed
/// which files there are
std::pair<QString, bool> Adjust(const photos::AdjustDesk& desk, const QString& path)
{
    photos::frm_Double screen(desk, path);
    desk.ports.screens.ShowModal(screen);
    return {screen.Result().isEmpty() ? path : screen.Result(), screen.RefreshThumbs()};
}

} // namespace

void frm_Main::WireCapture()
{
    photos::CaptureDesk* desk = m_capture.get();
    m_slotLoader->SetThumbTags(&capture.lbltag);
    m_slotLoader->SetWriteProtect([this](const QString& path) {
        photos::ApplyWriteProtect(m_base.ports, m_base.disk, globals, path);
    });
    for (int i = 0; i < photos::CaptureControls::kThumbs; ++i) {
        connect(&capture.geathumb(i), &forms::Control::Pressed, desk, [desk, i] { desk->geathumb_MouseDown(i); });
        connect(&capture.geathumb(i), &forms::Control::Hovered, desk, [desk, i] { desk->geathumb_MouseMove(i); });
        connect(&capture.geathumb(i), &forms::Control::DoubleClicked, this, [this, i] {
            const QString moved = m_capture->MovedSincePress(i);
            (void)MenuOver(capture.geathumb(i));
            if (!Refused(moved))
                popThumb_M_Click(3);
        });
    }
    connect(&capture.imaGetPics, &forms::Control::Clicked, this, [this] { MenuChosen(u"mnuFileItem"_s, 3); });
    for (int i = 0; i < 4; ++i)
        connect(&capture.imaScroll(i), &forms::Control::Clicked, desk, [desk, i] { desk->imaScroll_Click(i); });
    connect(&capture.filCapture, &forms::Control::Clicked, desk, &photos::CaptureDesk::filCapture_Click);
    connect(&capture.lblTab, &forms::Control::Clicked, this, &frm_Main::ShowCameraDir);
    connect(&capture.imaFolder, &forms::Control::Clicked, this, &frm_Main::ShowCameraDir);
    connect(&capture.imaTrashcan, &forms::Control::Clicked, this, [this] {
        const QString place =
            photos::imaTrashcan_Click(m_base.ports.prompter, m_base.disk, globals.G_CaptureDir);
        if (!place.isEmpty())
            m_capture->ShowDirectory(place);
    });
    connect(desk, &photos::CaptureDesk::ViewChanged, this, &frm_Main::ShowViewTicks);
    connect(&popThumb_M, &forms::Menu::Chosen, this,
            [this](const QString&, int index) { popThumb_M_Click(index); });
}

void frm_Main::ShowCapture()
{
    const common::RoutineScope scope{"DisplayCamera"};
    if (!m_unloaded)
        m_capture->StartBrowsing();
}

void frm_Main::ShowViewTicks()
{
    mnuSetupItem.SetEntryChecked(kImageNamesEntry, m_capture->NamesOn());
    mnuSetupItem.SetEntryChecked(kImageListEntry, m_capture->ListMode());
    popThumb_M.SetEntryChecked(2, m_capture->NamesOn());
    popThumb_M.SetEntryChecked(5, m_capture->ListMode());
}

bool frm_Main::CaptureChosen(const QString& array, int index)
{
    if (array == u"mnuSetupItem"_s && index == kImageNamesEntry)
        m_capture->ToggleFileNames();
    else if (array == u"mnuSetupItem"_s && index == kImageListEntry)
        m_capture->ToggleListBox();
    else if (array == u"mnuMaintItem"_s && index == 2)
        ShowCameraDir();
    else
        return false;
    return true;
}

void frm_Main::ShowCameraDir()
{
    const common::RoutineScope scope{"ShowCameraDir"};
    const QString before = globals.G_CaptureDir;
    photos::frm_CameraDir screen(m_base.ports, m_base.disk, globals, globals.G_ProgramDir);
    m_base.ports.screens.ShowModal(screen);
    if (screen.Changed() && text::Folded(before) != text::Folded(globals.G_CaptureDir))
        m_capture->DisplayCamera();
    else
        m_capture->RefreshCapture();
}

void frm_Main::popThumb_M_Click(int index)
{
    if (index == 0)
        DeleteImage();
    else if (index == 2)
        m_capture->ToggleFileNames();
    else if (index == 5)
        m_capture->ToggleListBox();
    if (index != 3)
        return;
    const QString path = m_menuFile.path;
    if (path.isEmpty() || Refused(photos::WhyAnother(m_base.disk, m_menuFile)))
        return;
    const bool thumb = text::Folded(m_menuControl) == u"GEATHUMB"_s;
    const auto [shown, refresh] = Adjust({m_base.ports, m_base.disk, globals, *m_slotLoader}, path);
    m_capture->Loader().Forget(path);
    if (thumb && !refresh)
        m_capture->ReloadThumb(path, shown);
    else
        m_capture->RefreshCapture();
}

void frm_Main::DeleteKeyOn(const forms::Control& thumb)
{
    const QString moved = m_capture->MovedSincePress(thumb.Index());
    if (MenuOver(thumb) == &popThumb_M && !Refused(moved))
        popThumb_M_Click(0);
}

/// A photo opens in the adjust window and is shown anew behind it.
void frm_Main::SlotPhoto_DblClick(forms::PictureBox& slot)
{
    const common::RoutineScope scope{"SlotPhoto_DblClick"};
    const QString path = text::Trim(m_slotTable.ErrGetPict(slot));
    if (path.isEmpty()) {
        m_base.ports.prompter.Box(globals.productName, u"The photo box is empty."_s);
        return;
    }
    const auto [shown, refresh] = Adjust({m_base.ports, m_base.disk, globals, *m_slotLoader}, path);
    if (text::Folded(m_slotTable.ErrGetPict(slot)) == text::Folded(path)) // else another photo has come on show
        m_slotLoader->ErrLoadThumb(slot, shown);
    if (refresh)
        m_capture->RefreshCapture();
}

/// The picture under the menu goes for good.
void frm_Main::DeleteImage()
{
    const common::RoutineScope scope{"popThumb_M"};
    const QString path = m_menuFile.path;
    const auto* control = controls.Find(m_menuControl, m_menuIndex);
    if (path.isEmpty() || control == nullptr)
        return;
    QString why;
    const auto deleted = photos::DelPointed(
        m_base.ports, m_base.disk, m_menuFile,
        u"Permanently delete this photo (this is NOT sent to the trashcan).  Are you sure?"_s, why);
    if (Refused(why) || deleted != photos::Deletion::Done)
        return;
    if (text::Folded(m_slotTable.ErrGetPict(*control)) == text::Folded(path))
        m_slotTable.ErrSetPict(*control, {});
    m_capture->Loader().Forget(path);
    m_capture->RefreshCapture();
    status.lblmsg.Show(u"%1 is deleted."_s.arg(common::WholeFileName(path)), forms::Colour::Blue);
}

} // namespace vasclip::shell
