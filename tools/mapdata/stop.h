#pragma once

namespace vasclip::mapdata {

/// Ends the work in order on SIGTERM and SIGINT.
void StopOnSignals();
/// Likewise when the program's input ends: a parent closes it to stop us, or is gone.
void StopWithInput();
/// Has somebody asked to end?
[[nodiscard]] bool Stopped();

} // namespace vasclip::mapdata
