#pragma once

#include "map/map_desk.h"

namespace vasclip::map {

/// Where a record lies, as it is to be stored.
struct RecordLocation
{
    QString key;
    bool anchored = false;
    QString latitude = {};  ///< decimal degrees; "" for none
    QString longitude = {};
};

/// The place of a found address. It gives way to an anchor: see SaveLocations.
[[nodiscard]] RecordLocation FoundAt(const QString& key, street::Place place);
[[nodiscard]] RecordLocation AnchoredAt(const QString& key, street::Place place);
[[nodiscard]] RecordLocation Forgotten(const QString& key);

/// Stores a record's LATITUDE, LONGITUDE and ANCHORED; nothing for a key without a record, or where it reads so
/// already. The cursors of the sources stay. @throws RuntimeError as store::Change
void SaveRecordLocation(MapDesk& desk, const RecordLocation& location);

/// The same for many, whole or not at all, with failures reported once. What was merely found never takes the place
/// of an anchor.
/// @return false if nothing was stored
bool SaveLocations(MapDesk& desk, const QList<RecordLocation>& locations);

} // namespace vasclip::map
