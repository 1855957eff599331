#pragma once

#include "platform/desktop/desktop.h"

#include <QString>

namespace vasclip::shell {

/// What the version record of the system says.
struct WinVersionName
{
    QString name; ///< "Windows XP Service Pack 2"; "" for minor versions of 5 beyond XP
    bool isVista = false;
};

/// The name by major and minor version. Behind those from 2000 on comes the service pack, its control
/// characters and all beyond ASCII replaced by blanks.
[[nodiscard]] WinVersionName GetWinVersionName(const desktop::SystemVersion& version);

} // namespace vasclip::shell
