#include "platform/street/cell_grid.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace vasclip::street {
namespace {

const Place kPlaces[] = {{32'455'000, -86'470'000}, {0, 0},       {-1, -1},
                         {90'000'000, 180'000'000}, {-90'000'000, -180'000'000}, {71'300'000, -179'999'999}};

TEST(CellGrid, ASquareHoldsThePlaceThatLeadsToIt)
{
    for (const Level level : {Level::Streets, Level::Town, Level::Region}) {
        for (const Place place : kPlaces) {
            const quint32 id = grid::IdAt(level, place);
            EXPECT_TRUE(grid::ExtentOf(id).Contains(place)) << place.latitude << ' ' << place.longitude;
            EXPECT_EQ(grid::LevelOf(id), level);
        }
    }
}

TEST(CellGrid, NoSquareHasANumberBeyondTheLastLevel)
{
    EXPECT_EQ(grid::LevelOf(0x60000000), std::nullopt);
    EXPECT_EQ(grid::LevelOf(0xffffffff), std::nullopt);
}

TEST(CellGrid, NeighboursShareNoPlaceAndLeaveNoneOut)
{
    const quint32 id = grid::IdAt(Level::Streets, {32'455'000, -86'470'000});
    const Extent extent = grid::ExtentOf(id);
    const Place right{extent.low.latitude, extent.high.longitude + 1};
    const Place above{extent.high.latitude + 1, extent.low.longitude};
    EXPECT_EQ(grid::ExtentOf(grid::IdAt(Level::Streets, right)).low, right);
    EXPECT_EQ(grid::ExtentOf(grid::IdAt(Level::Streets, above)).low, above);
    EXPECT_EQ(grid::IdAt(Level::Streets, extent.high), id);
}

TEST(CellGrid, TouchingGivesEachSquareOfAnExtentOnce)
{
    const qint32 size = grid::Size(Level::Streets);
    const Extent one = grid::ExtentOf(grid::IdAt(Level::Streets, {32'455'000, -86'470'000}));
    Extent wide = one;
    wide.high.latitude += 2 * size;
    wide.high.longitude += size;
    const std::vector<grid::Run> runs = grid::Touching(Level::Streets, wide);
    ASSERT_EQ(runs.size(), 3U);
    for (const grid::Run& run : runs)
        EXPECT_EQ(run.last - run.first, 1U);
    EXPECT_TRUE(grid::Touching(Level::Streets, {}).empty());
    // Low east of high, as where somebody asks across the date line.
    EXPECT_TRUE(grid::Touching(Level::Streets, {{0, 10}, {0, -10}}).empty());
}

TEST(CellGrid, ALineGoesThroughAllSquaresBetweenItsEnds)
{
    const Place from{32'455'000, -86'470'000};
    const Place to{32'455'000, -86'470'000 + 5 * grid::Size(Level::Streets)};
    const std::vector<quint32> ids = grid::Along(Level::Streets, {from, to});
    ASSERT_EQ(ids.size(), 6U);
    EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
    EXPECT_EQ(ids.front(), grid::IdAt(Level::Streets, from));
    EXPECT_EQ(ids.back(), grid::IdAt(Level::Streets, to));
}

} // namespace
} // namespace vasclip::street
