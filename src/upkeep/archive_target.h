#pragma once

#include "platform/files/disk.h"

namespace vasclip::upkeep {

/// Makes the directory of a file with those above it. @throws RuntimeError of the disk
void MakeDirectoriesOf(const files::Disk& disk, const QString& file);

/// Are two drive paths one file, however they are written?
[[nodiscard]] bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other);

} // namespace vasclip::upkeep
