#pragma once

namespace vasclip::forms {

// Key codes of Control::KeyPressed beside those of controls.h.

inline constexpr int kKeyZ = 90; ///< told only with Ctrl: what undoes

} // namespace vasclip::forms
