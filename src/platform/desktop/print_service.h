#pragma once

#include <QString>

namespace vasclip::desktop {

/// Why the system's print service has not taken what this thread handed to it last, in its own words without a full stop; "" where it has,
/// and on systems whose printers refuse when they are painted on.
[[nodiscard]] QString PrintRefusal();

} // namespace vasclip::desktop
