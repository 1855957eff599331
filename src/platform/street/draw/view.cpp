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

Frame Frame::Snapped() const
{
    const QPointF corner = Corner();
    Frame snapped = *this;
    snapped.x += (std::round(corner.x()) - corner.x()) / scale;
    snapped.y -= (std::round(corner.y()) - corner.y()) / scale;
    return snapped;
}

QPointF Frame::Corner() const
{
    return {x * scale - size.width() / 2.0, -y * scale - size.height() / 2.0};
}

Frame FrameOf(const View& view)
{
    const double latitude = Clamp(view.centre.latitude * kMicro);
    return {view.centre.longitude * kMicro * kRadian, MercatorY(latitude),
            MercatorScale(latitude, view.feet, view.size.width()), view.size, view.ratio};
}

double FeetOf(const Frame& frame)
{
    return MercatorFeet(MercatorLatitude(frame.y), frame.scale, frame.size.width());
}

Projection::Projection(const View& view) : Projection(FrameOf(view)) {}

Projection::Projection(const Frame& frame)
    : m_frame(frame), m_latitude(MercatorLatitude(frame.y) / kMicro), m_longitude(frame.x / kRadian / kMicro)
{
    m_metres = FeetPerPixel() * kMetresPerFoot * frame.ratio;
    const double latitude = m_latitude * kMicro * kRadian;
    const double sec = 1 / std::cos(latitude);
    const double tan = std::tan(latitude);
    m_rise[0] = sec;
    m_rise[1] = sec * tan / 2;
    m_rise[2] = sec * (tan * tan + sec * sec) / 6;
    m_rise[3] = sec * tan * (tan * tan + 5 * sec * sec) / 24;
}

QPointF Projection::Pixel(Place place) const
{
    double east = (place.longitude - m_longitude) * kMicro;
    if (east > 180)
        east -= 360;
    else if (east < -180)
        east += 360;
    const double north = (place.latitude - m_latitude) * kMicro * kRadian;
    const double y = std::abs(north) < kNear
                         ? north * (m_rise[0] + north * (m_rise[1] + north * (m_rise[2] + north * m_rise[3])))
                         : MercatorY(place.latitude * kMicro) - m_frame.y;
    return {m_frame.size.width() / 2.0 + east * kRadian * m_frame.scale,
            m_frame.size.height() / 2.0 - y * m_frame.scale};
}

Place Projection::At(QPointF pixel) const
{
    const double y = m_frame.y - (pixel.y() - m_frame.size.height() / 2.0) / m_frame.scale;
    double longitude = (m_frame.x + (pixel.x() - m_frame.size.width() / 2.0) / m_frame.scale) / kRadian;
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
    const double east = m_longitude * kMicro;
    const double half = sheet.width() / 2 / m_frame.scale / kRadian;
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
    return MercatorFeet(m_latitude * kMicro, m_frame.scale, 1);
}

} // namespace vasclip::street::draw
