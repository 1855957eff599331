#pragma once

#include <QDateTime>
#include <QString>

namespace vasclip::upkeep {

/// The name that a database file of this base name gets: its stem and ".MDB", with "_MM-DD-YY_HHMMSS" between
/// them where it is stamped. Every "." and "/" in the stem goes.
[[nodiscard]] QString StampFileName(bool stampOn, const QString& baseName, const QDateTime& now);
/// A name that holds ".MDB" in capitals stays; any other gets it.
[[nodiscard]] QString AddMDBExtension(const QString& name);
/// What was typed as the name of a database file, which the lists of such files show only with their extension.
[[nodiscard]] QString DatabaseName(const QString& typed);
/// Is the stem, with or without ".MDB", one of the files that the installation delivers? Case does not count.
[[nodiscard]] bool IsProtectedDatabase(const QString& stem);

} // namespace vasclip::upkeep
