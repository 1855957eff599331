#pragma once

#include "platform/street/types.h"

#include <QString>

#include <vector>

namespace vasclip::street {

/// How an address was found, the surest first.
enum class FoundBy : quint8 {
    Point, ///< the house itself stands in an address collection
    Range, ///< along a side of a street, by its house numbers
    Intersection,
    Street, ///< the street alone: no number was asked for, or none was given by the source
    ZipArea,
    City
};

/// One answer to an address.
struct Candidate
{
    Place place;
    FoundBy foundBy = FoundBy::Street;
    double uncertaintyFeet = 0; ///< the house lies within this of `place`, by the source's own quality
    QString address; ///< as found: "110 N CHESTNUT ST, PRATTVILLE, AL 36067"
    double score = 0; ///< 0 to 1, how much of what was asked is so
    bool sure = false; ///< may be placed without a question
};

/// Finds addresses, and the address of a place.
class Geocoder
{
public:
    virtual ~Geocoder() = default;
    /// @param address  as people write it, of any length; @return at most `limit`, best first
    [[nodiscard]] virtual std::vector<Candidate> Find(const QString& address, int limit = 10) const = 0;
    /// The nearest address, at most `withinFeet` away.
    [[nodiscard]] virtual std::vector<Candidate> Near(Place place, double withinFeet = 1000) const = 0;
};

} // namespace vasclip::street
