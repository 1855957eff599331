#pragma once

#include "forms/controls.h"

namespace vasclip::photos {

/// The capture browser's part of the main window.
struct CaptureControls
{
    explicit CaptureControls(forms::ControlSet& set);

    forms::Control fraCapture;     ///< frame of the list and its preview
    forms::ListBox filCapture;     ///< the file list
    forms::PictureBox geaListBox;  ///< preview of the file selected in it
    forms::Label lblListBox;       ///< "Selected Picture"
    forms::Control fraPics;        ///< frame of the thumbnails
    forms::ControlArray<forms::PictureBox> geathumb;  ///< 0 to 11
    forms::ControlArray<forms::Label> lbltag;         ///< the name below each
    forms::ControlArray<forms::PictureBox> imaScroll; ///< 0 first, 1 up, 2 down, 3 last
    forms::Label lblTab;           ///< the directory on show
    forms::Label lblRefreshing;
    forms::Label lblCapture;       ///< heading
    forms::Label lblDirectory;     ///< which of the directory's pictures are on show
    forms::PictureBox imaFolder, imaTrashcan, imaGetPics;

    static constexpr int kThumbs = 12;
};

} // namespace vasclip::photos
