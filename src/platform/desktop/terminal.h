#pragma once

namespace vasclip::desktop {

/// Does a person sit at the standard input?
[[nodiscard]] bool IsTerminal();

} // namespace vasclip::desktop
