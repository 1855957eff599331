#pragma once

#include "platform/street/draw/view.h"

#include <vector>

namespace vasclip::street::draw {

/// Joins the edges of one street to lines as long as possible, straight on where it forks.
[[nodiscard]] std::vector<std::vector<QPointF>> Join(const std::vector<const std::vector<Place>*>& edges,
                                                     const Projection& projection);

} // namespace vasclip::street::draw
