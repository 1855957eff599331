#include "demo/map/long_roads.h"

#include <array>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

struct Row
{
    const char16_t* name;
    const char16_t* kind;
    std::vector<std::array<double, 2>> miles; ///< east and north of the town hall
};

std::vector<LongRoad> Laid(const std::vector<Row>& rows)
{
    std::vector<LongRoad> roads;
    for (const Row& row : rows) {
        LongRoad road{QString::fromUtf16(row.name), QString::fromUtf16(row.kind), {}};
        for (const auto& [east, north] : row.miles)
            road.line.push_back(Miles(east, north));
        road.line = Bent(road.line);
        roads.push_back(road);
    }
    return roads;
}

} // namespace

std::vector<LongRoad> LongRoads()
{
    return Laid({
        {u"State Highway 417",
         u"S1200",
         {{-1.2, 8.4}, {-1.0, 6.1}, {-0.72, 4.6}, {-0.66, 3.2}, {-0.75, 1.9}, {-0.62, 0.9}, {-0.55, 0.0},
          {-0.5, -1.0}, {-0.2, -2.2}, {0.9, -3.4}, {1.7, -4.1}, {2.0, -5.6}, {2.7, -7.2}}},
        {u"State Highway 431",
         u"S1200",
         {{-8.2, -1.0}, {-6.2, -1.1}, {-5.4, -0.85}, {-3.4, -0.35}, {-1.6, -0.2}, {-0.55, 0.0}, {0.6, -0.12},
          {1.8, -0.5}, {2.6, -1.3}, {4.0, -2.6}, {5.4, -3.6}, {8.2, -4.4}}},
        {u"Quarry Gap Rd",
         u"S1300",
         {{-0.75, 1.9}, {-2.2, 2.0}, {-3.6, 2.25}, {-4.5, 2.9}, {-4.4, 4.4}, {-4.0, 5.6}, {-3.6, 7.4}}},
        {u"Creamery Hill Rd", u"S1300", {{0.35, 1.5}, {0.5, 2.4}, {0.45, 3.4}, {0.62, 4.4}, {0.5, 5.6}, {-1.0, 6.1}}},
        {u"Lakeshore Dr",
         u"S1300",
         {{-0.62, 0.9}, {0.35, 1.5}, {1.2, 1.05}, {1.75, 0.75}, {2.75, 0.7}, {3.5, 0.75}, {3.75, 1.3}, {3.4, 1.9},
          {2.6, 2.15}, {2.5, 2.9}, {1.4, 3.0}, {0.5, 2.4}}},
        {u"Ridge View Rd", u"S1300", {{3.75, 1.3}, {5.2, 1.6}, {6.8, 1.2}, {8.2, 1.5}}},
        {u"Saint Verena Rd", u"S1300", {{4.0, -2.6}, {4.6, -3.1}, {5.2, -2.2}, {5.4, -0.8}, {5.2, 1.6}}},
        {u"Tannery Grade Rd", u"S1300", {{0.9, -3.4}, {1.9, -3.6}, {2.7, -4.0}, {4.2, -4.6}, {5.4, -3.6}}},
        {u"Hollins Valley Rd", u"S1300", {{-5.4, -0.85}, {-5.1, -1.7}, {-4.7, -2.6}, {-3.4, -3.2}, {-0.2, -2.2}}},
        {u"Prospect Hill Rd", u"S1400", {{-1.6, -0.2}, {-1.75, 0.6}, {-1.5, 1.3}, {-2.2, 2.0}}},
        {u"Orchard Hill Rd", u"S1400", {{-1.6, -0.2}, {-1.85, -0.9}, {-1.3, -1.15}, {-0.5, -1.0}}},
        {u"Calder Valley Railway",
         u"R1011",
         {{-8.2, -0.55}, {-6.4, -0.75}, {-4.4, -0.7}, {-2.4, -0.05}, {-1.0, 0.2}, {-0.3, 0.55}, {-0.25, 1.4},
          {-0.35, 2.8}, {-0.15, 3.9}, {-0.3, 5.2}, {-0.5, 8.4}}},
    });
}

std::vector<LongRoad> Creeks()
{
    return Laid({
        {u"Gristle Creek", u"H3010", {{3.4, -6.6}, {2.9, -5.4}, {2.3, -4.9}, {1.2, -4.2}, {0.6, -2.6}, {0.35, -1.5}}},
        {u"Hollins Creek", u"H3010", {{-6.4, 0.9}, {-6.1, -0.3}, {-5.75, -1.3}, {-5.6, -2.2}, {-5.4, -2.75}}},
        {u"Creamery Creek", u"H3010", {{1.7, 6.6}, {1.3, 5.0}, {1.2, 3.6}, {1.9, 2.6}, {2.7, 1.75}}},
    });
}

QString SideStreetName(int number)
{
    static constexpr std::array kNames{
        u"Alder",   u"Aspen",  u"Birch",    u"Cedar",   u"Hazel",  u"Larch",   u"Linden", u"Mulberry", u"Hawthorn",
        u"Sumac",   u"Yarrow", u"Clover",   u"Bramble", u"Thistle", u"Fennel", u"Lupine", u"Trillium", u"Camas",
        u"Sorrel",  u"Tansy",  u"Gentian",  u"Lilac",   u"Primrose", u"Teasel", u"Chicory", u"Bracken", u"Sedge",
        u"Madrone", u"Dogwood", u"Redbud",  u"Catalpa", u"Hickory", u"Sequoia", u"Tamarack", u"Viburnum", u"Azalea"};
    static constexpr std::array kKinds{u"Ln", u"Pl", u"Way"};
    const auto at = static_cast<std::size_t>(number);
    if (at >= kNames.size() * kKinds.size())
        return {};
    return QString::fromUtf16(kNames[at % kNames.size()]) + u' ' + QString::fromUtf16(kKinds[at / kNames.size()]);
}

} // namespace vasclip::demo
