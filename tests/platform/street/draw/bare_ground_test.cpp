#include "platform/street/draw/made_town.h"
#include "platform/street/draw/map_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

View ViewOf(double feet)
{
    return {MadeTown::kMiddle, feet, {1500, 1000}, 1};
}

QColor ColourAt(const QImage& image, const View& view, Place place)
{
    return image.pixelColor(Projection(view).Pixel(place).toPoint());
}

int CountOf(const MadeTown& town, const View& view, const QString& text)
{
    std::vector<Written> written;
    (void)DrawLabels(town, view, {}, {}, &written);
    return static_cast<int>(
        std::count_if(written.begin(), written.end(), [&](const Written& one) { return one.text == text; }));
}

TEST(BareGround, HasItsHousesFromAfarWhereNoStreetIs)
{
    const View far = ViewOf(30000);
    MadeTown houses;
    houses.Town().houses.push_back({u"1234"_s, houses.At(150, 150)});
    EXPECT_NE(ColourAt(DrawGround(houses, far, {}), far, houses.At(150, 150)), PaletteOf(false).land);
    MadeTown streets;
    streets.Town().houses.push_back({u"1234"_s, streets.At(150, 150)});
    streets.Road(0, RoadClass::Local, {streets.At(-3000, -900), streets.At(3000, -900)});
    EXPECT_EQ(ColourAt(DrawGround(streets, far, {}), far, streets.At(150, 150)), PaletteOf(false).land);
}

TEST(BareGround, NamesStreetsThatAreKnownByTheirHousesAlone)
{
    MadeTown town;
    town.Town().places.push_back({u"Maple St"_s, PlaceKind::Street, 0, town.At(0, 0), {}});
    town.Town().places.push_back({u"Maple St"_s, PlaceKind::Street, 0, town.At(40, 60), {}});
    for (const double feet : {1200.0, 5000.0, 12000.0})
        EXPECT_EQ(CountOf(town, ViewOf(feet), u"Maple St"_s), 1) << feet << ": once, since the other is beside it";
    EXPECT_EQ(CountOf(town, ViewOf(30000), u"Maple St"_s), 0);
}

TEST(BareGround, NamesItsFewRoadsFromAfar)
{
    MadeTown town;
    town.Road(town.Name(u"Miller Road"_s), RoadClass::Local, {town.At(-9000, 0), town.At(9000, 0)});
    const View far = ViewOf(45000); // 9 m a pixel
    EXPECT_GE(CountOf(town, far, u"Miller Road"_s), 1);
    const quint32 other = town.Name(u"Other Street"_s);
    for (int i = 0; i < 800; ++i)
        town.Road(other, RoadClass::Local, {town.At(-9000 + i, 900), town.At(9000 + i, 900)});
    EXPECT_EQ(CountOf(town, far, u"Miller Road"_s), 0) << "in a town there is no room for all";
}

TEST(BareGround, ClosesTheEndsOfItsRoads)
{
    MadeTown town;
    town.Road(0, RoadClass::Local, {town.At(-600, 0), town.At(0, 0)});
    const View view = ViewOf(4000);
    const QImage image = DrawGround(town, view, {});
    // Straight on from where the road ends: its white, its edge, the land.
    const QPoint end = Projection(view).Pixel(town.At(0, 0)).toPoint();
    bool edge = false;
    for (int right = 0; right < 12; ++right)
        edge = edge || image.pixelColor(end + QPoint(right, 0)).lightness() < PaletteOf(false).land.lightness() - 20;
    EXPECT_TRUE(edge);
}

} // namespace

} // namespace vasclip::street::draw
