#pragma once

#include "forms/controls.h"
#include "photos/slots.h"
#include "store/data_source.h"

namespace vasclip::photos {

/// A record's photos in memory: view names and file stems, two lists of the same length and order.
struct PhotoLists
{
    explicit PhotoLists(forms::ControlSet& set);
    forms::ListBox lstViews, lstimages;
    forms::TextBox txtView, txtimage;
    forms::Label lblLabelTag, lblPhotomsg;
};

/// One photo of a record.
using PhotoPair = std::pair<QString, QString>; ///< view, file stem

/// Parses PHOTOS of the current record into the lists, which are cleared first. Rows by ParsePhotos.
void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems);

/// The photos of a PHOTOS text: view, "|", stem, CR LF for each. A last line without CR LF is lost; an empty
/// line ends the reading; a line without "|" is a view without a stem.
[[nodiscard]] QList<PhotoPair> ParsePhotos(const QString& photos);

/// Shows the "FRONT VIEW" of the record of `key` in `box`, selects it in the lists and names its stem. Where
/// there is none, or its file is missing, lblPhotomsg says so and the box is cleared.
/// @param photoDir  the photo directory, with its backslash
void TestFrontView(PhotoLists& lists, SlotLoader& loader, forms::PictureBox& box, const files::Disk& disk,
                   const QString& photoDir, const QString& key);

/// A row of the lists was selected: the other list follows, txtView and txtimage take the row, lblLabelTag
/// the path, and the file is shown in `box`, which is hidden if there is no such file.
void SelectPhotoRow(PhotoLists& lists, int row, SlotLoader& loader, forms::PictureBox& box,
                    const files::Disk& disk, const QString& photoDir);

} // namespace vasclip::photos
