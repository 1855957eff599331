#pragma once

#include "forms/controls.h"

namespace vasclip::shell {

class PopUps;
class Program;

/// The capture browser of the main screen: its events, its directory, its pop-up menu.
class CaptureEvents : public QObject
{
    Q_OBJECT
public:
    CaptureEvents(Program& program, PopUps& popUps);

    /// The pictures of the capture directory, which the start leaves to the window.
    void ShowCapture();
    void ShowCameraDir();
    /// The picture under the menu goes for good.
    void DeleteImage();
    /// The picture under the menu opens in the adjust window.
    void CompressImage();
    /// The delete key on a thumbnail: what the menu over it would delete.
    void DeleteKeyOn(const forms::Control& thumb);

private:
    void geathumb_DblClick(int index);
    void imaTrashcan_Click();

    Program& m_program;
    PopUps& m_popUps;
};

} // namespace vasclip::shell
