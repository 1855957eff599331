#pragma once

#include "photos/photo_desk.h"

namespace vasclip::photos {

/// Files the picture that a control shows with the record of a key, which is added if it is not there; a view
/// that the record has already asks first. The status line says what is missing. A picture that is refused, or
/// that the Databook does not take, leaves neither a new record nor a stored file. The record on show and its lists
/// stay; who shows that record refreshes it.
/// @param view   cleaned by CleanView
/// @param control  its path is taken from the slot table
/// @return true if the picture is stored and the record names it; else `notSaved` may tell why
/// @throws RuntimeError for what the Databook refuses
bool SavePhotoToRecord(PhotoDesk& desk, const QString& key, const forms::PictureBox& control,
                       const QString& view);
/// The same for a picture that no control shows.
bool SavePhotoToRecord(PhotoDesk& desk, const QString& key, const QString& picture, const QString& view);

/// The part of SavePhotoToRecord that deals with the record's photos: a new row, or a new stem in the row of the view.
/// They stay as they were when it fails.
bool SavePhotoToViewList(PhotoDesk& desk, PhotoList& photos, const QString& view, const QString& picture,
                         const QString& key);

/// May a picture be filed? Why not goes by its number.
enum class FilingCheck { Fine = 0, BlankKey = 1, BlankSource = 2, MissingSource = 3, BlankView = 4 };
[[nodiscard]] FilingCheck CheckFiling(const files::Disk& disk, const QString& key, const QString& source,
                                      const QString& view);

/// What a button of the photo lists came to.
enum class PhotoChange { None, Changed, LastGone };

/// Deletes the selected photo of the record on show after asking; its file goes back to `CAPTUREDIR` first. The
/// record lets go of it before the stored file is deleted, so that no record ever names a picture that is not
/// there; a Databook that refuses leaves picture and record as they were.
/// @return LastGone when the record has no photo left
/// @throws RuntimeError for what the disk or the Databook refuses
PhotoChange CmdDeletePhoto(PhotoDesk& desk, forms::PictureBox& geamaintain);

/// Gives the selected photo of the record on show another view name.
PhotoChange CmdRenamePhotoView(PhotoDesk& desk);

} // namespace vasclip::photos
