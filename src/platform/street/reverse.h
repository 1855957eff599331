#pragma once

#include "platform/street/edge_store.h"
#include "platform/street/geocoder.h"

#include <vector>

namespace vasclip::street {

/// The address of a place: the house that stands there, the number along the nearest numbered street, and that street
/// alone; the nearest first, none farther than `withinFeet`.
[[nodiscard]] std::vector<Candidate> AddressesNear(const EdgeStore& store, Place place, double withinFeet);

} // namespace vasclip::street
