#pragma once

#include "platform/street/address_parser.h"
#include "platform/street/lookup_reader.h"

namespace vasclip::street {

/// How much of the name that was asked for a street bears, 0 to 1.
[[nodiscard]] double NameScore(const StreetName& asked, const StreetName& street);
/// The share that is left of it where a name was written with typing errors.
[[nodiscard]] double ErrorScore(int errors);

/// A name that may be meant by what was written, and how likely.
struct NameReading
{
    StreetName name;
    double score = 1;
};
/// "Gin Shop Hill" may be of Gin Shop and a Hill, or Gin Shop Hill whose Road was left out. The first is as written.
[[nodiscard]] std::vector<NameReading> ReadingsOf(const StreetName& asked);

/// Whether a place is where an address was said to be.
class Whereabouts
{
public:
    Whereabouts(const NameIndex& index, const Address& asked);

    /// Nothing of it is known, so that any county may have the address.
    [[nodiscard]] bool IsOpen() const { return m_counties.empty(); }
    /// The counties that have the ZIP or the city.
    [[nodiscard]] const std::vector<quint32>& Counties() const { return m_counties; }
    [[nodiscard]] const std::optional<KnownZip>& Zip() const { return m_zip; }
    [[nodiscard]] const std::vector<KnownPlace>& Places() const { return m_places; }

    struct Agreement
    {
        double score = 1;
        bool located = false; ///< ZIP or city say that it is here
    };
    /// @param zip, city  of the place itself, "" where they aren't known
    [[nodiscard]] Agreement Of(Place place, const QString& zip, const QString& city, const QString& state) const;

private:
    [[nodiscard]] bool NearCity(Place place) const;

    const Address& m_asked;
    std::vector<quint32> m_counties;
    std::optional<KnownZip> m_zip;
    std::vector<KnownPlace> m_places;
    bool m_cityMisspelt = false;
};

} // namespace vasclip::street
