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

void TellKept(MapDesk& desk, const QString& address, bool record)
{
    if (record)
        desk.status.lblmsg.Show(messages::kAnchored.arg(address), forms::Colour::Blue);
    else
        desk.status.lblmsg.Show(messages::kAnchoredHere.arg(address), forms::Colour::Normal);
}

} // namespace

void cmdAnchorOne_Click(MapDesk& desk)
{
    const std::optional<MapPoint> point = LoadPoint(desk, desk.state.g_MapSelectedID);
    if (desk.state.working || desk.state.g_MapSelectedID == 0 || !point || !MayStand(desk, {*point}))
        return;
    const QString address = PointAddress(desk, *point);
    const bool record = FindComp(desk, address).has_value();
    const bool anchor = record ? !desk.tab.imaanchor.Visible() : !(point->flags & flag::kAnchored);
    if (record)
        desk.tab.imaanchor.SetVisible(anchor);
    if (anchor)
        WriteAnchored(desk, *point);
    else
        WriteFree(desk, *point);
    KeepPlacedFor(desk, point->id);
    SaveLocations(desk, {anchor ? AnchoredAt(address, point->place) : Forgotten(address)});
    if (anchor)
        TellKept(desk, address, record);
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
        QList<RecordLocation> kept;
        for (const MapPoint& point : points) {
            Write(desk, point, AnchoredForm(point.picture), point.flags | flag::kAnchored, action::kWritePoint);
            if (desk.map.Status() < 0)
                continue;
            KeepPlacedFor(desk, point.id);
            kept.append(AnchoredAt(PointAddress(desk, point), point.place));
        }
        SaveLocations(desk, kept);
        static_cast<void>(LoadPoint(desk, 1));
        desk.status.lblmsg.Show(messages::kAnchoredAll.arg(kept.size()), forms::Colour::Blue);
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
        if (anchored > 0 && !desk.ports.prompter.YesNo(desk.globals.productName, messages::kForgetAll.arg(anchored)))
            return;
        for (const MapPoint& point : points)
            WriteFree(desk, point);
        SaveLocations(desk, forgotten);
        desk.tab.imaanchor.SetVisible(false);
        desk.map.Refresh();
    });
}

bool MovePointTo(MapDesk& desk, qint32 id, street::Place place)
{
    std::optional<MapPoint> point = LoadPoint(desk, id);
    if (desk.state.working || !point || !MayStand(desk, {*point}))
        return false;
    point->place = place;
    WriteAnchored(desk, *point, action::kAddPoint);
    KeepPlacedFor(desk, id);
    const QString address = PointAddress(desk, *point);
    const bool record = FindComp(desk, address).has_value();
    if (SaveLocations(desk, {AnchoredAt(address, place)}))
        TellKept(desk, address, record);
    FollowCircle(desk);
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
