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
    m_base.loader.Table().ErrSetPict(m_controls.filCapture, SelectedFile());
    ShowPreview();
    TellPlace();
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

void CaptureDesk::ReloadThumb(int index, const QString& path)
{
    m_loader.Forget(path);
    if (text::Trim(path).isEmpty() || !m_base.disk.FileExists(path))
        ClearThumbAt(index);
    else
        ShowThumb(index, path, {});
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
