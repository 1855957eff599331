#include "map/anchors.h"

#include "link/reporter.h"
#include "map/flags.h"
#include "map/locations.h"
#include "map/messages.h"
#include "map/picture_names.h"
#include "map/placed_for.h"
#include "map/radius.h"
#include "map/selection.h"
#include "platform/street/geodesy.h"
#include "platform/text/text.h"

#include <algorithm>
#include <cmath>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr qint32 kLastArrow = 39; ///< those from 40 on were placed by hand
constexpr double kNorth = 0, kEast = 90, kSouth = 180, kWest = 270;

void Write(MapDesk& desk, const MapPoint& point, const QString& picture, qint32 flags, qint32 how)
{
    desk.map.SetID(point.id);
    desk.map.SetLatitude(point.place.latitude);
    desk.map.SetLongitude(point.place.longitude);
    desk.map.SetText(point.text);
    desk.map.SetPicture(BitmapPath(desk.globals.arrowsDir, picture));
    desk.map.SetFlags(flags);
    desk.map.DoAction(how);
}

void WriteAnchored(MapDesk& desk, const MapPoint& point, qint32 how = action::kWritePoint)
{
    Write(desk, point, AnchoredForm(point.picture),
          flag::kAnchoredRewrite | HotSpot(ParsePicture(point.picture).direction), how);
}

void WriteFree(MapDesk& desk, const MapPoint& point)
{
    Write(desk, point, FreeForm(point.picture),
          flag::kFreeRewrite | HotSpot(ParsePicture(point.picture).direction), action::kWritePoint);
}

/// Up to which number "Anchor All" goes.
qint32 LastToAnchor(const MapDesk& desk)
{
    if (desk.state.arrows)
        return std::min(desk.state.g_MapPointCount, kLastArrow);
    const store::DataSource& search = desk.sources.datsql;
    return search.Bound() ? static_cast<qint32>(search.Count()) + 1 : 0;
}

std::vector<MapPoint> PointsUpTo(MapDesk& desk, qint32 last)
{
    std::vector<MapPoint> points;
    for (qint32 id = 1; id <= last; ++id)
        if (const std::optional<MapPoint> point = LoadPoint(desk, id))
            points.push_back(*point);
    return points;
}

/// A point whose slot is empty by now stays the one that it was placed for.
void KeepWhose(MapDesk& desk, const MapPoint& point)
{
    if (!PointAddress(desk, point).isEmpty())
        KeepPlacedFor(desk, point.id);
}

} // namespace

void TellKept(MapDesk& desk, const MapPoint& point)
{
    const QString address = PointAddress(desk, point);
    if (FindComp(desk, address))
        desk.status.lblmsg.Show(messages::kAnchored.arg(address), forms::Colour::Blue);
    else if (address.isEmpty())
        desk.status.lblmsg.Show(messages::kAnchoredEmpty.arg(PointWords(desk, point)), forms::Colour::Red);
    else
        desk.status.lblmsg.Show(messages::kAnchoredHere.arg(address), forms::Colour::Normal);
}

void cmdAnchorOne_Click(MapDesk& desk)
{
    const std::optional<MapPoint> point = LoadPoint(desk, desk.state.g_MapSelectedID);
    if (desk.state.working || desk.state.g_MapSelectedID == 0 || !point || !MayStand(desk, {*point}))
        return;
    const QString address = PointAddress(desk, *point);
    const bool record = FindComp(desk, address).has_value();
    const bool anchor = record ? !desk.tab.imaanchor.Visible() : !(point->flags & flag::kAnchored);
    // The Databook first: what it refuses does not look anchored.
    if (!SaveLocations(desk, {anchor ? AnchoredAt(address, point->place) : Forgotten(address)}))
        return;
    if (record)
        desk.tab.imaanchor.SetVisible(anchor);
    if (anchor)
        WriteAnchored(desk, *point);
    else
        WriteFree(desk, *point);
    KeepWhose(desk, *point);
    if (anchor)
        TellKept(desk, *point);
    else
        desk.status.lblmsg.Show(messages::kFreed.arg(PointWords(desk, *point)), forms::Colour::Blue);
    desk.map.Refresh();
}

void cmdAnchor_Click(MapDesk& desk)
{
    if (desk.state.working)
        return;
    link::Reported(desk.ports.prompter, "cmdAnchor_Click", [&] {
        const std::vector<MapPoint> points = PointsUpTo(desk, LastToAnchor(desk));
        if (!MayStand(desk, points))
            return;
        std::vector<MapPoint> taken;
        QList<RecordLocation> kept;
        int here = 0;
        for (const MapPoint& point : points) {
            Write(desk, point, AnchoredForm(point.picture), point.flags | flag::kAnchored, action::kWritePoint);
            if (desk.map.Status() < 0)
                continue;
            taken.push_back(point);
            kept.append(AnchoredAt(PointAddress(desk, point), point.place));
            here += FindComp(desk, kept.last().key) ? 0 : 1;
        }
        if (!SaveLocations(desk, kept)) { // what the Databook refuses does not look anchored
            for (const MapPoint& point : taken)
                Write(desk, point, point.picture, point.flags, action::kWritePoint);
            desk.map.Refresh();
            return;
        }
        for (const MapPoint& point : taken)
            if (LoadPoint(desk, point.id))
                KeepWhose(desk, point);
        static_cast<void>(LoadPoint(desk, 1));
        const QString words = messages::kAnchoredAll(kept.size());
        desk.status.lblmsg.Show(here > 0 ? words + u"; "_s + messages::kOfThemHere(here) : words, forms::Colour::Blue);
        if (desk.state.g_MapSelectedID > 0)
            txtMapAddress_Change(desk);
        desk.map.Refresh();
    });
}

void cmdAnchor_RightClick(MapDesk& desk)
{
    if (desk.state.working)
        return;
    link::Reported(desk.ports.prompter, "cmdAnchor_RightClick", [&] {
        const std::vector<MapPoint> points = PointsUpTo(desk, desk.state.g_MapPointCount);
        if (!MayStand(desk, points))
            return;
        QList<RecordLocation> forgotten;
        int anchored = 0;
        for (const MapPoint& point : points) {
            const QString address = PointAddress(desk, point);
            const std::optional<store::Record> record = FindComp(desk, address);
            anchored += record && IsAnchored(*record) ? 1 : 0;
            forgotten.append(Forgotten(address));
        }
        if (anchored > 0 && !desk.ports.prompter.YesNo(desk.globals.productName, anchored == 1 ? messages::kForgetOne : messages::kForgetAll.arg(anchored)))
            return;
        if (!SaveLocations(desk, forgotten))
            return;
        for (const MapPoint& point : points)
            WriteFree(desk, point);
        desk.tab.imaanchor.SetVisible(false);
        desk.status.lblmsg.Show(messages::kFreedAll, forms::Colour::Blue);
        desk.map.Refresh();
    });
}

bool MovePointTo(MapDesk& desk, qint32 id, street::Place place)
{
    std::optional<MapPoint> point = LoadPoint(desk, id);
    if (desk.state.working || !point || !MayStand(desk, {*point}))
        return false;
    if (!SaveLocations(desk, {AnchoredAt(PointAddress(desk, *point), place)}))
        return false;
    point->place = place;
    WriteAnchored(desk, *point, action::kAddPoint);
    KeepWhose(desk, *point);
    FollowCircle(desk);
    TellKept(desk, *point);
    if (desk.state.g_MapSelectedID > 0)
        txtMapAddress_Change(desk);
    desk.map.Refresh();
    return true;
}

void MoveSelectedBy(MapDesk& desk, double east, double north)
{
    const std::optional<MapPoint> point = LoadPoint(desk, desk.state.g_MapSelectedID);
    const double width = desk.map.Width();
    if (desk.state.g_MapSelectedID == 0 || !point || width <= 0)
        return;
    const double feet = desk.map.Scale() / width;
    street::Place place = street::Project(point->place, north < 0 ? kSouth : kNorth, std::abs(north) * feet);
    place = street::Project(place, east < 0 ? kWest : kEast, std::abs(east) * feet);
    MovePointTo(desk, point->id, place);
}

} // namespace vasclip::map
