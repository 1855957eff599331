#pragma once

#include "platform/files/disk.h"
#include "shell/ini_location.h"

namespace vasclip::app {

/// The desktop's directories and version, as the start-up rules need them.
[[nodiscard]] shell::SystemPlaces Places(const files::Disk& disk);

/// Was the home made by vasclip-demo? What plays by itself plays on such a one alone.
[[nodiscard]] bool IsDemoHome(const QString& home);

} // namespace vasclip::app
