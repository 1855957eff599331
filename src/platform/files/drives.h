#pragma once

#include <QChar>
#include <QList>
#include <QString>

#include <utility>

namespace vasclip::files {

/// The drives of a home: the system's own and those of `<home>/drives.ini`, "C" first, then by letter. In the
/// section "DRIVES" a line "D=directory" maps a drive; a directory that does not begin with "/" counts from
/// the home. C and Z stay what they are.
/// @param home  native and absolute
[[nodiscard]] QList<std::pair<QChar, QString>> ReadDrives(const QString& home);

} // namespace vasclip::files
