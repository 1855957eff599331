#pragma once

#include <QString>

namespace vasclip::desktop {

/// The first line of `<file>.version` beside a file; "" if one of both is not there. What `FileVersion` answers for a file that
/// carries no version itself.
[[nodiscard]] QString VersionBeside(const QString& nativePath);

} // namespace vasclip::desktop
