#include "map/at_zero.h"

#include "map/messages.h"
#include "map/selection.h"

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

QStringList PointsAtZero(MapDesk& desk)
{
    QStringList names;
    for (qint32 id = 1; id < desk.state.g_MapPointCount; ++id) {
        const std::optional<MapPoint> point = LoadPoint(desk, id);
        if (point && point->place.latitude == 0 && point->place.longitude == 0)
            names.append(PointAddress(desk, *point));
    }
    return names;
}

QString AtZeroWords(MapDesk& desk)
{
    const QStringList names = PointsAtZero(desk);
    return names.isEmpty() ? QString() : messages::kAtZero.arg(names.join(u"; "_s));
}

} // namespace vasclip::map
