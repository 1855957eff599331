#pragma once

#include "forms/controls.h"
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

} // namespace vasclip::photos
