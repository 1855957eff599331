#pragma once

#include <QChar>
#include <QList>
#include <QString>

#include <utility>

namespace vasclip::files {

/// A letter and its native directory.
using Drive = std::pair<QChar, QString>;

/// The drives of a home: its own C, the machine's, and those of `<home>/drives.ini`, "C" first, then by letter.
/// `<home>/drive_c` is C where it is there, so that a home for trying things out never reaches the C of the
/// machine; without it C is the machine's if that has one. In the section "DRIVES" a line "D=directory" maps a
/// drive; a relative directory counts from the home. Letters that are taken stay what they are.
/// @param home  native and absolute
[[nodiscard]] QList<Drive> ReadDrives(const QString& home);
/// The same on a machine that has these drives.
[[nodiscard]] QList<Drive> ReadDrives(const QString& home, QList<Drive> machine);

} // namespace vasclip::files
