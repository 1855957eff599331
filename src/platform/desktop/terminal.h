#pragma once

namespace vasclip::desktop {

/// Does a person sit at the standard input?
[[nodiscard]] bool IsTerminal();
/// Does a person see what goes to the standard error output, as it goes?
[[nodiscard]] bool ErrorsAreSeen();

} // namespace vasclip::desktop
