#pragma once

#include "platform/files/disk.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace vasclip::files {

/// The profile-string calls on one ini file, named by its drive path.
///
/// Rule: profile strings. Sections and keys are looked up without regard to case; only the first section of a
/// name is searched and the first duplicate key wins; blanks, tabs and vertical tabs around names, keys and
/// values in the file go, in call arguments only blanks; one pair of equal outer quotes goes from values; `;`
/// first on a line is a comment. A header ends at the first `]`, a missing `]` is fine.
///
/// @return `fallback` (without its trailing blanks) if file, section or key is absent
[[nodiscard]] QString GetPrivateProfileString(const Disk& disk, const QString& section, const QString& key,
                                              const QString& fallback, const QString& file);

/// Keys of a section in the order of the file; sections of a file likewise.
[[nodiscard]] QStringList ProfileKeys(const Disk& disk, const QString& section, const QString& file);

/// Writes one key; a null `value` (QString()) deletes the key, a null `key` the whole section. Every other
/// line and comment stays as it is; the file is replaced as a whole, under a lock that other processes honour
/// too.
/// @return false if the file could not be written (it is then untouched)
bool WritePrivateProfileString(const Disk& disk, const QString& section, const QString& key,
                               const QString& value, const QString& file);

struct ProfileKey
{
    QString section;
    QString key;   ///< null deletes the section
    QString value; ///< null deletes the key
};

/// Writes many keys as one replacement of the file: all of them or, on a failure, none.
/// @return false if the file could not be written, or a name or value could not be read back from its line (a
/// line
///         break in any of them, "=" in a key, "]" in a section)
bool WriteProfileKeys(const Disk& disk, const QString& file, const QList<ProfileKey>& keys);

} // namespace vasclip::files
