#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"
#include "store/data_source.h"

namespace vasclip::upkeep {

/// The name that an archive gets of what was typed: the lists show files of .MDB alone.
[[nodiscard]] QString ArchiveName(const QString& typed);

/// Makes the directory of a file with those above it. @throws RuntimeError of the disk
void MakeDirectoriesOf(const files::Disk& disk, const QString& file);

/// An archive of an older layout gets the fields that it lacks: without them a moved record would lose what they hold.
/// Where somebody has it open, or it can't be changed, it stays as it is.
void CompleteFields(const store::DataSource& databook, const QString& file, const QString& table);

/// An archive that Access made takes no record: told in a box, before anything is copied beside it.
[[nodiscard]] bool RefusesAccess(forms::Prompter& prompter, const files::Disk& disk, const QString& file);

/// Are two drive paths one file, however they are written?
[[nodiscard]] bool IsSameFile(const files::Disk& disk, const QString& one, const QString& other);

} // namespace vasclip::upkeep
