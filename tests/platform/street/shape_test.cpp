#include "platform/street/shape.h"

#include <gtest/gtest.h>

namespace vasclip::street {
namespace {

constexpr Place kHome{32'000'000, -86'000'000};

Place At(qint32 north, qint32 east)
{
    return {kHome.latitude + north, kHome.longitude + east};
}

TEST(Shape, SimplifyingKeepsTheEndsAndWhatSticksOut)
{
    // A millionth of a degree of latitude is 0.11 m: 50 of them are 5.6 m, 200 are 22 m.
    const std::vector<Place> line{At(0, 0), At(50, 1000), At(200, 2000), At(0, 4000)};
    EXPECT_EQ(shape::Simplified(line, 10), (std::vector<Place>{At(0, 0), At(200, 2000), At(0, 4000)}));
    EXPECT_EQ(shape::Simplified(line, 30), (std::vector<Place>{At(0, 0), At(0, 4000)}));
    EXPECT_EQ(shape::Simplified(line, 1), line);
}

TEST(Shape, SimplifyingMeasuresFromTheStepNotFromItsEndlessLine)
{
    // Out and back along the same line: the turn lies on the line through the ends, yet far from both.
    const std::vector<Place> line{At(0, 0), At(0, 5000), At(0, 100)};
    EXPECT_EQ(shape::Simplified(line, 10).size(), 3U);
}

TEST(Shape, ASimplifiedRingStaysARing)
{
    std::vector<Place> ring;
    for (int at = 0; at < 100; ++at)
        ring.push_back(At(0, at * 100));
    for (int at = 0; at < 100; ++at)
        ring.push_back(At(5000, 9900 - at * 100));
    ring.push_back(ring.front());
    const std::vector<Place> simple = shape::SimplifiedRing(ring, 10);
    EXPECT_LE(simple.size(), 5U);
    EXPECT_NEAR(shape::SquareMetres(simple), shape::SquareMetres(ring), shape::SquareMetres(ring) * 0.01);
    EXPECT_LT(shape::SimplifiedRing({At(0, 0), At(1, 1), At(0, 2), At(0, 0)}, 100).size(), 3U);
}

TEST(Shape, ClippingKeepsTheSurfaceInside)
{
    const std::vector<Place> ring{At(-1000, -1000), At(-1000, 3000), At(3000, 3000), At(3000, -1000)};
    Extent extent;
    extent.Widen(At(0, 0));
    extent.Widen(At(1000, 2000));
    const std::vector<Place> cut = shape::Clipped(ring, extent);
    EXPECT_EQ(shape::ExtentOf(cut), extent);
    EXPECT_NEAR(shape::SquareMetres(cut),
                shape::SquareMetres({At(0, 0), At(0, 2000), At(1000, 2000), At(1000, 0)}), 10);
    Extent beside;
    beside.Widen(At(5000, 5000));
    beside.Widen(At(6000, 6000));
    EXPECT_LT(shape::Clipped(ring, beside).size(), 3U);
    // A ring inside stays as it is.
    const std::vector<Place> small{At(10, 10), At(20, 10), At(20, 20)};
    EXPECT_EQ(shape::Clipped(small, extent), small);
}

TEST(Shape, PiecesOfALineAreItsStepsThatTouch)
{
    Extent extent;
    extent.Widen(At(0, 0));
    extent.Widen(At(100, 100));
    const std::vector<Place> line{At(50, -500), At(50, -200), At(50, 50), At(50, 900), At(900, 900),
                                  At(900, -50), At(20, 20)};
    const auto pieces = shape::Pieces(line, extent);
    ASSERT_EQ(pieces.size(), 2U);
    EXPECT_EQ(pieces[0], (std::vector<Place>{line[1], line[2], line[3]}));
    EXPECT_EQ(pieces[1], (std::vector<Place>{line[5], line[6]}));
    EXPECT_TRUE(shape::Pieces({}, extent).empty());
}

TEST(Shape, MeasuresAreMetres)
{
    // 0.01 degree of latitude is 1,112 m; of longitude at 32 degrees north 943 m.
    EXPECT_NEAR(shape::Metres({At(0, 0), At(10'000, 0)}), 1112, 1);
    EXPECT_NEAR(shape::Metres({At(0, 0), At(0, 10'000)}), 943, 1);
    EXPECT_NEAR(shape::SquareMetres({At(0, 0), At(10'000, 0), At(10'000, 10'000), At(0, 10'000)}), 1112.0 * 943,
                2000);
}

} // namespace
} // namespace vasclip::street
