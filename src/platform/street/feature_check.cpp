#include "platform/street/feature_check.h"

#include "platform/street/cell_grid.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

/// About 55 km from one place of a line to the next: no street is so straight, so it leads through a wrong place.
constexpr qint64 kLongestStep = 500'000;
constexpr qint64 kHalfTurn = 180'000'000;

QString PlaceFault(Place place)
{
    if (!grid::IsOnEarth(place))
        return u"its coordinates are no place on earth"_s;
    if (place.latitude == 0 && place.longitude == 0)
        return u"it lies at 0, 0"_s;
    return {};
}

/// @param longest  step that is still believed
QString LineFault(const std::vector<Place>& line, std::size_t least, qint64 longest)
{
    if (line.size() < least)
        return u"its line has fewer than %1 places"_s.arg(least);
    for (std::size_t at = 0; at < line.size(); ++at) {
        if (QString fault = PlaceFault(line[at]); !fault.isEmpty())
            return fault;
        if (at == 0)
            continue;
        const qint64 across = std::llabs(qint64(line[at].longitude) - line[at - 1].longitude);
        if (across > kHalfTurn)
            return u"it crosses the date line"_s;
        if (across > longest || std::llabs(qint64(line[at].latitude) - line[at - 1].latitude) > longest)
            return u"its line jumps by more than 50 km"_s;
    }
    return {};
}

QString RingsFault(const std::vector<std::vector<Place>>& rings)
{
    if (rings.empty())
        return u"it has no outline"_s;
    for (const std::vector<Place>& ring : rings) {
        if (QString fault = LineFault(ring, 3, kHalfTurn); !fault.isEmpty())
            return fault;
    }
    return {};
}

} // namespace

QString Fault(const RoadEdge& edge)
{
    return LineFault(edge.line, 2, kLongestStep);
}

QString Fault(const AddressPoint& house)
{
    if (house.number.isEmpty())
        return u"it has no house number"_s;
    return PlaceFault(house.place);
}

QString Fault(const MapArea& area)
{
    return RingsFault(area.rings);
}

QString Fault(const WaterLine& line)
{
    return LineFault(line.line, 2, kLongestStep);
}

QString Fault(const PlaceName& place)
{
    if (place.name.isEmpty())
        return u"it has no name"_s;
    return PlaceFault(place.place);
}

QString Fault(const ZipArea& area)
{
    if (area.zip.isEmpty())
        return u"it has no ZIP code"_s;
    return RingsFault(area.rings);
}

} // namespace vasclip::street
