#pragma once

#include "platform/street/edge_store.h"
#include "platform/street/geocoder.h"

namespace vasclip::street {

/// Finds addresses on the maps that are open: houses of an address collection first, then numbers along streets, then
/// the street alone where nothing tells its numbers.
class MapGeocoder final : public Geocoder
{
public:
    /// @param store  must outlive the geocoder
    explicit MapGeocoder(const EdgeStore& store)
        : m_store(store)
    {}

    [[nodiscard]] std::vector<Candidate> Find(const QString& address, int limit = 10) const override;
    [[nodiscard]] std::vector<Candidate> Near(Place place, double withinFeet = 1000) const override;

private:
    const EdgeStore& m_store;
};

} // namespace vasclip::street
