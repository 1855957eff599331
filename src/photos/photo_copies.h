#pragma once

#include "photos/photo_desk.h"

namespace vasclip::photos {

/// A file's name as a report can name it: "]" would end the text that does, so "A[1].JPG" becomes "A(1).JPG". A name
/// without one stays as it is.
[[nodiscard]] QString NameForReport(const QString& name);

/// Copies a file into a directory under its own name, overwriting, with dialogs: about equal directories, and
/// whether a directory that is not there shall be made.
/// @return true if the copy is there; false when a dialog said no, or there is no such source
/// @throws RuntimeError for what the disk refuses
bool CopyFile(const forms::Ports& ports, const files::Disk& disk, const QString& source,
              const QString& directory);

/// CopyFile into `CAPTUREDIR`.
bool CopyThePhoto(PhotoDesk& desk, const QString& source);

/// Copies a stored photo to a stem of its own and points the control at the copy (it is not loaded).
/// @return the path of the copy, "" if there is no such source
QString CopyPhotoRename(PhotoDesk& desk, const QString& source, const forms::PictureBox& control);

/// Makes a file read-only if `WRITEPROTECTPHOTOS` asks for it.
void ApplyWriteProtect(const forms::Ports& ports, const files::Disk& disk, const common::Globals& globals,
                       const QString& path);

} // namespace vasclip::photos
