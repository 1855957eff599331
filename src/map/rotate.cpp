#include "map/rotate.h"

#include "map/flags.h"
#include "map/picture_names.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

bool TurnArrow(MapDesk& desk, const MapPoint& point, int direction)
{
    PictureName name = ParsePicture(point.picture);
    if (!name.arrow)
        return false;
    name.direction = direction;
    const QString picture = BitmapPath(desk.globals.arrowsDir, ArrowName(name));
    if (!desk.disk.FileExists(picture))
        return false;
    constexpr qint32 kKinds = flag::kFree | flag::kAnchored;
    const qint32 anchored = point.flags & flag::kAnchored ? flag::kAnchored : flag::kFree;
    street::StreetControl& map = desk.map;
    map.SetID(point.id);
    map.DoAction(street::action::kLoadPoint);
    map.SetPicture(picture);
    map.SetFlags((flag::kTurned & ~kKinds) | anchored | HotSpot(direction) | TransparencyBits(desk));
    map.DoAction(street::action::kWritePoint);
    return map.Status() >= 0;
}

void cmdRotate_Click(MapDesk& desk)
{
    const qint32 selected = desk.state.g_MapSelectedID;
    if (desk.state.working || selected == 0)
        return;
    const std::optional<MapPoint> point = LoadPoint(desk, selected);
    if (!point || BitmapName(point->picture).toUpper().contains("COMP.BMP"_L1))
        return;
    const int direction = ParsePicture(point->picture).direction % kDirections + 1;
    if (TurnArrow(desk, *point, direction)) {
        desk.state.turnedByHand.insert(selected);
        desk.map.Refresh();
    }
}

} // namespace vasclip::map
