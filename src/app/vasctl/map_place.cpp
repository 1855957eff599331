#include "app/vasctl/map.h"
#include "app/vasctl/map_desk.h"

#include "link/messages.h"
#include "map/cmd_prox.h"
#include "map/map_addresses.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList Row(const QString& label, const QString& address, street::Place place, bool anchored)
{
    return {label, address, Degrees(place.latitude), Degrees(place.longitude), anchored ? u"yes"_s : u"no"_s};
}

int Told(const Output& out, const QList<QStringList>& rows, const QStringList& notFound)
{
    if (!rows.isEmpty() || out.Json())
        out.Table({u"point"_s, u"address"_s, u"latitude"_s, u"longitude"_s, u"anchored"_s}, rows,
                  {Kind::Text, Kind::Text, Kind::Number, Kind::Number});
    if (!notFound.isEmpty())
        out.Error(map::messages::kNotFound.arg(notFound.join(u"; "_s)));
    return notFound.isEmpty() ? kDone : kNotFound;
}

int PlaceRecords(map::MapDesk& desk, const Output& out, const QStringList& keys)
{
    QList<QStringList> rows;
    QStringList notFound;
    QList<map::RecordLocation> found;
    for (const QString& word : keys) {
        const QString key = text::Folded(word);
        const std::optional<store::Record> record = map::FindComp(desk, key);
        if (record && map::IsAnchored(*record)) {
            rows.append(Row({}, key,
                            {map::Millionths(record->Text(fields::LATITUDE)),
                             map::Millionths(record->Text(fields::LONGITUDE))},
                            true));
            continue;
        }
        if (record && map::MapPlaceAddrPoint(desk, map::NextPoint(desk), map::RecordMapAddress(desk, key, *record), {}, found))
            rows.append(Row({}, key, {desk.map.Latitude(), desk.map.Longitude()}, false));
        else
            notFound.append(record ? key : key + u" (no record)"_s);
    }
    if (!map::SaveLocations(desk, found))
        return kFailed; // a box has told why
    return Told(out, rows, notFound);
}

} // namespace

int MapPlace(Session& session, const Output& out, const QStringList& words)
{
    if (words.isEmpty() && !session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    shell::MapParts* const map = OpenMap(session, out);
    if (!map)
        return kFailed;
    map::MapDesk& desk = map->Desk();
    if (!words.isEmpty())
        return PlaceRecords(desk, out, words);
    static_cast<void>(session.WithReport());
    const Placement placement = PlaceReport(desk, map::kMapGroups);
    if (!map::SaveLocations(desk, placement.found))
        return kFailed;
    QList<QStringList> rows;
    for (const Placed& point : placement.points)
        rows.append(Row(point.label, point.address, point.place, point.anchored));
    return Told(out, rows, placement.notFound);
}

int MapSendProximity(Session& session, const Output& out, const QStringList& words)
{
    if (!words.isEmpty()) {
        out.Error(u"Usage: vasctl map proximity"_s);
        return kUsage;
    }
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    shell::MapParts* const map = OpenMap(session, out);
    if (!map)
        return kFailed;
    map::MapDesk& desk = map->Desk();
    static_cast<void>(session.WithReport());
    const Placement placement = PlaceReport(desk, map::kMapGroups);
    if (!map::SaveLocations(desk, placement.found))
        return kFailed;
    if (!placement.notFound.isEmpty())
        out.Error(map::messages::kNotFound.arg(placement.notFound.join(u"; "_s)));
    map::cmdProx_Click(desk);
    const forms::Label& told = desk.status.lblmsg;
    if (told.Fore() == forms::Colour::Red) {
        out.Error(told.Caption());
        return kFailed;
    }
    out.Line(told.Caption());
    return kDone;
}

int MapAnchor(Session& session, const Output& out, const QStringList& words)
{
    if (words.size() != 3) {
        out.Error(u"Usage: vasctl map anchor KEY LATITUDE LONGITUDE, such as \"12 OAK ST\" 44.8215 -120.9542"_s);
        return kUsage;
    }
    const auto place = PlaceOf(out, words[1], words[2]);
    if (!place)
        return kUsage;
    const QString key = text::Folded(words[0]);
    static_cast<void>(MapDirectory(session)); // which the settings name
    shell::MapParts& map = session.WithDatabook().Map();
    const bool maps = map.Open();
    map::MapDesk& desk = map.Desk();
    if (!map::FindComp(desk, key)) {
        out.Error(u"There is no record '%1' in the Databook."_s.arg(key));
        return kNotFound;
    }
    // A longitude without its sign lies on another continent.
    if (maps && !map.Covered().Contains(*place) &&
        !session.Prompter().YesNo(u"Anchor"_s, u"%1 %2 lies outside of all street maps. Anchor %3 there?"_s.arg(
                                                   Degrees(place->latitude), Degrees(place->longitude), key)))
        return kDeclined;
    if (!map::SaveLocations(desk, {map::AnchoredAt(key, *place)}))
        return kFailed;
    const QString message = map::messages::kAnchored.arg(key);
    out.Value({{u"key"_s, key},
               {u"latitude"_s, place->latitude / 1e6},
               {u"longitude"_s, place->longitude / 1e6},
               {u"message"_s, message}},
              message);
    return kDone;
}

} // namespace vasclip::vasctl
