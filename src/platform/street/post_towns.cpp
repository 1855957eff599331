#include "platform/street/post_towns.h"

#include "platform/street/address_parser.h"
#include "platform/street/shape.h"

#include <cmath>

namespace vasclip::street {

namespace {

/// How far a place's own trade reaches, by which a ZIP with no place inside falls to the nearest.
double Weight(const PlaceName& place)
{
    switch (place.kind) {
    case PlaceKind::City: return 3;
    case PlaceKind::Town: return 2;
    case PlaceKind::Village: return 1;
    default: return 0; // a suburb or hamlet has no post office
    }
}

Extent ExtentOfRings(const std::vector<std::vector<Place>>& rings)
{
    Extent extent;
    for (const std::vector<Place>& ring : rings)
        extent.Widen(shape::ExtentOf(ring));
    return extent;
}

} // namespace

bool IsInside(const std::vector<std::vector<Place>>& rings, Place place)
{
    bool inside = false;
    for (const std::vector<Place>& ring : rings) {
        for (std::size_t at = 0, before = ring.size() - 1; at < ring.size(); before = at++) {
            const Place one = ring[at];
            const Place other = ring[before];
            if ((one.latitude > place.latitude) == (other.latitude > place.latitude))
                continue;
            const double along = (double(place.latitude) - one.latitude) / (double(other.latitude) - one.latitude);
            if (place.longitude < one.longitude + along * (double(other.longitude) - one.longitude))
                inside = !inside;
        }
    }
    return inside;
}

void PostTowns::Ground::Add(Place place)
{
    extent.Widen(place);
    latitude += place.latitude;
    longitude += place.longitude;
    ++count;
}

Place PostTowns::Ground::Centre() const
{
    if (count == 0)
        return {(extent.low.latitude + extent.high.latitude) / 2, (extent.low.longitude + extent.high.longitude) / 2};
    return {static_cast<qint32>(latitude / count), static_cast<qint32>(longitude / count)};
}

void PostTowns::Add(const PlaceName& place)
{
    const QString key = CityKey(place.name);
    if (key.isEmpty())
        return;
    m_places.push_back(place);
    m_outlines.emplace_back(key, ExtentOfRings(place.outline));
    m_keys.insert(key, true);
}

void PostTowns::Add(const ZipArea& area)
{
    auto& rings = m_areas[area.zip];
    rings.insert(rings.end(), area.rings.begin(), area.rings.end());
}

void PostTowns::AddZip(const QString& zip, Place place)
{
    if (!zip.isEmpty())
        m_zips[zip].Add(place);
}

void PostTowns::AddHouse(const QString& city, Place place)
{
    if (!city.isEmpty())
        m_towns[city].Add(place);
}

QString PostTowns::Around(Place place) const
{
    QString best;
    double size = 0;
    for (std::size_t at = 0; at < m_places.size(); ++at) {
        const auto& [key, extent] = m_outlines[at];
        if (m_places[at].kind == PlaceKind::Suburb || !extent.Contains(place) || !IsInside(m_places[at].outline, place))
            continue;
        const double ground = (double(extent.high.latitude) - extent.low.latitude) *
                              (double(extent.high.longitude) - extent.low.longitude);
        if (best.isEmpty() || ground < size) {
            best = key;
            size = ground;
        }
    }
    return best;
}

QString PostTowns::TownOf(const QString& zip, Place centre) const
{
    const auto area = m_areas.find(zip);
    const auto ground = m_zips.find(zip);
    QString best;
    double bestWorth = 0;
    // The largest place inside; with no outline of the ZIP the largest among its houses.
    for (std::size_t at = 0; at < m_places.size(); ++at) {
        const PlaceName& place = m_places[at];
        const bool inside = area != m_areas.end()     ? IsInside(area->second, place.place)
                            : ground != m_zips.end() ? ground->second.extent.Contains(place.place)
                                                     : false;
        const double worth = Weight(place) * 1e6 + double(place.population);
        if (inside && Weight(place) > 0 && worth > bestWorth) {
            best = m_outlines[at].first;
            bestWorth = worth;
        }
    }
    if (!best.isEmpty())
        return best;
    if (const QString around = Around(centre); !around.isEmpty())
        return around;
    for (std::size_t at = 0; at < m_places.size(); ++at) {
        const PlaceName& place = m_places[at];
        const double near = Weight(place) / (1000 + std::hypot(double(place.place.latitude) - centre.latitude,
                                                                double(place.place.longitude) - centre.longitude));
        if (near > bestWorth) {
            best = m_outlines[at].first;
            bestWorth = near;
        }
    }
    return best;
}

std::vector<ZipSummary> PostTowns::Zips() const
{
    std::map<QString, Ground> grounds = m_zips;
    for (const auto& [zip, rings] : m_areas)
        grounds[zip].extent.Widen(ExtentOfRings(rings));
    std::vector<ZipSummary> zips;
    for (const auto& [zip, ground] : grounds) {
        const Place centre = ground.Centre();
        QString town = TownOf(zip, centre);
        if (town.isEmpty() && m_towns.size() == 1)
            town = m_towns.begin()->first;
        zips.push_back({zip, town, centre, ground.extent});
    }
    return zips;
}

std::vector<PlaceSummary> PostTowns::Places() const
{
    std::vector<PlaceSummary> places;
    for (std::size_t at = 0; at < m_places.size(); ++at) {
        const PlaceName& place = m_places[at];
        Extent extent = m_outlines[at].second;
        extent.Widen(place.place);
        places.push_back({place.name, place.kind, place.population, place.place, extent});
    }
    for (const auto& [city, ground] : m_towns) {
        if (!m_keys.contains(city))
            places.push_back({city, PlaceKind::Town, 0, ground.Centre(), ground.extent});
    }
    return places;
}

} // namespace vasclip::street
