#include "map/street_click.h"

#include "map/flags.h"
#include "map/pinmap.h"

#include <algorithm>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

QString Strip1stNums(const QString& street)
{
    const qsizetype blank = street.indexOf(u' ');
    if (blank < 0)
        return street;
    const QString first = street.left(blank);
    const bool digits = std::all_of(first.begin(), first.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits ? street.mid(blank + 1) : street;
}

void StreetClick(MapDesk& desk, street::Place place)
{
    if (!desk.tab.ckbLabelStreets.Value())
        return;
    street::StreetControl& map = desk.map;
    map.SetLatitude(place.latitude);
    map.SetLongitude(place.longitude);
    map.DoAction(street::action::kReverse);
    if (map.Status() < 0)
        return;
    QString street = map.Location().section(u',', 0, 0);
    if (street.startsWith(u'0'))
        street = street.mid(street.indexOf(u' ') + 1);
    street = Strip1stNums(street);
    if (street.trimmed().isEmpty())
        return;
    const qint32 id = NextPoint(desk);
    MapPlaceLatLongPoint(desk, id, place, {.text = street, .picture = u"streetarrow.bmp"_s, .flag = flag::kFree});
    map.Refresh();
}

void ckbLabelStreets_Click(MapDesk& desk)
{
    desk.map.SetStreetClick(desk.tab.ckbLabelStreets.Value());
}

} // namespace vasclip::map
