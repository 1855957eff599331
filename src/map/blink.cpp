#include "map/blink.h"

#include "map/flags.h"
#include "map/map_addresses.h"
#include "map/picture_names.h"
#include "map/pinmap.h"
#include "map/selection.h"
#include "platform/text/text.h"
#include "store/fields.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr double kCloseFeet = 840;
constexpr int kFlips = 6;
constexpr double kFlipSeconds = 0.15;

void Show(MapDesk& desk, qint32 id, const QString& picture, qint32 flags)
{
    if (!LoadPoint(desk, id)) // cleared while it blinked
        return;
    desk.map.SetPicture(picture);
    desk.map.SetFlags(flags);
    desk.map.DoAction(action::kWritePoint);
    desk.map.Refresh();
}

} // namespace

bool BlinkPoint(MapDesk& desk, qint32 id)
{
    const std::optional<MapPoint> point = LoadPoint(desk, id);
    if (!point || desk.state.working)
        return false;
    const Working working{desk.state}; // the waits turn the queue
    desk.map.DoAction(action::kSetCentre);
    desk.map.SetScale(kCloseFeet);
    constexpr qint32 kBlinking = flag::kStoredWithPicture | flag::kAnchored;
    for (int flip = 0; flip < kFlips; ++flip) {
        const QString picture = flip % 2 == 0 ? u"REDDOT.BMP"_s : u"COMP.BMP"_s;
        Show(desk, id, BitmapPath(desk.globals.arrowsDir, picture), kBlinking | HotSpot(0));
        desk.ports.clock.Wait(kFlipSeconds);
    }
    Show(desk, id, point->picture, point->flags);
    return true;
}

void MapFindAndBlink(MapDesk& desk, const QString& key)
{
    if (desk.state.working)
        return;
    if (const qint32 id = FindMapPoint(desk, FindBy::Caption, key); id >= 1) {
        BlinkPoint(desk, id);
        return;
    }
    ShowMapAddress(desk, key);
    const std::optional<store::Record> record = FindComp(desk, key);
    if (!record)
        return;
    if (HasLocation(*record))
        MapCenterOnLatLong(desk, record->Text(fields::LATITUDE), record->Text(fields::LONGITUDE));
    else
        MapCenterOnAddress(desk, RecordMapAddress(desk, key, *record));
    desk.map.SetScale(kCloseFeet);
    desk.map.Refresh();
}

void lstaddresses_Click(MapDesk& desk)
{
    const int line = desk.tab.lstaddresses.ListIndex();
    if (line < 0)
        return;
    const QString address = desk.tab.lstaddresses.List(line);
    // An arrow has no caption to be found by.
    const auto id = static_cast<qint32>(text::Val(desk.tab.lstids.List(line)));
    const std::optional<MapPoint> point = LoadPoint(desk, id);
    if (point && text::Trim(point->text).isEmpty() && PointAddress(desk, *point) == address)
        BlinkPoint(desk, id);
    else
        MapFindAndBlink(desk, address);
}

} // namespace vasclip::map
