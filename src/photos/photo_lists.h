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

/// Parses PHOTOS of the current record into the lists: view, "|", stem, CR LF for each photo. A last line
/// without CR LF is lost; an empty line ends the reading.
void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems);

/// The same on the text alone.
[[nodiscard]] QList<std::pair<QString, QString>> ParsePhotos(const QString& photos);

} // namespace vasclip::photos
