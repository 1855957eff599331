#include "map/locations.h"

#include "link/reporter.h"
#include "map/messages.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/transaction.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

bool Stands(const store::Record& record, const RecordLocation& location)
{
    return record.Text(fields::LATITUDE) == location.latitude &&
           record.Text(fields::LONGITUDE) == location.longitude &&
           record.Text(fields::ANCHORED) == (location.anchored ? "1"_L1 : "0"_L1);
}

QString WordsOf(const RecordLocation& location)
{
    return location.anchored             ? messages::kAnchorWords
           : location.latitude.isEmpty() ? messages::kForgetWords
                                         : messages::kPlaceWords;
}

void Store(MapDesk& desk, const RecordLocation& location)
{
    store::Change change(desk.sources.datDatabook, store::Change::OfKey{location.key}, WordsOf(location));
    change.Set(fields::LATITUDE, location.latitude);
    change.Set(fields::LONGITUDE, location.longitude);
    change.Set(fields::ANCHORED, location.anchored ? u"1"_s : u"0"_s);
    change.Store();
}

/// Is there anything to store?
bool Differs(const MapDesk& desk, const RecordLocation& location)
{
    const std::optional<store::Record> record = FindComp(desk, location.key);
    return record && !Stands(*record, location);
}

/// The same for what may have been merely found, which never takes the place of an anchor.
bool IsNews(const MapDesk& desk, const RecordLocation& location)
{
    const std::optional<store::Record> record = FindComp(desk, location.key);
    if (!record || Stands(*record, location))
        return false;
    const bool found = !location.anchored && !location.latitude.isEmpty();
    return !found || !IsAnchored(*record);
}

} // namespace

RecordLocation FoundAt(const QString& key, street::Place place)
{
    return {.key = key,
            .latitude = DegreesText(place.latitude),
            .longitude = DegreesText(place.longitude)};
}

RecordLocation AnchoredAt(const QString& key, street::Place place)
{
    RecordLocation location = FoundAt(key, place);
    location.anchored = true;
    return location;
}

RecordLocation Forgotten(const QString& key)
{
    return {.key = key};
}

void SaveRecordLocation(MapDesk& desk, const RecordLocation& location)
{
    const common::RoutineScope scope{"SaveRecordLocation"};
    if (Differs(desk, location))
        Store(desk, location);
}

bool SaveLocations(MapDesk& desk, const QList<RecordLocation>& locations)
{
    return link::Reported(desk.ports.prompter, "SaveRecordLocation", [&] {
        QList<RecordLocation> changed;
        for (const RecordLocation& location : locations)
            if (IsNews(desk, location))
                changed.append(location);
        if (changed.isEmpty())
            return;
        store::Transaction whole(desk.sources.datDatabook);
        for (const RecordLocation& location : std::as_const(changed))
            Store(desk, location);
        whole.Commit();
    });
}

} // namespace vasclip::map
