#include "platform/street/made_town.h"

namespace vasclip::tests {

namespace {

using namespace vasclip::street;

constexpr qint32 kBlock = 1000;

NumberRange Range(int from, int to)
{
    return {QString::number(from), QString::number(to), QStringLiteral("36067"), QStringLiteral("Elmsford")};
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
                edge.name = row == 0 ? QStringLiteral("US Hwy 31") : QStringLiteral("Row %1 St").arg(row);
                edge.roadClass = row == 0       ? RoadClass::Highway
                                 : row % 4 == 0 ? RoadClass::Collector
                                                : RoadClass::Local;
                edge.line = {at(row, column), at(row, column + 1)};
                edge.left = Range(block, block + 98);
                edge.right = Range(block + 1, block + 99);
                edges.push_back(edge);
            }
            if (row + 1 < streets)
                edges.push_back({QStringLiteral("Column %1 Ave").arg(column), {}, RoadClass::Local,
                                 {at(row, column), at(row + 1, column)}, Range(block + 99, block + 1), {}, false});
        }
    }
    houses.push_back({QStringLiteral("110"), QStringLiteral("Row 1 St"), {}, QStringLiteral("Elmsford"),
                      QStringLiteral("36067"), {corner.latitude + kBlock + 80, corner.longitude + 100}});
    houses.push_back({QStringLiteral("12 1/2"), QStringLiteral("Row 1 St"), {}, {}, {},
                      {corner.latitude + kBlock - 80, corner.longitude + 200}});
    const Place far = at(streets, streets);
    areas.push_back({AreaKind::Water, QStringLiteral("Long Lake"),
                     {Box({corner.latitude, corner.longitude - 50'000}, {far.latitude, corner.longitude - 500})}});
    areas.push_back({AreaKind::Park, QStringLiteral("Green"), {Box(at(1, 1), at(2, 2))}});
    brooks.push_back({QStringLiteral("Mill Brook"), {at(0, 0), at(streets, streets)}});
    places.push_back({QStringLiteral("Elmsford"), PlaceKind::Town, 5000, at(streets / 2, streets / 2),
                      {Box(corner, far)}});
    zips.push_back({QStringLiteral("36067"), {Box(corner, far)}});
}

} // namespace vasclip::tests
