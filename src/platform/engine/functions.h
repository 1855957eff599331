#pragma once

#include <string_view>

struct sqlite3;

namespace vasclip::engine {

/// Makes the functions known that translated statements call (`vas_num`, `vas_date`, `vas_like`, ...).
void RegisterFunctions(sqlite3* handle);

/// The number that a UTF-8 text begins with, as `Val` reads it.
[[nodiscard]] double NumberOf(std::string_view text);

/// The serial of a date text (days from 30 December 1899, the time as a fraction). @return false if it is no
/// date
[[nodiscard]] bool SerialOf(std::string_view text, double& serial);

/// Leads the message of a value that `vas_fit` found too long; the field's name and size follow.
inline constexpr char kTooLongMark[] = "vas_too_long:";
/// Leads the message of a Null that `vas_need` refused; the field's name follows.
inline constexpr char kNullMark[] = "vas_needed:";
/// The message of a pattern that `vas_pattern` refused.
inline constexpr char kOpenSetMark[] = "vas_open_set";

} // namespace vasclip::engine
