#pragma once

#include "platform/street/geocode_score.h"
#include "platform/street/geocoder.h"

#include <set>

namespace vasclip::street {

class EdgeStore;

/// How far beside the middle of a street its houses are placed.
inline constexpr double kHouseBesideFeet = 25;

/// A street that may be meant, of one county.
struct Variant
{
    quint32 county = 0;
    std::shared_ptr<const LookupReader> lookup;
    StoredStreet street;
    double score = 1; ///< how much of its name was asked for
};

/// A candidate with what decides whether it may be placed unasked.
struct Hit
{
    Candidate candidate;
    bool located = false;
    bool doubtful = false; ///< across the street from where the numbers are
};

/// The search for one address.
class Search
{
public:
    Search(const EdgeStore& store, const NameIndex& index, const Address& asked);

    /// All that was found, in no order.
    [[nodiscard]] std::vector<Hit> Run();

private:
    /// Streets of a name among some counties, which are ascending.
    [[nodiscard]] std::vector<Variant> Named(const StreetName& name, const std::vector<quint32>& counties) const;
    [[nodiscard]] std::vector<Variant> Misspelt(const StreetName& name, const std::vector<quint32>& counties) const;
    /// Counties of the whole map that can have the name, in the state that was asked for.
    [[nodiscard]] std::vector<quint32> AnyWith(const StreetName& name) const;

    /// Counties around the ZIP or city that was asked for, without those that have it.
    [[nodiscard]] std::vector<quint32> Neighbours() const;

    [[nodiscard]] std::vector<Hit> HitsOf(const std::vector<Variant>& variants) const;
    void AddHouses(const Variant& variant, const HouseNumber& number, double score, std::vector<Hit>& hits) const;
    void AddRanges(const Variant& variant, const HouseNumber& number, double score, std::vector<Hit>& hits) const;
    void AddStreet(const Variant& variant, std::vector<Hit>& hits) const;
    void AddCrossings(const std::vector<Variant>& ones, const std::vector<Variant>& others,
                      std::vector<Hit>& hits) const;
    void AddArea(std::vector<Hit>& hits) const;

    [[nodiscard]] Hit HitAt(const Variant& variant, Place place, const QString& number, quint32 zip, quint32 city,
                            double score) const;
    [[nodiscard]] std::vector<Place> LineOf(const Variant& variant, EdgePosition position) const;
    /// Does the street itself, by its whole name and where it was said to be, stand on the map with numbers?
    [[nodiscard]] bool IsNumberedHere(const std::vector<Variant>& variants) const;

    const EdgeStore& m_store;
    const NameIndex& m_index;
    const Address& m_asked;
    const Whereabouts m_where;
};

/// The town to name at a place: what the source says of it, else of its ZIP, else the nearest.
[[nodiscard]] QString TownAt(const LookupReader& lookup, Place place, quint32 zip, quint32 city);

} // namespace vasclip::street
