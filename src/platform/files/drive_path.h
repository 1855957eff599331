#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

namespace vasclip::files {

enum class Wildcards { Refused, InLastPart };

/// A drive path taken apart: "c:/photos\..\vassnap\" is drive 'C', parts {"vassnap"}, with a closing
/// separator.
struct DrivePath
{
    QChar drive;         ///< upper case
    QStringList parts;   ///< no ".", no "..", each a name that a drive can hold (the last may be a pattern)
    bool closed = false; ///< ended with a separator

    [[nodiscard]] QString Text() const;
};

/// Takes a drive path apart by its text alone; the disk is not asked. Both slashes separate. Blanks and dots
/// at the end of a part fall off, as they do on such drives.
/// @throws RuntimeError 52 for a text that no drive path can be, 76 for a ".." above the root or a name too
/// long
[[nodiscard]] DrivePath ParseDrivePath(const QString& path, Wildcards wildcards);

/// True if a drive path can hold the name.
[[nodiscard]] bool IsPossibleName(const QString& name);

} // namespace vasclip::files
