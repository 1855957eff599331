#pragma once

#include "platform/street/county_info.h"

struct sqlite3;

namespace vasclip::street {

/// Keeps what a county says of itself in its own file. @return false with the reason in `problem`
[[nodiscard]] bool WriteMeta(sqlite3* county, const CountyInfo& info, QString& problem);
[[nodiscard]] bool ReadMeta(sqlite3* county, CountyInfo& info, QString& problem);

} // namespace vasclip::street
