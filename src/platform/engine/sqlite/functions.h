#pragma once

#include "platform/text/time_source.h"

struct sqlite3;

namespace vasclip::engine {

/// Makes `COLLATE VAS` known to a connection.
void RegisterCollation(sqlite3* handle);

/// Makes the functions known that translated statements call (`vas_num`, `vas_date`, `vas_like`, ...).
/// @param time  outlives the handle
void RegisterFunctions(sqlite3* handle, const text::TimeSource& time);

/// Leads the message of a value that `vas_fit` found too long; the field's name and size follow.
inline constexpr char kTooLongMark[] = "vas_too_long:";
/// Leads the message of a Null that `vas_need` refused; the field's name follows.
inline constexpr char kNullMark[] = "vas_needed:";
/// The message of a pattern that `vas_pattern` refused.
inline constexpr char kOpenSetMark[] = "vas_open_set";

} // namespace vasclip::engine
