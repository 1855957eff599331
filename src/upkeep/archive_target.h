#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"

namespace vasclip::upkeep {

/// Makes the directory of a file with those above it. @throws RuntimeError of the disk
void MakeDirectoriesOf(const files::Disk& disk, const QString& file);

/// An archive that Access made takes no record: told in a box, before anything is copied beside it.
[[nodiscard]] bool RefusesAccess(forms::Prompter& prompter, const files::Disk& disk, const QString& file);

/// Are two drive paths one file, however they are written?
[[nodiscard]] bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other);

} // namespace vasclip::upkeep
