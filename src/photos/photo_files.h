#pragma once

#include "forms/ports.h"
#include "photos/pointed_file.h"
#include "platform/files/disk.h"

#include <QStringList>

namespace vasclip::photos {

enum class Quiet { No, Yes };

/// Deletes one picture file, also one that is write-protected; asks first unless quiet.
/// @param path    one drive path; a pattern is no file
/// @param prompt  the question; an empty one becomes "Delete ", the path, "?"
/// @return true when the file was deleted; false for a path without a name, a file that is not there, or No
/// @throws RuntimeError 70, 75 for a file that the system keeps; it then bears its attributes as before
bool DelPict(const forms::Ports& ports, const files::Disk& disk, const QString& path, Quiet quiet,
             QString& prompt);

enum class Deletion {
    Done,
    Declined,
    Another, ///< the file is gone or another one bears its name; nothing was deleted
};

/// Asks, with the file's name in the title, and deletes the file that was pointed at and no other.
/// @param why  takes what has become of it after Another
/// @throws RuntimeError as DelPict
[[nodiscard]] Deletion DelPointed(const forms::Ports& ports, const files::Disk& disk, const PointedFile& pointed,
                                  const QString& question, QString& why);

/// A stem that names one file in the photo directory: it reaches no other directory and no more than one.
[[nodiscard]] bool IsPlainStem(const QString& stem);

/// Deletes the stored files of a record, quietly.
/// @param stems  of its PHOTOS field, without directory and extension; what could reach a file outside
///               `photoDir`, or more than one, is left alone
/// @return the paths of files that are still there; the others went all the same
[[nodiscard]] QStringList DeletePhotos(const forms::Ports& ports, const files::Disk& disk,
                                       const QString& photoDir, const QStringList& stems);

} // namespace vasclip::photos
