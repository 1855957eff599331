#pragma once

#include "platform/street/lookup_writer.h"

#include <QHash>

#include <map>

namespace vasclip::street {

/// Gathers where a county's ZIPs and places lie, and which is the town of each ZIP.
class PostTowns
{
public:
    void Add(const PlaceName& place);
    void Add(const ZipArea& area);
    /// A house or a numbered edge that has that ZIP.
    void AddZip(const QString& zip, Place place);
    /// A house whose source names its town, by `CityKey`.
    void AddHouse(const QString& city, Place place);

    [[nodiscard]] bool HasPlaces() const { return !m_places.empty(); }
    [[nodiscard]] bool IsPlace(const QString& city) const { return m_keys.contains(city); }
    /// The key of the place in whose outline this lies, the smallest first; "" for none.
    [[nodiscard]] QString Around(Place place) const;
    [[nodiscard]] std::vector<ZipSummary> Zips() const;
    /// The places of the source, and the towns that only houses name.
    [[nodiscard]] std::vector<PlaceSummary> Places() const;

private:
    /// Some places with their middle.
    struct Ground
    {
        Extent extent;
        qint64 latitude = 0;
        qint64 longitude = 0;
        qint64 count = 0;

        void Add(Place place);
        [[nodiscard]] Place Centre() const;
    };

    [[nodiscard]] QString TownOf(const QString& zip, Place centre) const;

    std::vector<PlaceName> m_places;
    std::vector<std::pair<QString, Extent>> m_outlines; ///< key and extent of each place, in the order of m_places
    QHash<QString, bool> m_keys;
    std::map<QString, std::vector<std::vector<Place>>> m_areas; ///< by ZIP
    std::map<QString, Ground> m_zips;
    std::map<QString, Ground> m_towns;
};

/// Whether a place lies within rings that are filled by the even-odd rule.
[[nodiscard]] bool IsInside(const std::vector<std::vector<Place>>& rings, Place place);

} // namespace vasclip::street
