#pragma once

#include <QByteArray>
#include <QPainter>
#include <QRectF>

namespace vasclip::drawing {

/// Paints an SVG drawing of paths, rectangles, circles, ellipses and lines into a rectangle: all that the program's own icons
/// hold, and no more of SVG. What else stands there is not drawn.
/// @return false if it is no such drawing
bool Paint(QPainter& painter, const QByteArray& svg, const QRectF& into);

} // namespace vasclip::drawing
