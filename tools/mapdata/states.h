#pragma once

#include <QString>

namespace vasclip::mapdata {

/// The two letters of a state by the first two digits of a FIPS code; "" for none.
[[nodiscard]] QString StateOf(const QString& fips);

} // namespace vasclip::mapdata
