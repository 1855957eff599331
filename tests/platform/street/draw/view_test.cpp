#include "platform/street/draw/view.h"
#include "platform/street/geodesy.h"

#include <gtest/gtest.h>

#include <cmath>

namespace vasclip::street::draw {

namespace {

constexpr Place kPrattville{32464000, -86459700};

TEST(Projection, PutsTheCentreInTheMiddleAndComesBack)
{
    const Projection projection({kPrattville, 26400, QSize(1500, 1000), 1});
    EXPECT_EQ(projection.Pixel(kPrattville), QPointF(750, 500));
    for (const QPointF pixel : {QPointF(0, 0), QPointF(1499, 3), QPointF(700.5, 999)}) {
        const QPointF back = projection.Pixel(projection.At(pixel));
        EXPECT_NEAR(back.x(), pixel.x(), 0.05);
        EXPECT_NEAR(back.y(), pixel.y(), 0.05);
    }
}

// The spheroid differs from the globe by a few thousandths.
TEST(Projection, IsAsWideAsItSays)
{
    for (const double feet : {840.0, 5000.0, 26400.0, 500000.0}) {
        const Projection projection({kPrattville, feet, QSize(1500, 1000), 1});
        EXPECT_NEAR(DistanceFeet(projection.At({0, 500}), projection.At({1500, 500})) / feet, 1, 0.005) << feet;
        EXPECT_NEAR(DistanceFeet(projection.At({750, 0}), projection.At({750, 1000})) / feet, 2 / 3.0, 0.01) << feet;
    }
}

TEST(Projection, KeepsAnglesFarNorth)
{
    const Place fairbanks{64840000, -147720000};
    const Projection projection({fairbanks, 5000, QSize(1000, 1000), 1});
    const QPointF east = projection.Pixel(Project(fairbanks, 90, 1000)) - QPointF(500, 500);
    const QPointF north = projection.Pixel(Project(fairbanks, 0, 1000)) - QPointF(500, 500);
    const QPointF between = projection.Pixel(Project(fairbanks, 45, 1000)) - QPointF(500, 500);
    EXPECT_NEAR(std::hypot(east.x(), east.y()) / std::hypot(north.x(), north.y()), 1, 0.01);
    EXPECT_NEAR(std::atan2(-between.y(), between.x()), std::atan(1), 0.01);
}

// The series near the centre and the formula far from it are one map.
TEST(Projection, HasNoStepWhereTheSeriesEnds)
{
    const Projection projection({kPrattville, 3e6, QSize(1500, 3000), 1});
    const qint32 edge = kPrattville.latitude + static_cast<qint32>(0.04 * 180 / M_PI * 1e6);
    const double below = projection.Pixel({edge - 100, kPrattville.longitude}).y();
    const double above = projection.Pixel({edge + 100, kPrattville.longitude}).y();
    EXPECT_NEAR(below - above, 200 / 1e6 * M_PI / 180 * 1500 * 6371008.8 / 0.3048 / 3e6, 0.02);
}

TEST(Projection, ReachesOverTheDateLine)
{
    const Projection projection({{52000000, 179990000}, 20000, QSize(1000, 1000), 1});
    const QPointF pixel = projection.Pixel({52000000, -179990000});
    EXPECT_GT(pixel.x(), 500);
    EXPECT_LT(pixel.x(), 1000);
    EXPECT_LT(projection.At({999, 500}).longitude, 0);
    const Extent ground = projection.Ground();
    EXPECT_LE(ground.low.longitude, ground.high.longitude);
}

TEST(Projection, StaysOnTheGlobe)
{
    for (const Place place : {Place{90000000, 0}, Place{-90000000, 180000000}, Place{0, 0}}) {
        const Projection projection({place, 1e9, QSize(1500, 1000), 1});
        const Extent ground = projection.Ground(100);
        EXPECT_FALSE(ground.IsEmpty());
        EXPECT_TRUE(std::isfinite(projection.Pixel(place).y()));
        EXPECT_GE(ground.low.longitude, -180000000);
        EXPECT_LE(ground.high.latitude, 90000000);
    }
    EXPECT_TRUE(std::isfinite(Projection({kPrattville, 0, QSize(0, 0), 1}).Pixel({0, 0}).x()));
}

} // namespace

} // namespace vasclip::street::draw
