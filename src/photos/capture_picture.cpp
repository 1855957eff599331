// One picture of the capture browser: selected, previewed, consumed, loaded anew.

#include "common/error_block.h"
#include "common/paths.h"
#include "photos/capture_desk.h"
#include "platform/text/text.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

void CaptureDesk::geathumb_MouseDown(int index)
{
    forms::ListBox& list = m_controls.filCapture;
    if (const int row = list.TopIndex() + index; row < list.ListCount())
        list.SetListIndex(row);
    m_pressed = index;
    m_pressedFile = FileOfThumb(index);
}

QString CaptureDesk::MovedSincePress(int index) const
{
    if (m_pressed != index || m_pressedFile.isEmpty())
        return {};
    const QString now = m_controls.geathumb(index).Visible() ? FileOfThumb(index) : QString();
    if (text::Folded(now) == text::Folded(m_pressedFile))
        return {};
    return now.isEmpty() ? u"%1 no longer stands here. Nothing was done."_s.arg(common::WholeFileName(m_pressedFile))
                         : u"The pictures have moved: %1 stands here now, no longer %2. Nothing was done."_s.arg(
                               common::WholeFileName(now), common::WholeFileName(m_pressedFile));
}

void CaptureDesk::geathumb_MouseMove(int index)
{
    const QSize pixels = PixelsOfThumb(index);
    if (pixels.isEmpty() || FileOfThumb(index).isEmpty())
        return;
    m_base.status.lblmsg.Show(u"Resolution: %1 x %2"_s.arg(pixels.width()).arg(pixels.height()),
                              forms::Colour::Normal);
}

void CaptureDesk::filCapture_Click()
{
    const common::RoutineScope scope{"filCapture_Click"};
    PreviewSelected();
    TellPlace();
}

/// A press highlights a row and may be let go elsewhere, which is no click; nothing may then be done to the row
/// that was highlighted before.
void CaptureDesk::FollowHighlight()
{
    if (!m_browsing || !ListMode())
        return;
    ShowPreview();
    m_followed = SelectedFile();
    TellPlace();
}

/// Unless it has come on show with its highlight.
void CaptureDesk::PreviewSelected()
{
    const QString followed = std::exchange(m_followed, QString());
    if (followed.isEmpty() || followed != SelectedFile())
        ShowPreview();
}

/// The file selected in the list becomes the list's file; its picture comes when it is there.
void CaptureDesk::ShowPreview()
{
    const QString path = SelectedFile();
    m_base.loader.Table().ErrSetPict(m_controls.filCapture, path);
    if (!m_controls.geaListBox.Visible() || path.isEmpty()) {
        m_controls.geaListBox.SetPicture({});
        return;
    }
    m_controls.lblListBox.SetVisible(true);
    m_controls.geaListBox.ShowWithout(forms::NoPicture::Waiting);
    m_controls.geaListBox.SetToolTipText(path);
    m_loader.Renew(path);
    AskForPictures();
}

void CaptureDesk::HideThumbOf(const QString& path)
{
    for (int i = 0; i < CaptureControls::kThumbs; ++i) {
        if (text::Folded(FileOfThumb(i)) != text::Folded(path))
            continue;
        m_controls.geathumb(i).SetVisible(false);
        m_controls.lbltag(i).SetVisible(false);
    }
}

void CaptureDesk::ReloadThumb(const QString& path, const QString& shown)
{
    m_loader.Forget(shown);
    for (int i = 0; i < CaptureControls::kThumbs; ++i) {
        if (text::Folded(FileOfThumb(i)) != text::Folded(path))
            continue;
        if (text::Trim(shown).isEmpty() || !m_base.disk.FileExists(shown))
            ClearThumbAt(i);
        else
            ShowThumb(i, shown, {});
    }
    DisplayImageLabels();
    AskForPictures();
}

/// Swaps the two frames; the list shows its selected file.
void CaptureDesk::ViewFilCapture()
{
    const common::RoutineScope scope{"ViewFilCapture"};
    const bool list = ListMode();
    m_controls.fraCapture.SetVisible(list);
    m_controls.filCapture.SetVisible(list);
    m_controls.geaListBox.SetVisible(list);
    m_controls.lblListBox.SetVisible(list);
    m_controls.fraPics.SetVisible(!list);
    Q_EMIT ViewChanged();
    if (!m_browsing)
        return;
    if (list)
        ShowPreview();
    errdisplayThumbs();
    TellPlace();
}

/// A label stands with each thumbnail that has a file, if names are wanted.
void CaptureDesk::DisplayImageLabels()
{
    const bool names = NamesOn();
    for (int i = 0; i < CaptureControls::kThumbs; ++i)
        m_controls.lbltag(i).SetVisible(names && m_controls.geathumb(i).Visible());
    Q_EMIT ViewChanged();
}

void CaptureDesk::ToggleFileNames()
{
    m_base.globals.imageFileNames = NamesOn() ? u"OFF"_s : u"ON"_s;
    DisplayImageLabels();
}

void CaptureDesk::ToggleListBox()
{
    m_base.globals.imageListBox = ListMode() ? u"OFF"_s : u"ON"_s;
    ViewFilCapture();
}

} // namespace vasclip::photos
