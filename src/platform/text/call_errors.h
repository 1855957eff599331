#pragma once

#include "platform/text/runtime_error.h"

namespace vasclip::error {

// What a routine throws over how it was called, or what it was called for.
inline constexpr int kInvalidCall = 5;
inline constexpr int kOutOfMemory = 7;

} // namespace vasclip::error
