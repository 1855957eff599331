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

} // namespace vasclip::demo
