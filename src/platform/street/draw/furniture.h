#pragma once

#include "platform/street/draw/style.h"
#include "platform/street/draw/view.h"

#include <QPainter>
#include <QString>

#include <vector>

namespace vasclip::street::draw {

/// A length that a scale bar shows: "500 ft", "2 mi".
struct BarLength
{
    double feet = 0;
    QString text;
};

/// The longest round length that is at most `feet`.
[[nodiscard]] BarLength RoundLength(double feet);

/// Where scale bar, north arrow and credit stand, for labels to keep off.
[[nodiscard]] std::vector<QRectF> FurnitureBoxes(const Projection& projection, const Look& look);
void PaintFurniture(QPainter& painter, const Projection& projection, const Look& look);

} // namespace vasclip::street::draw
