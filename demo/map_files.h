#pragma once

#include "platform/files/disk.h"

#include <QString>

namespace vasclip::demo {

/// Does the importer of street data stand beside this program?
[[nodiscard]] bool HasMapImporter();

/// Puts the street map of the town into a directory of maps (a drive path) that is there and empty. The importer makes
/// it of files as public street data come in; the county's file then gets a name that is the same each time.
/// @throws RuntimeError with what the importer said
void MakeMap(const files::Disk& disk, const QString& directory);

/// Where that map lies beside the programs if it was made beforehand, for a system that has no importer.
[[nodiscard]] QString ReadyMap();

/// Copies such a map into a directory of maps. @return false if there is none
/// @throws RuntimeError naming the file that can't be written
bool CopyMap(const files::Disk& disk, const QString& ready, const QString& directory);

} // namespace vasclip::demo
