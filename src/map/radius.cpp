#include "map/radius.h"

#include "map/map_addresses.h"
#include "map/messages.h"
#include "map/pinmap.h"
#include "map/selection.h"
#include "platform/text/text.h"

#include <QHash>
#include <QSet>

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr double kFeetOfMile = 5280;
constexpr double kStepMiles = 0.25;
constexpr int kRingPoints = 36;
constexpr int kDegreesApart = 10;
constexpr qint32 kLineWidth = 2;
constexpr qint32 kLineColour = 0xFF00FF;
constexpr double kJustOutside = 1.5;

double MilesIn(const MapDesk& desk)
{
    return text::Val(desk.tab.txtradius.Text());
}

void ClearList(MapDesk& desk)
{
    desk.tab.lstaddresses.Clear();
    desk.tab.lstids.Clear();
    desk.tab.lblJustOutside.SetCaption(QString());
    desk.state.radiusDistances.clear();
}

QString MilesWords(double feet)
{
    constexpr int kDecimals = 2; // with one, who is just outside reads as far as who is inside
    return messages::kMiles.arg(feet / kFeetOfMile, 0, 'f', kDecimals);
}

/// Behind the houses that the map reports: arrows, whose text stands in their bitmap, each one's distance, and who is
/// just outside.
void CompleteList(MapDesk& desk)
{
    const std::vector<RadiusComp> comps = CompsAroundRadius(desk);
    QStringList outside;
    QHash<QString, QString> distances;
    const QSet<QString> listed(desk.tab.lstids.Items().begin(), desk.tab.lstids.Items().end());
    for (const RadiusComp& comp : comps) {
        const QString id = text::Dec(comp.id);
        distances.insert(id, MilesWords(comp.feet));
        if (!comp.within) {
            outside.append(comp.address + u' ' + MilesWords(comp.feet));
        } else if (!listed.contains(id)) {
            desk.tab.lstaddresses.AddItem(comp.address);
            desk.tab.lstids.AddItem(id);
        }
    }
    for (int line = 0; line < desk.tab.lstids.ListCount(); ++line)
        desk.state.radiusDistances.append(distances.value(desk.tab.lstids.List(line)));
    constexpr qsizetype kNamed = 5;
    const QString more = outside.size() > kNamed ? u", ..."_s : QString();
    if (!outside.isEmpty())
        desk.tab.lblJustOutside.SetCaption(messages::kJustOutside.arg(outside.mid(0, kNamed).join(u"; "_s) + more));
    Q_EMIT desk.tab.lstaddresses.Changed(); // the distances stand beside its lines
}

void RemoveCircle(MapDesk& desk)
{
    desk.map.DoAction(action::kClearLines);
    ClearList(desk);
    desk.state.radiusMiles = 0;
    desk.map.Refresh();
}

/// Where the subject is: its point, or its address.
std::optional<street::Place> SubjectPlace(MapDesk& desk)
{
    if (const qint32 subject = FindSubjectPoint(desk); subject >= 1)
        if (const std::optional<MapPoint> point = LoadPoint(desk, subject))
            return point->place;
    if (AddressAt(desk, {}).isEmpty())
        return std::nullopt;
    desk.map.SetLocation(SubjectMapAddress(desk));
    desk.map.DoAction(action::kGeocode);
    if (desk.map.Status() < 0)
        return std::nullopt;
    return street::Place{desk.map.Latitude(), desk.map.Longitude()};
}

bool IsSubject(const MapDesk& desk, const QString& text)
{
    return text == AddressAt(desk, {}) || text::Folded(text) == text::Folded(AddressAt(desk, {})) ||
           text == "SUBJECT"_L1;
}

} // namespace

void ckbRadius_Click(MapDesk& desk, bool mapTabShown)
{
    if (!desk.tab.ckbRadius.Value())
        RemoveCircle(desk);
    else if (mapTabShown)
        txtradius_Change(desk);
    if (desk.tab.ckbRadius.Value() && MilesIn(desk) <= 0)
        desk.status.lblmsg.Show(messages::kNoRadius, forms::Colour::Blue);
}

void spnradius_Change(MapDesk& desk, int step)
{
    const double miles = std::max(0.0, MilesIn(desk) + step * kStepMiles);
    const double shown = miles < kStepMiles ? 0 : miles;
    desk.tab.txtradius.SetText(QString::number(shown));
    desk.tab.ckbRadius.SetValue(shown > 0);
}

void txtradius_Change(MapDesk& desk)
{
    const double miles = MilesIn(desk);
    if (miles <= 0) {
        RemoveCircle(desk);
        return;
    }
    desk.tab.ckbRadius.SetValue(true); // what is typed draws it
    if (const std::optional<street::Place> subject = SubjectPlace(desk)) {
        desk.state.radiusMiles = miles;
        SetCircle(desk, *subject);
        return;
    }
    RemoveCircle(desk); // one of another radius or another subject would be taken for it
    desk.status.lblmsg.Show(messages::kNoCircle, forms::Colour::Red);
}

void SetCircle(MapDesk& desk, street::Place centre)
{
    street::StreetControl& map = desk.map;
    map.DoAction(action::kClearLines);
    desk.state.radiusCentre = centre;
    CreateCircularBuffer(desk, kRadiusLine, centre, desk.state.radiusMiles);
    map.Refresh();
    ClearList(desk);
    map.SetID(kRadiusLine);
    map.DoAction(action::kPointsInLine);
    CompleteList(desk);
}

void FollowCircle(MapDesk& desk)
{
    if (!desk.tab.ckbRadius.Value())
        return;
    RemoveCircle(desk);
    txtradius_Change(desk);
}

void CreateCircularBuffer(MapDesk& desk, qint32 line, street::Place centre, double radiusMiles)
{
    street::StreetControl& map = desk.map;
    map.DestroyLine(line);
    std::vector<street::Place> ring;
    ring.reserve(kRingPoints);
    for (int k = 0; k < kRingPoints; ++k) {
        map.SetLatitude(centre.latitude);
        map.SetLongitude(centre.longitude);
        map.SetDValue(k * kDegreesApart);
        map.SetValue(radiusMiles * kFeetOfMile);
        map.DoAction(action::kProject);
        ring.push_back({map.Latitude(), map.Longitude()});
    }
    map.CreateLine(line, ring, kLineWidth, kLineColour);
}

void PointFound(MapDesk& desk, const QString& text, qint32 id)
{
    const QString shown = text::Trim(text);
    if (shown.isEmpty() || IsSubject(desk, shown))
        return;
    desk.tab.lstaddresses.AddItem(shown);
    desk.tab.lstids.AddItem(text::Dec(id));
}

std::vector<RadiusComp> CompsByDistance(MapDesk& desk)
{
    std::vector<RadiusComp> comps;
    if (desk.state.radiusMiles <= 0)
        return comps;
    street::StreetControl& map = desk.map;
    map.SetLatitude(desk.state.radiusCentre.latitude);
    map.SetLongitude(desk.state.radiusCentre.longitude);
    map.DoAction(action::kSetOrigin);
    for (qint32 id = 1; id <= desk.state.g_MapPointCount; ++id) {
        const std::optional<MapPoint> point = LoadPoint(desk, id);
        const QString address = point ? PointAddress(desk, *point) : QString();
        if (address.isEmpty() || IsSubject(desk, address))
            continue;
        map.DoAction(action::kDistance);
        if (map.Status() >= 0)
            comps.push_back({.id = id,
                             .address = address,
                             .feet = map.Value(),
                             .within = map.Value() <= desk.state.radiusMiles * kFeetOfMile});
    }
    std::stable_sort(comps.begin(), comps.end(), [](const auto& a, const auto& b) { return a.feet < b.feet; });
    return comps;
}

std::vector<RadiusComp> CompsAroundRadius(MapDesk& desk)
{
    std::vector<RadiusComp> comps = CompsByDistance(desk);
    std::erase_if(comps, [reach = desk.state.radiusMiles * kFeetOfMile * kJustOutside](const RadiusComp& comp) {
        return comp.feet > reach;
    });
    return comps;
}

} // namespace vasclip::map
