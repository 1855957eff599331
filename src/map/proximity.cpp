#include "map/proximity.h"

#include "map/map_addresses.h"
#include "map/pinmap.h"
#include "map/placed_for.h"
#include "map/selection.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr double kFeetOfMile = 5280;
constexpr qint32 kSubjectPoint = 1;
constexpr int kCompassNames = 16;
constexpr std::array<QLatin1StringView, kCompassNames> kCompass = {
    "North"_L1, "NNW"_L1, "NW"_L1, "WNW"_L1, "West"_L1, "WSW"_L1, "SW"_L1, "SSW"_L1,
    "South"_L1, "SSE"_L1, "SE"_L1, "ESE"_L1, "East"_L1, "ENE"_L1, "NE"_L1, "NNE"_L1};
// Limits of the ring as whole degrees.
constexpr int kLastBearing = 338;
constexpr int kBearingStep = 23;

using Ring = std::array<street::Place, kCompassNames>;

void Stand(MapDesk& desk, street::Place place)
{
    desk.map.SetLatitude(place.latitude);
    desk.map.SetLongitude(place.longitude);
}

bool StandAt(MapDesk& desk, const QString& address)
{
    desk.map.SetLocation(address);
    desk.map.DoAction(action::kGeocode);
    return desk.map.Status() >= 0;
}

/// Places a mile around; the last entry, for which there is no bearing, is 0, 0.
Ring RingAround(MapDesk& desk, street::Place subject)
{
    Ring ring{};
    std::size_t k = 0;
    for (int bearing = 0; bearing <= kLastBearing; bearing += kBearingStep, ++k) {
        desk.map.SetDValue(bearing);
        desk.map.SetValue(kFeetOfMile);
        Stand(desk, subject);
        desk.map.DoAction(action::kProject);
        ring[k] = {desk.map.Latitude(), desk.map.Longitude()};
    }
    return ring;
}

/// The subject by the report and its record, whatever is on the map.
bool StandAtSubject(MapDesk& desk)
{
    const std::optional<store::Record> subject = FindComp(desk, AddressAt(desk, {}));
    if (!subject || !IsAnchored(*subject))
        return StandAt(desk, SubjectMapAddress(desk));
    Stand(desk, {Millionths(subject->Text(fields::LATITUDE)), Millionths(subject->Text(fields::LONGITUDE))});
    return true;
}

/// The selected point, if it was placed for this address.
std::optional<MapPoint> SelectedAs(MapDesk& desk, const QString& address)
{
    const qint32 selected = desk.state.g_MapSelectedID;
    std::optional<MapPoint> point = selected > 0 ? LoadPoint(desk, selected) : std::nullopt;
    if (point && (text::Folded(PointAddress(desk, *point)) != text::Folded(address) || !StandsFor(desk, *point)))
        point.reset();
    return point;
}

/// Does the subject's point, if there is one, stand for the subject that the report has?
bool SubjectStands(MapDesk& desk)
{
    const qint32 id = FindSubjectPoint(desk);
    const std::optional<MapPoint> point = id >= 1 ? LoadPoint(desk, id) : std::nullopt;
    return !point || StandsFor(desk, *point);
}

/// Where a comp is: the selected point if it is that one's, else its record's stored place.
std::optional<street::Place> PlaceOf(MapDesk& desk, const QString& address)
{
    if (const std::optional<MapPoint> point = SelectedAs(desk, address))
        return point->place;
    const std::optional<store::Record> record = FindComp(desk, address);
    if (record && HasLocation(*record))
        return street::Place{Millionths(record->Text(fields::LATITUDE)),
                             Millionths(record->Text(fields::LONGITUDE))};
    return std::nullopt;
}

int Nearest(MapDesk& desk, const Ring& ring)
{
    int winner = 0;
    double shortest = 0;
    for (int k = 0; k < kCompassNames; ++k) {
        Stand(desk, ring[static_cast<std::size_t>(k)]);
        desk.map.DoAction(action::kDistance);
        const double feet = desk.map.Value();
        if (k == 0 || feet < shortest) {
            shortest = feet;
            winner = k;
        }
    }
    return winner;
}

} // namespace

QString MilesText(qint32 feet)
{
    return text::Format(feet / kFeetOfMile, u"####.#"_s);
}

QString CompassName(int index)
{
    return index < 0 || index >= kCompassNames ? QString() : QString(kCompass[static_cast<std::size_t>(index)]);
}

QString CalcTheDistance(MapDesk& desk, const QString& key)
{
    if (!desk.state.inUse)
        return {};
    street::StreetControl& map = desk.map;
    if (!StandAtSubject(desk))
        return {};
    map.DoAction(action::kSetOrigin);
    const std::optional<store::Record> record = FindComp(desk, key);
    if (!record)
        return {};
    if (HasLocation(*record))
        Stand(desk, {Millionths(record->Text(fields::LATITUDE)), Millionths(record->Text(fields::LONGITUDE))});
    else if (!StandAt(desk, RecordMapAddress(desk, key, *record)))
        return {};
    map.DoAction(action::kDistance);
    return map.Status() < 0 ? QString() : MilesText(text::ToInt32(map.Value()));
}

QString PointDistanceToSubject(MapDesk& desk, qint32 id)
{
    // A subject that was not found can have been placed by hand, under a number of its own.
    const qint32 subject = desk.state.g_MapResult(kSubjectPoint) > 0 ? kSubjectPoint : FindSubjectPoint(desk);
    if (id <= kSubjectPoint || subject < 1 || !LoadPoint(desk, subject))
        return {};
    desk.map.DoAction(action::kSetOrigin);
    if (!LoadPoint(desk, id))
        return {};
    desk.map.DoAction(action::kDistance);
    return desk.map.Status() < 0 ? QString() : MilesText(text::ToInt32(desk.map.Value()));
}

QString GetDirection(MapDesk& desk, const QString& address)
{
    if (!desk.state.inUse || FindSubjectPoint(desk) < 1 || (!SubjectStands(desk) && !StandAtSubject(desk)))
        return {};
    const street::Place subject{desk.map.Latitude(), desk.map.Longitude()};
    desk.map.DoAction(action::kSetOrigin);
    const Ring ring = RingAround(desk, subject);
    if (desk.state.g_MapSelectedID == 0)
        return {};
    const std::optional<street::Place> comp = PlaceOf(desk, address);
    if (!comp)
        return {};
    Stand(desk, *comp);
    desk.map.DoAction(action::kSetOrigin);
    return CompassName(Nearest(desk, ring));
}

QString ProximityText(MapDesk& desk, const QString& address)
{
    // What no point stands for is measured by its record: the selected point is another comp's.
    const bool points = SelectedAs(desk, address) && SubjectStands(desk);
    const QString miles =
        points ? PointDistanceToSubject(desk, desk.state.g_MapSelectedID) : CalcTheDistance(desk, address);
    if (miles.isEmpty())
        return {};
    const QString direction = GetDirection(desk, address);
    return miles == "."_L1 ? u"< .1 Mi "_s + direction : miles + u" Mi. "_s + direction;
}

} // namespace vasclip::map
