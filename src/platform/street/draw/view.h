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

/// Places to pixels and back: Mercator, which keeps angles, so that a crossing looks as it is at any latitude.
class Projection
{
public:
    explicit Projection(const View& view);

    [[nodiscard]] QPointF Pixel(Place place) const;
    [[nodiscard]] Place At(QPointF pixel) const;
    /// The ground of the picture and `margin` pixels around it.
    [[nodiscard]] Extent Ground(double margin = 0) const;
    [[nodiscard]] QRectF Sheet() const { return {QPointF(0, 0), QSizeF(m_view.size)}; }
    /// Metres of ground that a pixel of 1/96 inch covers: what there is room for depends on it.
    [[nodiscard]] double Metres() const { return m_metres; }
    [[nodiscard]] double FeetPerPixel() const;
    /// So many pixels of 1/96 inch in pixels of the picture.
    [[nodiscard]] double Px(double pixels) const { return pixels * m_view.ratio; }
    [[nodiscard]] const View& Of() const { return m_view; }

private:
    View m_view;
    double m_x = 0; ///< of the centre, in radians at the equator
    double m_y = 0;
    double m_scale = 1; ///< pixels a radian
    double m_metres = 1;
    double m_rise[4] = {}; ///< how y grows with the latitude around the centre
};

/// The height of a latitude (degrees) on a Mercator map, and back.
[[nodiscard]] double MercatorY(double latitude);
[[nodiscard]] double MercatorLatitude(double y);
/// Pixels a radian that give `feet` of ground `pixels` pixels at a latitude (degrees), and the feet of such a scale.
[[nodiscard]] double MercatorScale(double latitude, double feet, double pixels);
[[nodiscard]] double MercatorFeet(double latitude, double scale, double pixels);

} // namespace vasclip::street::draw
