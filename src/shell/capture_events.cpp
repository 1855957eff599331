#include "shell/capture_events.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/capture_desk.h"
#include "photos/frm_camera_dir.h"
#include "photos/photo_files.h"
#include "photos/trash_icon.h"
#include "platform/text/text.h"
#include "shell/adjust.h"
#include "shell/media.h"
#include "shell/pop_ups.h"
#include "shell/program.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

CaptureEvents::CaptureEvents(Program& program, PopUps& popUps)
    : m_program(program)
    , m_popUps(popUps)
{
    photos::CaptureDesk* desk = &program.Capture();
    const photos::CaptureControls& capture = program.capture;
    for (int i = 0; i < photos::CaptureControls::kThumbs; ++i) {
        connect(&capture.geathumb(i), &forms::Control::Pressed, desk,
                [desk, i] { desk->geathumb_MouseDown(i); });
        connect(&capture.geathumb(i), &forms::Control::Hovered, desk,
                [desk, i] { desk->geathumb_MouseMove(i); });
        connect(&capture.geathumb(i), &forms::Control::DoubleClicked, this,
                [this, i] { geathumb_DblClick(i); });
    }
    connect(&capture.imaGetPics, &forms::Control::Clicked, this, [this] { CopyFromReader(m_program); });
    for (int i = 0; i < 4; ++i)
        connect(&capture.imaScroll(i), &forms::Control::Clicked, desk,
                [desk, i] { desk->imaScroll_Click(i); });
    connect(&capture.filCapture, &forms::Control::Clicked, desk, &photos::CaptureDesk::filCapture_Click);
    connect(&capture.lblTab, &forms::Control::Clicked, this, &CaptureEvents::ShowCameraDir);
    connect(&capture.imaFolder, &forms::Control::Clicked, this, &CaptureEvents::ShowCameraDir);
    connect(&capture.imaTrashcan, &forms::Control::Clicked, this, &CaptureEvents::imaTrashcan_Click);
}

void CaptureEvents::geathumb_DblClick(int index)
{
    const QString moved = m_program.Capture().MovedSincePress(index);
    (void)m_popUps.MenuOver(m_program.capture.geathumb(index));
    if (!Refused(m_program.status, moved))
        CompressImage();
}

void CaptureEvents::imaTrashcan_Click()
{
    const QString place =
        photos::imaTrashcan_Click(m_program.Prompter(), m_program.Disk(), m_program.globals.G_CaptureDir);
    if (!place.isEmpty())
        m_program.Capture().ShowDirectory(place);
}

void CaptureEvents::ShowCapture()
{
    const common::RoutineScope scope{"DisplayCamera"};
    if (!m_program.life.unloaded)
        m_program.Capture().StartBrowsing();
}

void CaptureEvents::ShowCameraDir()
{
    const common::RoutineScope scope{"ShowCameraDir"};
    const QString before = m_program.globals.G_CaptureDir;
    photos::frm_CameraDir screen(m_program.Ports(), m_program.Disk(), m_program.globals,
                                 m_program.globals.G_ProgramDir);
    m_program.Ports().screens.ShowModal(screen);
    if (screen.Changed() && text::Folded(before) != text::Folded(m_program.globals.G_CaptureDir))
        m_program.Capture().DisplayCamera();
    else
        m_program.Capture().RefreshCapture();
}

void CaptureEvents::CompressImage()
{
    const MenuPoint& point = m_popUps.Point();
    const QString path = point.file.path;
    if (path.isEmpty() || Refused(m_program.status, photos::WhyAnother(m_program.Disk(), point.file)))
        return;
    const bool thumb = text::Folded(point.control) == u"GEATHUMB"_s;
    const auto [shown, refresh] = Adjust(m_program, path);
    m_program.Capture().Loader().Forget(path);
    if (thumb && !refresh)
        m_program.Capture().ReloadThumb(path, shown);
    else
        m_program.Capture().RefreshCapture();
}

void CaptureEvents::DeleteKeyOn(const forms::Control& thumb)
{
    const QString moved = m_program.Capture().MovedSincePress(thumb.Index());
    if (m_popUps.MenuOver(thumb) != nullptr && !Refused(m_program.status, moved))
        DeleteImage();
}

void CaptureEvents::DeleteImage()
{
    const common::RoutineScope scope{"popThumb_M"};
    const MenuPoint& point = m_popUps.Point();
    const QString path = point.file.path;
    const auto* control = m_program.controls.Find(point.control, point.index);
    if (path.isEmpty() || control == nullptr)
        return;
    QString why;
    const auto deleted = photos::DelPointed(
        m_program.Ports(), m_program.Disk(), point.file,
        u"Permanently delete this photo (this is NOT sent to the trashcan).  Are you sure?"_s, why);
    if (Refused(m_program.status, why) || deleted != photos::Deletion::Done)
        return;
    if (text::Folded(m_program.SlotTable().ErrGetPict(*control)) == text::Folded(path))
        m_program.SlotTable().ErrSetPict(*control, {});
    m_program.Capture().Loader().Forget(path);
    m_program.Capture().RefreshCapture();
    m_program.status.lblmsg.Show(u"%1 is deleted."_s.arg(common::WholeFileName(path)), forms::Colour::Blue);
}

} // namespace vasclip::shell
