#pragma once

#include "forms/ports.h"
#include "platform/files/disk.h"

namespace vasclip::shell {

/// The sentence for a result of the shell's open call, 0 to 32.
[[nodiscard]] QString ShellErrorText(int result);

/// Opens or starts a file by the desktop's rules. A failure shows its sentence in a box of information.
/// @return false on failure
bool GShell(const files::Disk& disk, forms::Prompter& prompter, const QString& verb, const QString& file,
            const QString& parameters, const QString& directory);

} // namespace vasclip::shell
