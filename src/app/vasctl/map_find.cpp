#include "app/vasctl/map.h"
#include "app/vasctl/map_desk.h"

#include "link/messages.h"
#include "map/map_addresses.h"
#include "map/messages.h"
#include "map/slot_labels.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::vasctl {

using namespace Qt::Literals::StringLiterals;

namespace {

int Told(const Output& out, const QString& what, street::Place place)
{
    out.Value({{u"found"_s, what}, {u"latitude"_s, place.latitude / 1e6}, {u"longitude"_s, place.longitude / 1e6}},
              u"%1  %2  %3"_s.arg(Degrees(place.latitude), Degrees(place.longitude), what));
    return kDone;
}

/// Where an address is, if it is sure.
std::optional<street::Place> FindAddress(map::MapDesk& desk, const QString& address)
{
    desk.map.SetLocation(address);
    desk.map.DoAction(street::action::kGeocode);
    if (desk.map.Status() < 0)
        return std::nullopt;
    return street::Place{desk.map.Latitude(), desk.map.Longitude()};
}

/// Where the subject or a comp of the open report is.
int FindLabel(Session& session, const Output& out, map::MapDesk& desk, link::SlotRef slot, const QString& label)
{
    if (!session.ReportIsOpen(out, link::messages::kNotRunning))
        return kNoLink;
    static_cast<void>(session.WithReport());
    const QString address = map::AddressAt(desk, slot);
    const std::optional<store::Record> record = map::FindComp(desk, address);
    if (record && map::IsAnchored(*record))
        return Told(out, label + u' ' + address,
                    {map::Millionths(record->Text(fields::LATITUDE)),
                     map::Millionths(record->Text(fields::LONGITUDE))});
    const QString town = address.isEmpty() ? QString() : map::ResolveCompCityState(desk, address, slot);
    if (const auto place = town.isEmpty() ? std::nullopt : FindAddress(desk, address + u", "_s + town))
        return Told(out, label + u' ' + address, *place);
    out.Error(map::messages::kLabelNotFound.arg(label));
    return kNotFound;
}

} // namespace

int MapFind(Session& session, const Output& out, const QStringList& words)
{
    const QString wanted = text::Trim(words.join(u' '));
    if (wanted.isEmpty()) {
        out.Error(u"Usage: vasctl map find ADDRESS, or a label of the report: SUBJECT, \"COMP #1\""_s);
        return kUsage;
    }
    shell::MapParts* const map = OpenMap(session, out);
    if (!map)
        return kFailed;
    map::MapDesk& desk = map->Desk();
    const QString label = wanted.toUpper();
    if (label == u"SUBJECT"_s)
        return FindLabel(session, out, desk, {}, label);
    if (const std::optional<link::SlotRef> slot = map::SlotOfLabel(label))
        return FindLabel(session, out, desk, *slot, label);
    const auto place = FindAddress(desk, wanted);
    const std::vector<street::Candidate>& candidates = map->Street().Candidates();
    if (place && !candidates.empty())
        return Told(out, candidates.front().address, *place);
    if (candidates.empty()) {
        out.Error(map::messages::kAddressNotFound.arg(wanted.left(100)));
        return kNotFound;
    }
    QStringList lines{candidates.size() == 1 ? u"Not sure; this may be meant:"_s : u"Not sure; these may be meant:"_s};
    for (const street::Candidate& one : candidates)
        lines.append(u"%1  %2  %3"_s.arg(Degrees(one.place.latitude), Degrees(one.place.longitude), one.address));
    out.Error(lines.join(u'\n'));
    return kNotFound;
}

} // namespace vasclip::vasctl
