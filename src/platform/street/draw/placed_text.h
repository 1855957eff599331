#pragma once

#include "platform/street/draw/glyphs.h"

#include <QColor>
#include <QPainter>
#include <QTransform>

#include <optional>
#include <vector>

namespace vasclip::street::draw {

/// A line in pixels that can be walked along.
class Walk
{
public:
    explicit Walk(std::vector<QPointF> points);

    [[nodiscard]] double Length() const { return m_at.back(); }
    [[nodiscard]] QPointF At(double distance) const;
    [[nodiscard]] const std::vector<QPointF>& Points() const { return m_points; }

private:
    std::vector<QPointF> m_points;
    std::vector<double> m_at;
};

/// A text where it will stand.
struct PlacedText
{
    struct Letter
    {
        std::shared_ptr<const Glyph> glyph;
        QTransform where;
    };
    std::vector<Letter> letters;
    std::vector<QRectF> boxes; ///< what it covers
};

/// A text on the level, its middle at a point. @param size  pixels an em
[[nodiscard]] PlacedText OnTheLevel(const TextRun& run, double size, QPointF middle);

/// A text along a line, its middle at `distance`, never on its head. Nothing where the line bends too much for it
/// or is too short.
/// @param beside  pixels off the line, towards the bottom of an upright text
[[nodiscard]] std::optional<PlacedText> Along(const Walk& walk, const TextRun& run, double size, double distance,
                                              double beside = 0);

void Write(QPainter& painter, const PlacedText& text, const QColor& ink, const QColor& halo);
void Write(Canvas& canvas, const PlacedText& text, const QColor& ink, const QColor& halo);

} // namespace vasclip::street::draw
