#include "map/pinmap.h"

#include "map/flags.h"
#include "map/picture_names.h"
#include "map/placed_for.h"
#include "platform/text/text.h"

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;
namespace action = street::action;

namespace {

constexpr auto kSubject = "SUBJECT"_L1;
constexpr qint32 kFirstComp = 2;

QString BeforeComma(const QString& address)
{
    return address.left(address.indexOf(u',') < 0 ? address.size() : address.indexOf(u','));
}

bool Fits(const MapDesk& desk, const MapPoint& point, FindBy kind, const QString& key, int number)
{
    switch (kind) {
    case FindBy::Address:
        return (text::Folded(desk.map.Location()) + u',').contains(text::Folded(key));
    case FindBy::Caption:
        return text::Folded(point.text) == text::Folded(key);
    case FindBy::Picture:
        break;
    }
    const QString name = BitmapName(point.picture).toUpper();
    if (name.isEmpty() || !name.contains(text::Folded(key)))
        return false;
    const bool comp = number > 0 && text::Folded(key) == kSubject && name.contains("COMP"_L1);
    return !comp || name.contains(text::Dec(number));
}

} // namespace

void MapCenterOnAddress(MapDesk& desk, const QString& address)
{
    street::StreetControl& map = desk.map;
    map.SetLocation(address);
    map.DoAction(action::kFind);
    if (map.Status() >= 0 && map.Latitude() > 0)
        map.DoAction(action::kSetCentre);
}

void MapCenterOnLatLong(MapDesk& desk, const QString& latitude, const QString& longitude)
{
    if (text::Trim(latitude).isEmpty())
        return;
    desk.map.SetLatitude(Millionths(latitude));
    desk.map.SetLongitude(Millionths(longitude));
    desk.map.DoAction(action::kSetCentre);
}

bool MapPlaceAddrPoint(MapDesk& desk, qint32 id, const QString& address, const PointLook& look,
                       QList<RecordLocation>& found)
{
    street::StreetControl& map = desk.map;
    map.SetID(id);
    map.SetLocation(address.toUpper());
    const QString street = text::Trim(BeforeComma(map.Location()));
    if (street.isEmpty()) // a point at whatever place was looked at last would pass for found
        return false;
    map.DoAction(action::kGeocode);
    if (map.Status() < 0)
        return false;
    const street::Place place{map.Latitude(), map.Longitude()};
    map.SetFlags(flag::kAtAddress | look.flag | TransparencyBits(desk));
    map.SetPicture(BitmapPath(desk.globals.arrowsDir, look.picture));
    map.SetText(ParsePicture(look.picture).arrow ? QString() : look.text);
    map.DoAction(action::kAddPoint);
    if (map.Status() < 0)
        return false;
    KeepPlacedFor(desk, id);
    found.append(look.flag == flag::kAnchored ? AnchoredAt(street, place) : FoundAt(street, place));
    return true;
}

void MapPlaceLatLongPoint(MapDesk& desk, qint32 id, street::Place place, const PointLook& look)
{
    street::StreetControl& map = desk.map;
    const PictureName name = ParsePicture(look.picture);
    map.SetID(id);
    map.SetLatitude(place.latitude);
    map.SetLongitude(place.longitude);
    map.SetFlags(look.flag | flag::kAtAddress);
    map.SetPicture(BitmapPath(desk.globals.arrowsDir, look.picture));
    map.SetText(name.arrow && name.number > 0 ? QString() : look.text);
    map.DoAction(action::kAddPoint);
    KeepPlacedFor(desk, id);
    ++desk.state.g_MapPointCount;
}

bool PlaceAnchoredPoint(MapDesk& desk, qint32 id, const QString& latitude, const QString& longitude,
                        const PointLook& look)
{
    street::StreetControl& map = desk.map;
    const PictureName name = ParsePicture(look.picture);
    map.SetLatitude(Millionths(latitude));
    map.SetLongitude(Millionths(longitude));
    map.SetID(id);
    map.SetFlags(look.picture.isEmpty()
                     ? flag::kStoredWithoutPicture | look.flag
                     : flag::kStoredWithPicture | HotSpot(name.direction) | look.flag | TransparencyBits(desk));
    map.SetPicture(BitmapPath(desk.globals.arrowsDir,
                              look.flag == flag::kAnchored ? AnchoredForm(look.picture) : look.picture));
    map.SetText(name.arrow ? QString() : look.text);
    map.DoAction(action::kAddPoint);
    if (map.Status() < 0)
        return false;
    KeepPlacedFor(desk, id);
    return true;
}

qint32 FindMapPoint(MapDesk& desk, FindBy kind, const QString& key, int number)
{
    for (qint32 id = 1; id <= desk.state.g_MapPointCount; ++id) {
        const std::optional<MapPoint> point = LoadPoint(desk, id);
        if (point && Fits(desk, *point, kind, key, number))
            return id;
    }
    return -1;
}

qint32 FindSubjectPoint(MapDesk& desk)
{
    const qint32 byCaption = FindMapPoint(desk, FindBy::Caption, kSubject);
    return byCaption >= 1 ? byCaption : FindMapPoint(desk, FindBy::Picture, kSubject);
}

qint32 NextPoint(MapDesk& desk)
{
    qint32& count = desk.state.g_MapPointCount;
    count = std::max(count, kFirstComp);
    return count;
}

} // namespace vasclip::map
