#pragma once

#include "photos/photo_lists.h"
#include "photos/slots.h"

namespace vasclip::photos {

/// Shows the selected row of the photo lists: the other list and the text boxes follow, `lblLabelTag` takes
/// the full path, and `box` shows the file, or is hidden if the file does not exist.
void SelectPhoto(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box, const files::Disk& disk,
                 const QString& photoDir);

/// Lists the photos of the record that `source` stands on and shows its "FRONT VIEW" in `box`; where view or
/// file is missing, `lblPhotomsg` says which and the box is cleared.
void TestFrontView(const store::DataSource& source, const QString& key, PhotoLists& lists, SlotLoader& loader,
                   forms::PictureBox& box, const files::Disk& disk, const QString& photoDir);

/// There is no record: its lists, texts and picture are empty.
void ShowNoPhotos(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box);

} // namespace vasclip::photos
