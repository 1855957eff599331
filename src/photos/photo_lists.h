#pragma once

#include "forms/controls.h"
#include "forms/ports.h"
#include "photos/photo_list.h"
#include "store/data_source.h"

namespace vasclip::photos {

/// A record's photos in memory: view names and file stems, two lists of the same length and order.
struct PhotoLists
{
    explicit PhotoLists(forms::ControlSet& set);
    forms::ListBox lstViews, lstimages;
    forms::TextBox txtView, txtimage;
    forms::Label lblLabelTag, lblPhotomsg;
    forms::Button CmdDeletePhoto, CmdRenamePhotoView; ///< of the selected photo
};

/// Parses PHOTOS of the current record into the lists, which are cleared first. Rows by ParsePhotos.
void ReadPhotoLists(const store::DataSource& source, forms::ListBox& views, forms::ListBox& stems);

/// What two lists show, as a value.
[[nodiscard]] PhotoList ListedPhotos(const forms::ListBox& views, const forms::ListBox& stems);

/// Sets FRONT of the current record, which must be in edit mode: "1" if there is a "FRONT VIEW", else "".
void SetFrontFlag(store::DataSource& source, const PhotoList& photos);

/// Writes PHOTOS and FRONT of the record of a key, whatever is on show. @throws RuntimeError as store::Change
void StorePhotos(store::DataSource& source, const QString& key, const PhotoList& photos);

/// Writes PHOTOS and FRONT of the current record from the lists, in one update, and stands on it again.
/// @throws RuntimeError as store::Change; the record is then as it was
void WritePhotoLists(const forms::Ports& ports, store::DataSource& source, const forms::ListBox& views,
                     const forms::ListBox& stems);

} // namespace vasclip::photos
