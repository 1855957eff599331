#include "mapdata/coast.h"

#include "mapdata/program.h"
#include "mapdata/surface.h"

namespace vasclip {

namespace {

using mapdata::Line;
using street::Place;

constexpr qint32 kDegree = 1000000;

/// A ground from 0, 0 to 10, 10 degrees; a place of it by its degrees from the west and from the south.
Place At(double east, double north)
{
    return {static_cast<qint32>(north * kDegree), static_cast<qint32>(east * kDegree)};
}

const street::Extent kGround{At(0, 0), At(10, 10)};

bool IsSea(const std::vector<Line>& coasts, Place place)
{
    return mapdata::Surface(mapdata::SeaOf(coasts, kGround)).Contains(place);
}

TEST(Coast, TheWaterIsOnTheRightOfACoast)
{
    const Line north{At(-1, 5), At(4, 6), At(11, 5)};
    EXPECT_TRUE(IsSea({north}, At(5, 2)));
    EXPECT_FALSE(IsSea({north}, At(5, 8)));
    const Line south{At(11, 5), At(4, 6), At(-1, 5)};
    EXPECT_FALSE(IsSea({south}, At(5, 2)));
    EXPECT_TRUE(IsSea({south}, At(5, 8)));
}

TEST(Coast, WaysThatGoOnInOneAnotherAreOneCoastInAnyOrder)
{
    const Line one{At(-1, 5), At(3, 5)};
    const Line two{At(3, 5), At(6, 7)};
    const Line three{At(6, 7), At(11, 7)};
    for (const std::vector<Line>& order : {std::vector<Line>{one, two, three}, {three, one, two}, {two, three, one}}) {
        EXPECT_TRUE(IsSea(order, At(2, 4)));
        EXPECT_TRUE(IsSea(order, At(8, 6)));
        EXPECT_FALSE(IsSea(order, At(8, 8)));
    }
}

TEST(Coast, AnIslandIsLandAndWithoutAMainlandTheSeaIsAllAround)
{
    const Line island{At(2, 2), At(3, 2), At(3, 3), At(2, 3), At(2, 2)};
    EXPECT_FALSE(IsSea({island}, At(2.5, 2.5)));
    EXPECT_TRUE(IsSea({island}, At(5, 5)));
    const Line mainland{At(-1, 5), At(11, 5)};
    EXPECT_FALSE(IsSea({mainland, island}, At(2.5, 2.5)));
    EXPECT_TRUE(IsSea({mainland, island}, At(5, 2)));
    const Line onLand{At(2, 7), At(3, 7), At(3, 8), At(2, 8), At(2, 7)};
    EXPECT_FALSE(IsSea({mainland, onLand}, At(2.5, 7.5))) << "land within land";
}

TEST(Coast, TwoCoastsLeaveAStraitBetween)
{
    const Line north{At(-1, 6), At(11, 6)};
    const Line south{At(11, 4), At(-1, 4)};
    EXPECT_TRUE(IsSea({north, south}, At(5, 5)));
    EXPECT_FALSE(IsSea({north, south}, At(5, 8)));
    EXPECT_FALSE(IsSea({north, south}, At(5, 2)));
}

TEST(Coast, ACoastThatLeavesTheGroundAndComesBackHasWaterOnBothEnds)
{
    const Line coast{At(-1, 3), At(4, 3), At(4, 11), At(6, 11), At(6, 3), At(11, 3)};
    EXPECT_TRUE(IsSea({coast}, At(1, 1)));
    EXPECT_FALSE(IsSea({coast}, At(2, 8)));
    EXPECT_TRUE(IsSea({coast}, At(5, 8))) << "an inlet";
    EXPECT_FALSE(IsSea({coast}, At(8, 8)));
}

TEST(Coast, ACoastThatEndsWithinIsLedToTheNearestEdge)
{
    const Line coast{At(0.5, 5), At(9.6, 5)};
    EXPECT_TRUE(IsSea({coast}, At(5, 2)));
    EXPECT_FALSE(IsSea({coast}, At(5, 8)));
}

TEST(Coast, ALakeThatIsDrawnAsACoastIsWater)
{
    const Line lake{At(2, 2), At(2, 3), At(3, 3), At(3, 2), At(2, 2)};
    EXPECT_TRUE(IsSea({lake}, At(2.5, 2.5)));
    EXPECT_FALSE(IsSea({lake}, At(5, 5)));
}

TEST(Coast, NothingIsMadeOfNothing)
{
    EXPECT_TRUE(mapdata::SeaOf({}, kGround).empty());
    EXPECT_TRUE(mapdata::SeaOf({{At(1, 1)}, {}}, kGround).empty());
    EXPECT_TRUE(mapdata::SeaOf({{At(1, 1), At(2, 2)}}, {}).empty());
}

} // namespace

} // namespace vasclip
