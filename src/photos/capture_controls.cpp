#include "photos/capture_controls.h"

namespace vasclip::photos {

using namespace Qt::Literals::StringLiterals;

CaptureControls::CaptureControls(forms::ControlSet& set)
    : fraCapture(set, u"fraCapture"_s)
    , filCapture(set, u"filCapture"_s)
    , geaListBox(set, u"geaListBox"_s)
    , lblListBox(set, u"lblListBox"_s)
    , fraPics(set, u"fraPics"_s)
    , geathumb(set, u"geathumb"_s, 0, kThumbs - 1)
    , lbltag(set, u"lbltag"_s, 0, kThumbs - 1)
    , imaScroll(set, u"imaScroll"_s, 0, 3)
    , lblTab(set, u"lblTab"_s)
    , lblRefreshing(set, u"lblRefreshing"_s)
    , lblCapture(set, u"lblCapture"_s)
    , lblDirectory(set, u"lblDirectory"_s)
    , imaFolder(set, u"imaFolder"_s)
    , imaTrashcan(set, u"imaTrashcan"_s)
    , imaGetPics(set, u"imaGetPics"_s)
{
    lblListBox.SetCaption(u"Selected Picture"_s);
    lblTab.SetToolTipText(u"Current Capture Directory - Click here to change to user specific folder"_s);
    lblRefreshing.SetCaption(u"Refreshing Picture Thumbnails"_s);
    lblRefreshing.SetVisible(false);
    lblCapture.SetCaption(u"Pictures"_s);
    imaFolder.SetToolTipText(u"Choose the camera folder"_s);
    imaTrashcan.SetToolTipText(u"Trashcan: drop a picture here, or click to look into it"_s);
    imaGetPics.SetToolTipText(u"Copy pictures from a card or drive"_s);
    const QString pages[] = {u"First pictures"_s, u"Pictures before"_s, u"Pictures behind"_s,
                             u"Last pictures"_s};
    for (int i = 0; i < 4; ++i)
        imaScroll(i).SetToolTipText(pages[i]);
    fraCapture.SetVisible(false);
    filCapture.SetVisible(false);
    geaListBox.SetVisible(false);
    lblListBox.SetVisible(false);
    for (int i = 0; i < kThumbs; ++i) {
        geathumb(i).SetVisible(false);
        lbltag(i).SetVisible(false);
    }
}

} // namespace vasclip::photos
