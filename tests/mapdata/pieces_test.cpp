#include "mapdata/classes.h"
#include "mapdata/cover.h"
#include "mapdata/house_names.h"
#include "mapdata/junctions.h"
#include "mapdata/states.h"
#include "mapdata/surface.h"

#include <gtest/gtest.h>

namespace vasclip::mapdata {
namespace {

using namespace Qt::StringLiterals;
using street::Place;
using street::RoadClass;

Place At(qint32 north, qint32 east)
{
    return {32'000'000 + north, -86'000'000 + east};
}

street::RoadEdge Road(std::vector<Place> line, RoadClass roadClass = RoadClass::Local)
{
    street::RoadEdge road;
    road.roadClass = roadClass;
    road.line = std::move(line);
    return road;
}

street::AddressPoint House(const QString& street, Place place, const QString& city = {})
{
    return {u"1"_s, street, {}, city, {}, place};
}

TEST(HouseNames, NameTheStreetsThatHaveNoLine)
{
    std::vector<street::AddressPoint> houses;
    for (int at = 0; at < 7; ++at) {
        houses.push_back(House(u"N MAPLE ST"_s, At(at * 100, 0)));
        houses.push_back(House(u"Oak Street"_s, At(at * 100, 500)));
        houses.push_back(House(u"5TH AVE"_s, At(at * 100, 900)));
        houses.push_back(House(u"N MAPLE ST"_s, At(50'000 + at * 100, 0)));
    }
    houses.push_back(House(u"LONE RD"_s, At(0, 100)));
    const auto names = NamesOfHouses(houses, {u"Oak St"_s}, {});
    QStringList found;
    for (const street::PlaceName& name : names) {
        EXPECT_EQ(name.kind, street::PlaceKind::Street);
        found.append(u"%1 %2"_s.arg(name.name).arg(name.place.latitude - 32'000'000));
    }
    EXPECT_EQ(found, (QStringList{u"5th Ave 300"_s, u"N Maple St 300"_s, u"N Maple St 50300"_s}));
}

TEST(HouseNames, NameATownThatNoSourceHas)
{
    std::vector<street::AddressPoint> houses;
    for (int at = 0; at < 25; ++at) {
        houses.push_back(House(u"Oak St"_s, At(at * 10, at * 10), u"MIDDLEBURY"_s));
        houses.push_back(House(u"Oak St"_s, At(at * 10, at * 10), u"BRISTOL"_s));
    }
    houses.push_back(House(u"Oak St"_s, At(0, 0), u"RIPTON"_s));
    const auto names = NamesOfHouses(houses, {u"Oak St"_s}, {u"Bristol"_s});
    ASSERT_EQ(names.size(), 1U);
    EXPECT_EQ(names[0].name, u"Middlebury"_s);
    EXPECT_EQ(names[0].kind, street::PlaceKind::Town);
}

TEST(Junctions, CutBothWaysWhereTheyMeet)
{
    const auto cut = CutAtJunctions({Road({At(0, 0), At(0, 1000), At(0, 2000)}),
                                     Road({At(-500, 1000), At(0, 1000), At(500, 1000)})});
    ASSERT_EQ(cut.size(), 4U);
    EXPECT_EQ(cut[0].line, (std::vector<Place>{At(0, 0), At(0, 1000)}));
    EXPECT_EQ(cut[1].line, (std::vector<Place>{At(0, 1000), At(0, 2000)}));
}

TEST(Junctions, DrivesAndPathsCutNothing)
{
    const auto cut =
        CutAtJunctions({Road({At(0, 0), At(0, 1000), At(0, 2000)}),
                        Road({At(-500, 1000), At(0, 1000), At(500, 1000)}, RoadClass::Service)});
    EXPECT_EQ(cut.size(), 2U);
}

TEST(Junctions, ALoopThatCrossesItselfIsCutThere)
{
    const auto cut = CutAtJunctions({Road({At(0, 0), At(0, 10), At(10, 10), At(0, 10), At(0, 20)})});
    EXPECT_EQ(cut.size(), 3U);
}

TEST(CoveredLines, RunBesideARoadAllTheWay)
{
    Cover cover;
    cover.Add(Road({At(0, 0), At(0, 20'000)}));
    cover.Add(Road({At(5000, 0), At(5000, 20'000)}, RoadClass::Path));
    EXPECT_TRUE(cover.Covers({At(100, 100), At(-100, 19'000)}));
    EXPECT_FALSE(cover.Covers({At(400, 100), At(400, 19'000)}));
    EXPECT_FALSE(cover.Covers({At(0, 100), At(3000, 100)}));
    EXPECT_FALSE(cover.Covers({At(5000, 100), At(5000, 19'000)}));
}

TEST(Surfaces, HoldWhatIsInsideAndNotTheirHoles)
{
    const Surface surface({{At(0, 0), At(0, 1000), At(1000, 1000), At(1000, 0)},
                           {At(400, 400), At(400, 600), At(600, 600), At(600, 400)}});
    EXPECT_TRUE(surface.Contains(At(200, 200)));
    EXPECT_TRUE(surface.Contains(At(999, 999)));
    EXPECT_FALSE(surface.Contains(At(500, 500)));
    EXPECT_FALSE(surface.Contains(At(1200, 500)));
    EXPECT_FALSE(Surface({}).Contains(At(0, 0)));
}

TEST(Classes, FollowTheCodesAndTheNames)
{
    EXPECT_EQ(ClassOfMtfcc(u"S1100"_s), RoadClass::Motorway);
    EXPECT_EQ(ClassOfMtfcc(u"R1011"_s), RoadClass::Rail);
    EXPECT_EQ(ClassOfMtfcc(QString()), RoadClass::Local);
    EXPECT_EQ(ClassOfMtfcc(u"S1750"_s), std::nullopt);
    EXPECT_EQ(ClassOfMtfcc(u"P0001"_s), std::nullopt);
    EXPECT_EQ(ClassByName(RoadClass::Local, u"US Hwy 31"_s), RoadClass::Highway);
    EXPECT_EQ(ClassByName(RoadClass::Local, u"State Hwy 360"_s), RoadClass::Highway);
    EXPECT_EQ(ClassByName(RoadClass::Local, u"Co Rd 4"_s), RoadClass::Arterial);
    EXPECT_EQ(ClassByName(RoadClass::Local, u"I- 65"_s), RoadClass::Motorway);
    EXPECT_EQ(ClassByName(RoadClass::Local, u"Main St"_s), RoadClass::Local);
    EXPECT_EQ(ClassByName(RoadClass::Ramp, u"I- 65"_s), RoadClass::Ramp);
    EXPECT_EQ(ClassOfHighway(u"motorway_link"_s), RoadClass::Ramp);
    EXPECT_EQ(ClassOfHighway(u"construction"_s), std::nullopt);
    EXPECT_EQ(ClassOfRailway(u"abandoned"_s), std::nullopt);
    EXPECT_EQ(AreaOfMtfcc(u"H2030"_s), street::AreaKind::Water);
    EXPECT_EQ(AreaOfMtfcc(u"H2025"_s), std::nullopt);
    EXPECT_EQ(AreaOfMtfcc(u"K2582"_s), street::AreaKind::Cemetery);
    EXPECT_EQ(StateOf(u"30059"_s), u"MT"_s);
    EXPECT_EQ(StateOf(u"99"_s), QString());
}

} // namespace
} // namespace vasclip::mapdata
