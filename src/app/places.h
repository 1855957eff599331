#pragma once

#include "platform/files/disk.h"
#include "shell/ini_location.h"

namespace vasclip::app {

/// The desktop's directories and version, as the start-up rules need them.
[[nodiscard]] shell::SystemPlaces Places(const files::Disk& disk);

} // namespace vasclip::app
