#pragma once

#include "platform/street/types.h"

#include <QPointF>
#include <QRectF>
#include <QSize>

namespace vasclip::street::draw {

/// The ground that a picture shows. Lengths in pixels are pixels of the picture.
struct View
{
    Place centre;
    double feet = 26400; ///< the ground's width at the height of `centre`
    QSize size;
    double ratio = 1; ///< how many pixels of the picture a pixel of 1/96 inch takes
};

/// The same in the map's own measure, to the fraction of a pixel.
struct Frame
{
    double x = 0; ///< of the middle, radians to the east
    double y = 0; ///< of the middle, radians up the Mercator map
    double scale = 1; ///< pixels a radian
    QSize size;
    double ratio = 1;

    /// Moved by less than a pixel so that its edges are whole pixels of the whole map: pictures of one scale fit.
    [[nodiscard]] Frame Snapped() const;
    /// The whole map's pixel, from the middle of the map, that is this frame's upper left.
    [[nodiscard]] QPointF Corner() const;
    friend bool operator==(const Frame&, const Frame&) = default;
};

[[nodiscard]] Frame FrameOf(const View& view);
/// The ground's width at the height of a frame's middle.
[[nodiscard]] double FeetOf(const Frame& frame);

/// Places to pixels and back: Mercator, which keeps angles, so that a crossing looks as it is at any latitude.
class Projection
{
public:
    Projection(const View& view); // NOLINT(google-explicit-constructor): a view is a projection
    explicit Projection(const Frame& frame);

    [[nodiscard]] QPointF Pixel(Place place) const;
    [[nodiscard]] Place At(QPointF pixel) const;
    /// The ground of the picture and `margin` pixels around it.
    [[nodiscard]] Extent Ground(double margin = 0) const;
    [[nodiscard]] QRectF Sheet() const { return {QPointF(0, 0), QSizeF(m_frame.size)}; }
    /// Metres of ground that a pixel of 1/96 inch covers: what there is room for depends on it.
    [[nodiscard]] double Metres() const { return m_metres; }
    [[nodiscard]] double FeetPerPixel() const;
    /// So many pixels of 1/96 inch in pixels of the picture.
    [[nodiscard]] double Px(double pixels) const { return pixels * m_frame.ratio; }
    [[nodiscard]] const Frame& Of() const { return m_frame; }

private:
    Frame m_frame;
    double m_latitude = 0; ///< of the middle, millionths of a degree
    double m_longitude = 0;
    double m_metres = 1;
    double m_rise[4] = {}; ///< how y grows with the latitude around the middle
};

/// The height of a latitude (degrees) on a Mercator map, and back.
[[nodiscard]] double MercatorY(double latitude);
[[nodiscard]] double MercatorLatitude(double y);
/// Pixels a radian that give `feet` of ground `pixels` pixels at a latitude (degrees), and the feet of such a scale.
[[nodiscard]] double MercatorScale(double latitude, double feet, double pixels);
[[nodiscard]] double MercatorFeet(double latitude, double scale, double pixels);

} // namespace vasclip::street::draw
