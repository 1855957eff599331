#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "photos/slots.h"

#include <QStringList>

#include <functional>

namespace vasclip::photos {

/// What the trash routines work with.
struct TrashDesk
{
    forms::Ports ports;
    const files::Disk& disk;
    const common::Globals& globals;
};

/// Whether the last save left a whole file in the photo store.
enum class PictureIs { Unsaved, Saved };

enum class Trashed {
    No,     ///< the trashcan is off, the picture lies in a trash directory, or the copy was given up
    Copied, ///< the source is still there
    Moved,
};

/// The trash directory beside a picture's: with a backslash at its end.
[[nodiscard]] QString TrashDirectory(const QString& directory);

/// True if a path's directory is a trash directory, in any case.
[[nodiscard]] bool IsInTrashCan(const QString& path);

/// The directory that a trash directory belongs to, upper-cased; any other directory as it is. With a
/// backslash at its end.
[[nodiscard]] QString TrashParentDir(const QString& path);

/// Copies a filed picture to the trash directory of `directory`, where it replaces one of its name, and
/// removes the source with AUTODELETE if the picture is saved. The copy has been read back before the source
/// goes.
/// @throws RuntimeError 57, 68, 70, 75, 76; the source is then where it was
Trashed SendToTrashCan(const TrashDesk& desk, PictureIs saved, const QString& directory,
                       const QString& source, const QString& stem, const QString& extension);

/// The same for the file that a picture control shows.
Trashed TrashPicture(const TrashDesk& desk, PictureIs saved, const SlotTable& table,
                     const forms::PictureBox& control);

/// Puts a copy of a file that is about to be replaced into the trash directory of its own. A trashed picture
/// of the same name and another content stays: the copy then gets a number, "A (2).JPG".
/// @return the path of the copy @throws as SendToTrashCan
QString KeepInTrash(const files::Disk& disk, const QString& path);

/// A picture in a trash directory.
struct TrashedFile
{
    QString name;
    QDateTime modified;
    qint64 bytes = 0;
};

/// Why a picture is no longer the one that was listed, for the user's eyes; "" while it is.
[[nodiscard]] QString WhyAnother(const files::Disk& disk, const QString& trashDirectory, const TrashedFile& listed);

/// The pictures of a trash directory by name; empty if there is none.
[[nodiscard]] QList<TrashedFile> TrashedFiles(const files::Disk& disk, const QString& trashDirectory);

enum class Restored {
    Yes,
    Missing,  ///< there is no such picture in the trash
    Declined, ///< a picture of that name stays where it would have gone
    Another,  ///< while that was asked, another picture took its name in the trash
};

/// Brings a trashed picture back to the directory that the trash belongs to. Where another picture bears its
/// name, asks; on Yes that one goes to the trash in its place.
/// @throws RuntimeError of the disk; the picture is then where it was
Restored RestoreFromTrash(const TrashDesk& desk, const QString& trashDirectory, const QString& name);

/// What emptying has done.
struct Emptied
{
    QStringList deleted; ///< names
    QStringList left;    ///< names that could not be deleted
    QStringList changed; ///< names that other pictures bear by now, which stay
};

/// Deletes pictures of a directory for good, quietly, and none but those that were listed.
/// @param step  told how many have been gone through; false stops
Emptied EmptyTrash(const TrashDesk& desk, const QString& trashDirectory, const QList<TrashedFile>& pictures,
                   const std::function<bool(int done)>& step = {});

} // namespace vasclip::photos
