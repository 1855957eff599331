#include "mapdata/surface.h"

namespace vasclip::mapdata {

namespace {

constexpr std::size_t kBands = 256;

} // namespace

Surface::Surface(const std::vector<std::vector<street::Place>>& rings)
    : m_bands(kBands)
{
    for (const std::vector<street::Place>& ring : rings) {
        for (const street::Place place : ring)
            m_extent.Widen(place);
    }
    for (const std::vector<street::Place>& ring : rings) {
        for (std::size_t at = 0; at < ring.size(); ++at) {
            const Side side{ring[at], ring[at + 1 == ring.size() ? 0 : at + 1]};
            const std::size_t low = BandOf(std::min(side.from.latitude, side.to.latitude));
            const std::size_t high = BandOf(std::max(side.from.latitude, side.to.latitude));
            for (std::size_t band = low; band <= high; ++band)
                m_bands[band].push_back(side);
        }
    }
}

std::size_t Surface::BandOf(qint32 latitude) const
{
    const qint64 height = qint64(m_extent.high.latitude) - m_extent.low.latitude + 1;
    return static_cast<std::size_t>((qint64(latitude) - m_extent.low.latitude) * qint64(kBands) / height);
}

bool Surface::Contains(street::Place place) const
{
    if (!m_extent.Contains(place))
        return false;
    bool inside = false;
    for (const Side& side : m_bands[BandOf(place.latitude)]) {
        if ((side.from.latitude > place.latitude) == (side.to.latitude > place.latitude))
            continue;
        const double share = (double(place.latitude) - side.from.latitude) /
                             (double(side.to.latitude) - side.from.latitude);
        const double longitude = side.from.longitude + share * (double(side.to.longitude) - side.from.longitude);
        inside = inside != (place.longitude < longitude);
    }
    return inside;
}

} // namespace vasclip::mapdata
