#pragma once

#include "platform/street/address_number.h"
#include "platform/street/address_street.h"

#include <functional>

namespace vasclip::street {

/// An address in its parts; empty for what isn't there.
struct Address
{
    HouseNumber number;
    StreetName street;
    StreetName crossing; ///< the other street of an intersection
    QString unit; ///< "APT 4"
    QString city; ///< upper case, its words whole: "SAINT LOUIS"
    QString state; ///< two letters
    QString zip; ///< five digits

    /// One line, the unit left out: "110 N CHESTNUT ST, PRATTVILLE, AL 36067". Two spellings of one address give
    /// the same.
    [[nodiscard]] QString Text() const;
};

/// Whether some words are the name of a place; helps where no comma parts street and city.
using IsPlace = std::function<bool(const QString& name)>;

/// What people write, of any length, in any case.
[[nodiscard]] Address ParseAddress(const QString& text, const IsPlace& isPlace = {});

/// A city's name as `Address` has it: "St. Louis" is "SAINT LOUIS", "N Platte" "NORTH PLATTE".
[[nodiscard]] QString CityKey(const QString& city);

} // namespace vasclip::street
