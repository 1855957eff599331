#include "platform/street/draw/view.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace vasclip::street::draw {

namespace {

constexpr double kRadian = std::numbers::pi / 180;
constexpr double kMicro = 1e-6;
constexpr double kEarthFeet = 6371008.8 / 0.3048; // the mean radius
constexpr double kMetresPerFoot = 0.3048;
constexpr double kEdge = 85; // degrees; beyond, the map would grow without end
constexpr double kNear = 0.04; // radians within which the series is good to a thousandth of a pixel

double Clamp(double latitude)
{
    return std::clamp(latitude, -kEdge, kEdge);
}

} // namespace

double MercatorY(double latitude)
{
    return std::asinh(std::tan(Clamp(latitude) * kRadian));
}

double MercatorLatitude(double y)
{
    return std::atan(std::sinh(y)) / kRadian;
}

double MercatorScale(double latitude, double feet, double pixels)
{
    return std::max(pixels, 1.0) * kEarthFeet * std::cos(Clamp(latitude) * kRadian) / std::max(feet, 1.0);
}

double MercatorFeet(double latitude, double scale, double pixels)
{
    return pixels * kEarthFeet * std::cos(Clamp(latitude) * kRadian) / scale;
}

Projection::Projection(const View& view) : m_view(view)
{
    const double latitude = Clamp(view.centre.latitude * kMicro);
    m_x = view.centre.longitude * kMicro * kRadian;
    m_y = MercatorY(latitude);
    m_scale = MercatorScale(latitude, view.feet, view.size.width());
    m_metres = FeetPerPixel() * kMetresPerFoot * view.ratio;
    const double sec = 1 / std::cos(latitude * kRadian);
    const double tan = std::tan(latitude * kRadian);
    m_rise[0] = sec;
    m_rise[1] = sec * tan / 2;
    m_rise[2] = sec * (tan * tan + sec * sec) / 6;
    m_rise[3] = sec * tan * (tan * tan + 5 * sec * sec) / 24;
}

QPointF Projection::Pixel(Place place) const
{
    double east = (static_cast<double>(place.longitude) - m_view.centre.longitude) * kMicro;
    if (east > 180)
        east -= 360;
    else if (east < -180)
        east += 360;
    const double north = (static_cast<double>(place.latitude) - m_view.centre.latitude) * kMicro * kRadian;
    const double y = std::abs(north) < kNear
                         ? north * (m_rise[0] + north * (m_rise[1] + north * (m_rise[2] + north * m_rise[3])))
                         : MercatorY(place.latitude * kMicro) - m_y;
    return {m_view.size.width() / 2.0 + east * kRadian * m_scale, m_view.size.height() / 2.0 - y * m_scale};
}

Place Projection::At(QPointF pixel) const
{
    const double y = m_y - (pixel.y() - m_view.size.height() / 2.0) / m_scale;
    double longitude = (m_x + (pixel.x() - m_view.size.width() / 2.0) / m_scale) / kRadian;
    if (longitude > 180)
        longitude -= 360;
    else if (longitude < -180)
        longitude += 360;
    return {static_cast<qint32>(std::lround(Clamp(MercatorLatitude(y)) / kMicro)),
            static_cast<qint32>(std::lround(std::clamp(longitude, -180.0, 180.0) / kMicro))};
}

Extent Projection::Ground(double margin) const
{
    const QRectF sheet = Sheet().adjusted(-margin, -margin, margin, margin);
    const double east = m_view.centre.longitude * kMicro;
    const double half = sheet.width() / 2 / m_scale / kRadian;
    // No wrapping here: an extent that ran over the date line would have its low side above its high one.
    const auto side = [](double longitude) {
        return static_cast<qint32>(std::lround(std::clamp(longitude, -180.0, 180.0) / kMicro));
    };
    Extent ground;
    ground.Widen(Place{At(sheet.topLeft()).latitude, side(east - half)});
    ground.Widen(Place{At(sheet.bottomRight()).latitude, side(east + half)});
    return ground;
}

double Projection::FeetPerPixel() const
{
    return MercatorFeet(m_view.centre.latitude * kMicro, m_scale, 1);
}

} // namespace vasclip::street::draw
