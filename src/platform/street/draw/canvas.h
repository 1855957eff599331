#pragma once

#include <QColor>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QTransform>

#include <memory>
#include <vector>

namespace vasclip::street::draw {

/// A path as it is filled: made once, filled at many places.
class Outline
{
public:
    Outline() = default;
    /// @param tolerance  by how much what stands for a curve may leave it
    Outline(const QPainterPath& path, double tolerance);

private:
    friend class Canvas;
    std::vector<QPointF> m_points;
    std::vector<std::size_t> m_ends; ///< where among the points each ring ends
    bool m_oddEven = false;
};

/// A picture that is filled by smooth areas and lines, all of it by the thread that asks. QPainter hands the rows of
/// all but the smallest fills out to a pool of threads, which for letters and streets costs more than filling them.
class Canvas
{
public:
    /// @param image  of 32 bits a pixel, opaque or premultiplied; stays as long as the canvas
    explicit Canvas(QImage& image);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    /// For what is painted otherwise, by a painter that ends before the next fill.
    [[nodiscard]] QImage& Image() { return m_image; }
    void Fill(const QPainterPath& path, const QColor& colour);
    void Fill(const Outline& outline, const QTransform& where, const QColor& colour);
    /// Each line for itself: where they meet, one lies on the other.
    void Stroke(const std::vector<QPainterPath>& lines, const QPen& pen);

private:
    class Rasterizer;

    QImage& m_image;
    std::unique_ptr<Rasterizer> m_rasterizer;
};

} // namespace vasclip::street::draw
