#pragma once

#include "link/addresses.h"

namespace vasclip::link {

/// What the report tells of a comp's place and sale; blank where it tells nothing.
struct AttachFields
{
    QString city, state, zip, county, neighborhood, saleFld, saleDate;
};

/// Reads the fields of a comp that are mapped: CITY, ST, ZIP, COUNTY, SALEDATE, SALEFLD and NEIGHBORHD, which
/// for a comp is its second address line and is taken apart; a line of city, state and ZIP is no neighborhood.
/// @throws RuntimeError of the exchange
[[nodiscard]] AttachFields GetNeighborHdCompData(LinkDesk& desk, const ReportPlace& place);

} // namespace vasclip::link
