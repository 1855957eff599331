#pragma once

#include <QPainterPath>
#include <QString>

namespace vasclip::drawing {

/// What the attribute "d" of an SVG path tells, with all of its commands. What is no path any more, and all behind it, is left
/// out.
[[nodiscard]] QPainterPath ReadPath(const QString& text);

} // namespace vasclip::drawing
