#include "demo/map/ground.h"

#include <functional>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

/// What belongs together by a word of its neighbourhoods, each with a ring around its houses.
std::vector<Patch> Around(const std::function<QString(const Neighbourhood&)>& word, double margin)
{
    struct Group
    {
        QString name;
        std::vector<Point> houses;
        Point middle;
    };
    std::vector<Group> groups;
    for (const Neighbourhood& place : Town()) {
        std::vector<Point> houses;
        Point sum;
        for (const Street& street : place.streets) {
            for (const int number : {street.firstNumber, street.lastNumber}) {
                houses.push_back(OnPlane(PlaceOf(street, number)));
                sum.east += houses.back().east;
                sum.north += houses.back().north;
            }
        }
        const double count = static_cast<double>(houses.size());
        Group* group = nullptr;
        for (Group& one : groups)
            group = one.name == word(place) ? &one : group;
        if (group == nullptr) {
            groups.push_back({word(place), {}, {sum.east / count, sum.north / count}});
            group = &groups.back();
        }
        group->houses.insert(group->houses.end(), houses.begin(), houses.end());
    }
    std::vector<Patch> patches;
    for (const Group& group : groups)
        patches.push_back({group.name, {}, RingAround(group.houses, margin), group.middle});
    return patches;
}

Line Box(double west, double south, double east, double north)
{
    return {Miles(west, south), Miles(east, south), Miles(east, north), Miles(west, north), Miles(west, south)};
}

} // namespace

std::vector<Patch> Surfaces()
{
    const Line river{Miles(8.3, 0.1),    Miles(6.6, -0.35),  Miles(5.0, -0.5),   Miles(3.6, -0.3), Miles(2.7, -0.55),
                     Miles(2.0, -1.05),  Miles(1.2, -1.2),   Miles(0.35, -1.5),  Miles(-0.4, -1.45), Miles(-1.2, -1.7),
                     Miles(-2.4, -1.75), Miles(-3.6, -2.3),  Miles(-4.5, -2.9),  Miles(-5.4, -2.75), Miles(-6.4, -3.1),
                     Miles(-8.3, -3.0)};
    return {
        {u"Marlow River"_s, u"H3010"_s, Band(Bent(river), 420), {}},
        {u"Lake Verena"_s, u"H2030"_s, Oval(Miles(3.05, 1.35), 2600, 2300, 28), {}},
        {u"Quarry Pond"_s, u"H2030"_s, Oval(Miles(-5.3, 3.7), 900, 620, 16), {}},
        {u"Riverfront Park"_s, u"K2181"_s,
         {Miles(-0.35, -1.36), Miles(0.35, -1.42), Miles(0.4, -1.18), Miles(-0.3, -1.12), Miles(-0.35, -1.36)}, {}},
        {u"Lakeview Park"_s, u"K2181"_s, Box(2.75, 0.73, 3.4, 0.9), {}},
        {u"Observatory Park"_s, u"K2181"_s, Box(-2.5, 0.75, -1.85, 1.4), {}},
        {u"Saint Verena Green"_s, u"K2181"_s, Box(4.25, -2.15, 4.6, -1.7), {}},
        {u"Calder Woods"_s, u"K2186"_s,
         {Miles(3.2, 3.4), Miles(5.6, 2.9), Miles(7.6, 3.6), Miles(8.2, 5.6), Miles(6.4, 7.4), Miles(4.2, 6.8),
          Miles(2.9, 5.2), Miles(3.2, 3.4)},
         {}},
        {u"Hillside Cemetery"_s, u"K2582"_s, Box(-1.45, 1.5, -1.1, 1.8), {}},
        {u"Marlow Falls High School"_s, u"K2543"_s, Box(0.75, 1.45, 1.05, 1.7), {}},
        {u"Calder County Airport"_s, u"K2451"_s, Box(-3.1, -1.35, -2.2, -0.95), {}},
    };
}

std::vector<Patch> Cities()
{
    constexpr double kMargin = 900;
    return Around([](const Neighbourhood& place) { return place.city; }, kMargin);
}

std::vector<Patch> ZipAreas()
{
    constexpr double kMargin = 1500;
    return Around([](const Neighbourhood& place) { return place.zip; }, kMargin);
}

} // namespace vasclip::demo
