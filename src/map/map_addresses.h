#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

// Address texts for the map; IGNOREZIPCODES leaves the ZIP out of all of them.

/// "City,ST ZIP" of the report's subject.
[[nodiscard]] QString SubjectCityStateZip(const MapDesk& desk);
/// The whole address of the report's subject.
[[nodiscard]] QString SubjectMapAddress(const MapDesk& desk);
/// "City, ST ZIP" of a record.
[[nodiscard]] QString RecordCityStateZip(const MapDesk& desk, const store::Record& record);
/// Key and city of a record.
[[nodiscard]] QString RecordMapAddress(const MapDesk& desk, const QString& key, const store::Record& record);

/// City, state and ZIP of an address, "City, ST ZIP": from its record, else from the report's boxes of the slot and
/// from the subject's, with the questions and messages that belong to what is missing.
/// @param slot  where it stands in the report
/// @return "" where its arrow is to be left out
[[nodiscard]] QString ResolveCompCityState(MapDesk& desk, const QString& address, link::SlotRef slot);

/// What stands in the report's boxes for a slot: city, state and ZIP in capitals, the state only where it is one,
/// the ZIP in five digits.
struct CityParts
{
    QString city, state, zip;
};
[[nodiscard]] CityParts BoxesOf(const MapDesk& desk, link::SlotRef slot);

} // namespace vasclip::map
