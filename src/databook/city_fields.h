#pragma once

#include "databook/city_list.h"
#include "store/data_source.h"

namespace vasclip::databook {

/// Gives every record of a neighbourhood a city, state, ZIP and county, each brought to its field's size: all of them
/// change, or none.
/// @param databook      table-type source of COMPS
/// @param neighborhood  compared trimmed and without regard to case; not blank
/// @return records changed
/// @throws RuntimeError 5 for a blank neighbourhood, which would be every record without one; as
/// Database::Execute
qint64 AssignCity(store::DataSource& databook, const QString& neighborhood, const CityEntry& entry);

/// Gives the record that the source stands on the city, state, ZIP and county, and updates it.
/// @throws RuntimeError as store::Change
void SetCity(store::DataSource& databook, const CityEntry& entry);

} // namespace vasclip::databook
