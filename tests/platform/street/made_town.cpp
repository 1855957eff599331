#include "platform/street/made_town.h"

using namespace Qt::StringLiterals;

namespace vasclip::tests {

namespace {

using namespace vasclip::street;

constexpr qint32 kBlock = 1000;

NumberRange Range(int from, int to)
{
    return {QString::number(from), QString::number(to), u"36067"_s, u"Elmsford"_s};
}

} // namespace

std::vector<Place> Box(Place low, Place high)
{
    return {low, {low.latitude, high.longitude}, high, {high.latitude, low.longitude}, low};
}

MadeTown::MadeTown(Place corner, int streets)
{
    const auto at = [&](int row, int column) {
        return Place{corner.latitude + row * kBlock, corner.longitude + column * kBlock};
    };
    for (int row = 0; row < streets; ++row) {
        for (int column = 0; column < streets; ++column) {
            const int block = 100 * (column + 1);
            if (column + 1 < streets) {
                RoadEdge edge;
                edge.name = row == 0 ? u"US Hwy 31"_s : u"Row %1 St"_s.arg(row);
                edge.roadClass = row == 0       ? RoadClass::Highway
                                 : row % 4 == 0 ? RoadClass::Collector
                                                : RoadClass::Local;
                edge.line = {at(row, column), at(row, column + 1)};
                edge.left = Range(block, block + 98);
                edge.right = Range(block + 1, block + 99);
                edges.push_back(edge);
            }
            if (row + 1 < streets)
                edges.push_back({u"Column %1 Ave"_s.arg(column),
                                 {},
                                 RoadClass::Local,
                                 {at(row, column), at(row + 1, column)},
                                 Range(block + 99, block + 1),
                                 {},
                                 false});
        }
    }
    houses.push_back({u"110"_s,
                      u"Row 1 St"_s,
                      {},
                      u"Elmsford"_s,
                      u"36067"_s,
                      {corner.latitude + kBlock + 80, corner.longitude + 100}});
    houses.push_back(
        {u"12 1/2"_s, u"Row 1 St"_s, {}, {}, {}, {corner.latitude + kBlock - 80, corner.longitude + 200}});
    const Place far = at(streets, streets);
    areas.push_back(
        {AreaKind::Water,
         u"Long Lake"_s,
         {Box({corner.latitude, corner.longitude - 50'000}, {far.latitude, corner.longitude - 500})}});
    areas.push_back({AreaKind::Park, u"Green"_s, {Box(at(1, 1), at(2, 2))}});
    brooks.push_back({u"Mill Brook"_s, {at(0, 0), at(streets, streets)}});
    places.push_back(
        {u"Elmsford"_s, PlaceKind::Town, 5000, at(streets / 2, streets / 2), {Box(corner, far)}});
    zips.push_back({u"36067"_s, {Box(corner, far)}});
}

} // namespace vasclip::tests
