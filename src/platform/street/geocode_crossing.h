#pragma once

#include "platform/street/types.h"

#include <vector>

namespace vasclip::street {

/// Where two streets meet: at a place that both have, else where one ends within a road's width of the other.
/// Places within a junction of divided roads are one.
[[nodiscard]] std::vector<Place> Crossings(const std::vector<std::vector<Place>>& one,
                                           const std::vector<std::vector<Place>>& other);

} // namespace vasclip::street
