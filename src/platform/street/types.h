#pragma once

#include <QtGlobal>

#include <algorithm>
#include <limits>

namespace vasclip::street {

/// A place on the globe in millionths of a degree (WGS84), about a tenth of a metre; the longitude is negative
/// west of Greenwich.
struct Place
{
    qint32 latitude = 0;
    qint32 longitude = 0;
    friend bool operator==(const Place&, const Place&) = default;
};

/// A rectangle of places, its edges included. Empty as made: low above high.
struct Extent
{
    Place low{std::numeric_limits<qint32>::max(), std::numeric_limits<qint32>::max()};
    Place high{std::numeric_limits<qint32>::min(), std::numeric_limits<qint32>::min()};

    [[nodiscard]] bool IsEmpty() const { return low.latitude > high.latitude; }
    [[nodiscard]] bool Contains(Place place) const
    {
        return place.latitude >= low.latitude && place.latitude <= high.latitude &&
               place.longitude >= low.longitude && place.longitude <= high.longitude;
    }
    [[nodiscard]] bool Overlaps(const Extent& other) const
    {
        return !IsEmpty() && !other.IsEmpty() && low.latitude <= other.high.latitude &&
               other.low.latitude <= high.latitude && low.longitude <= other.high.longitude &&
               other.low.longitude <= high.longitude;
    }
    void Widen(Place place)
    {
        low.latitude = std::min(low.latitude, place.latitude);
        low.longitude = std::min(low.longitude, place.longitude);
        high.latitude = std::max(high.latitude, place.latitude);
        high.longitude = std::max(high.longitude, place.longitude);
    }
    void Widen(const Extent& other)
    {
        if (!other.IsEmpty()) {
            Widen(other.low);
            Widen(other.high);
        }
    }
    friend bool operator==(const Extent&, const Extent&) = default;
};

} // namespace vasclip::street
