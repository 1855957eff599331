#pragma once

#include "platform/text/time_source.h"

#include <string_view>

namespace vasclip::engine {

/// The number that a UTF-8 text begins with, as `Val` reads it.
[[nodiscard]] double NumberOf(std::string_view text);

/// The serial of a date text (days from 30 December 1899, the time as a fraction). @return false if it is no
/// date
/// @param time  whose year one without a year is of
[[nodiscard]] bool SerialOf(std::string_view text, const text::TimeSource& time, double& serial);

} // namespace vasclip::engine
