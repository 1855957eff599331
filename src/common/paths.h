#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"

#include <QString>

namespace vasclip::common {

/// A path with a backslash at its end, trimmed of blanks. "C:" gives "C:\", and "" stays "".
[[nodiscard]] QString CkRSlash(const QString& path);

/// A path without its trailing backslash, trimmed of blanks. The argument itself is trimmed too.
[[nodiscard]] QString StripRChar(QString& path);

/// The parts of a path, all in upper case.
struct FileNameParts
{
    QString drive;     ///< "C:" or ""
    QString directory; ///< up to and with the last backslash
    QString name;      ///< without extension
    QString extension; ///< all that follows the first dot of the path
    bool operator==(const FileNameParts&) const = default;
};

/// Takes a path apart.
///
/// Rule: file names. The extension begins at the first dot of the whole path, so a dot in a directory name
/// makes the rest of the path, backslashes and all, the extension. What stands up to a "]" is dropped. A
/// blank path gives four empty texts.
[[nodiscard]] FileNameParts ParseFileName(const QString& path);

[[nodiscard]] QString FileNameOnly(const QString& path); ///< the name
[[nodiscard]] QString FileExtension(const QString& path); ///< the extension

/// The parts of a path to a file that is there, all in upper case. Here a "]" and a dot of a directory are letters like
/// others, and the extension begins at the last dot of the name.
[[nodiscard]] FileNameParts SplitFilePath(const QString& path);

/// What stands behind the last backslash, in upper case: a file's whole name, for words and for other directories.
[[nodiscard]] QString WholeFileName(const QString& path);

/// True if drive and directory of a path end in "TRASHCAN\", in any case.
[[nodiscard]] bool IsTrashDirectory(const QString& path);

/// Makes a directory that is not there yet, with those above it, after a box that says so. A trailing
/// backslash does not matter. @throws RuntimeError 75, 76 and the drive errors of Disk
void MakeDirectory(const files::Disk& disk, forms::Prompter& prompter, const QString& path);

} // namespace vasclip::common
