#include "platform/street/geodesy.h"

#include <gtest/gtest.h>

namespace vasclip::street {

namespace {

constexpr Place kPrattville{32464000, -86459700};

// A degree of latitude is 364,000 feet at the equator's radius of curvature and 366,000 at the poles'.
TEST(Geodesy, MeasuresADegreeAlongAMeridian)
{
    EXPECT_NEAR(DistanceFeet({0, 0}, {1000000, 0}), 110574.4 / 0.3048, 1);
    EXPECT_NEAR(DistanceFeet({89000000, 0}, {90000000, 0}), 111693.9 / 0.3048, 1);
}

TEST(Geodesy, GoesTheShortWayOverTheDateLine)
{
    EXPECT_NEAR(DistanceFeet({0, 179500000}, {0, -179500000}), 111319.5 / 0.3048, 1);
    EXPECT_GT(Project({0, -179999000}, 270, 5280).longitude, 179000000);
}

TEST(Geodesy, ProjectsWhereItMeasures)
{
    for (const double azimuth : {0.0, 23.0, 92.0, 184.0, 322.0}) {
        const Place there = Project(kPrattville, azimuth, 5280);
        EXPECT_NEAR(DistanceFeet(kPrattville, there), 5280, 0.5) << azimuth;
    }
    EXPECT_GT(Project(kPrattville, 0, 5280).latitude, kPrattville.latitude);
    EXPECT_GT(Project(kPrattville, 90, 5280).longitude, kPrattville.longitude);
}

} // namespace

} // namespace vasclip::street
