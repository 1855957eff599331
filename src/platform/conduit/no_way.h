#pragma once

namespace vasclip::conduit {

/// What the way to the forms program needs is not there, or KEL.INI names it wrongly. Not 282, about which a refresh says
/// nothing: that is a forms program which is not started.
inline constexpr int kNoWay = 298;

} // namespace vasclip::conduit
