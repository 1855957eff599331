#include "platform/street/draw/furniture.h"
#include "platform/street/draw/map_sheet.h"
#include "platform/street/draw/stretches.h"
#include "platform/street/draw/made_town.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr double kReportRatio = 1500 / 7.5 / 96;

View ViewOf(double feet, double ratio = 1, QSize size = {1500, 1000})
{
    return {MadeTown::kMiddle, feet, size, ratio};
}

/// Streets every 300 feet in both directions, in edges from crossing to crossing.
void LayGrid(MadeTown& town)
{
    for (int i = -8; i <= 8; ++i) {
        const quint32 across = town.Name(u"East %1th Street"_s.arg(i + 20));
        const quint32 along = town.Name(u"Avenue %1"_s.arg(QChar(u'A' + i + 8)));
        for (int j = -8; j < 8; ++j) {
            CellEdge& edge = town.Road(across, RoadClass::Local,
                                       {MadeTown::At(j * 300, i * 300), MadeTown::At((j + 1) * 300, i * 300)});
            edge.left = {u"100"_s, u"198"_s, {}, {}};
            edge.right = {u"101"_s, u"199"_s, {}, {}};
            town.Road(along, RoadClass::Local,
                      {MadeTown::At(i * 300, j * 300), MadeTown::At(i * 300, (j + 1) * 300)});
        }
    }
}

std::vector<Written> LabelsOf(const MadeTown& town, const View& view, const Look& look = {},
                              const std::vector<QRectF>& kept = {})
{
    std::vector<Written> written;
    (void)DrawLabels(town, view, look, kept, &written);
    return written;
}

int CountOf(const std::vector<Written>& written, const QString& text)
{
    return static_cast<int>(
        std::count_if(written.begin(), written.end(), [&](const Written& one) { return one.text == text; }));
}

QColor ColourAt(const QImage& image, const View& view, Place place)
{
    return image.pixelColor(Projection(view).Pixel(place).toPoint());
}

TEST(MapSheet, PaintsWhatLiesThere)
{
    MadeTown town;
    town.Area(AreaKind::Park, {}, {town.At(-900, -900), town.At(900, -900), town.At(900, 900), town.At(-900, 900)});
    MapArea& lake = town.Area(AreaKind::Water, {},
                              {town.At(200, 200), town.At(800, 200), town.At(800, 800), town.At(200, 800)});
    lake.rings.push_back({town.At(400, 400), town.At(600, 400), town.At(600, 600), town.At(400, 600)});
    town.Road(0, RoadClass::Highway, {town.At(-2000, 0), town.At(2000, 0)});
    const View view = ViewOf(4000);
    for (const bool dark : {false, true}) {
        Look look;
        look.dark = dark;
        const QImage image = DrawMap(town, view, look);
        const Palette& palette = PaletteOf(dark);
        EXPECT_EQ(ColourAt(image, view, town.At(-1500, -800)), palette.land);
        EXPECT_EQ(ColourAt(image, view, town.At(-500, -500)), palette.areas.at(1));
        EXPECT_EQ(ColourAt(image, view, town.At(300, 300)), palette.areas.at(0));
        EXPECT_EQ(ColourAt(image, view, town.At(500, 500)), palette.areas.at(1)) << "an island";
        EXPECT_EQ(ColourAt(image, view, town.At(0, 0)), palette.roads.at(1).fill);
    }
}

// The casing is one whole pixel beside the fill, at each ratio as broad as it should be.
/// As the contrast of letters is measured: 1 for the same colour, 21 for black and white.
double Contrast(const QColor& one, const QColor& other)
{
    const auto light = [](const QColor& colour) {
        const auto part = [](double value) { return value <= 0.03928 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4); };
        return 0.2126 * part(colour.redF()) + 0.7152 * part(colour.greenF()) + 0.0722 * part(colour.blueF()) + 0.05;
    };
    return std::max(light(one), light(other)) / std::min(light(one), light(other));
}

TEST(MapSheet, StreetsAndWaterStandOutInTheDark)
{
    // A light street has its casing beside it; a dark one a pixel wide has nothing but its own colour.
    const Palette& dark = PaletteOf(true);
    for (std::size_t road = 0; road < dark.roads.size(); ++road) {
        EXPECT_GE(Contrast(dark.roads[road].fill, dark.land), 1.8) << road;
        EXPECT_GE(Contrast(dark.roads[road].text, dark.halo), 4.5) << road;
    }
    EXPECT_GE(Contrast(dark.roads[4].fill, dark.land), 2.1) << "what most maps have most of";
    EXPECT_GE(Contrast(dark.areas[0], dark.land), 1.4) << "water";
    EXPECT_GE(Contrast(dark.waterEdge, dark.land), 2.1) << "a brook is nothing but its line";
    EXPECT_GE(Contrast(dark.houses, dark.land), 3) << "a house is a dot of two pixels";
}

TEST(MapSheet, LinesARoadWithItsCasing)
{
    MadeTown town;
    town.Road(0, RoadClass::Highway, {town.At(-2000, 0), town.At(2000, 0)});
    Look look;
    look.furniture = false;
    const QImage image = DrawMap(town, ViewOf(4000), look);
    int casing = 0;
    int fill = 0;
    for (int y = 0; y < 1000; ++y) {
        casing += image.pixelColor(700, y) == PaletteOf(false).roads[1].casing ? 1 : 0;
        fill += image.pixelColor(700, y) == PaletteOf(false).roads[1].fill ? 1 : 0;
    }
    EXPECT_GE(fill, 12);
    EXPECT_LE(casing, 2);
}

TEST(MapSheet, HidesLinesThatOnlyBringNumbers)
{
    MadeTown town;
    town.Road(town.Name(u"Shown Nowhere"_s), RoadClass::Local, {town.At(-2000, 0), town.At(2000, 0)}).hidden = true;
    const View view = ViewOf(4000);
    EXPECT_EQ(ColourAt(DrawMap(town, view, {}), view, town.At(0, 0)), PaletteOf(false).land);
    EXPECT_TRUE(LabelsOf(town, view).empty());
}

// Two cells hold a river's halves, each cut a little beyond the border; a brook runs down its middle.
TEST(MapSheet, ShowsNeitherTheCutsOfCellsNorALineInARiver)
{
    MadeTown town;
    town.Town().extent = {town.At(-3000, -3000), town.At(0, 3000)};
    town.Area(AreaKind::Water, {}, {town.At(-2000, -200), town.At(20, -200), town.At(20, 900), town.At(20, 200),
                                    town.At(-2000, 200)});
    town.Town().waterLines.push_back({{}, {town.At(-1500, 0), town.At(1500, 0)}});
    town.Twice();
    Cell& east = town.Last();
    east.extent = {town.At(0, -3000), town.At(3000, 3000)};
    east.areas.front().rings = {{town.At(-20, -200), town.At(2000, -200), town.At(2000, 200), town.At(-20, 200)}};
    const View view = ViewOf(4000);
    const QImage image = DrawGround(town, view, {});
    const Palette& palette = PaletteOf(false);
    EXPECT_EQ(ColourAt(image, view, town.At(20, 600)), palette.land) << "along the cut there is no shore";
    for (int east = -60; east <= 60; east += 3)
        EXPECT_EQ(ColourAt(image, view, town.At(east, 60)), palette.areas.at(0)) << east;
    EXPECT_EQ(ColourAt(image, view, town.At(500, 0)), palette.areas.at(0)) << "no line in the river";
    const QPointF shore = Projection(view).Pixel(town.At(500, 200));
    bool edged = false;
    for (int y = -2; y <= 2; ++y)
        edged = edged || image.pixelColor(shore.toPoint() + QPoint(0, y)).green() < palette.areas.at(0).green();
    EXPECT_TRUE(edged);
}

TEST(MapSheet, DrawsARoadWhoseNumbersComeFromTheSameLine)
{
    MadeTown town;
    town.Road(0, RoadClass::Local, {town.At(-2000, 0), town.At(2000, 0)}).hidden = true;
    town.Road(0, RoadClass::Local, {town.At(-2000, 0), town.At(2000, 0)});
    const View view = ViewOf(4000);
    EXPECT_EQ(ColourAt(DrawGround(town, view, {}), view, town.At(0, 0)), PaletteOf(false).roads[4].fill);
}

TEST(MapSheet, DotsHousesUntilTheirNumbersHaveRoom)
{
    MadeTown town;
    town.Town().houses.push_back({u"1234"_s, town.At(150, 150)});
    const View far = ViewOf(6000);
    EXPECT_NE(ColourAt(DrawGround(town, far, {}), far, town.At(150, 150)), PaletteOf(false).land);
    EXPECT_EQ(CountOf(LabelsOf(town, far), u"1234"_s), 0);
    const View near = ViewOf(1640);
    EXPECT_EQ(ColourAt(DrawGround(town, near, {}), near, town.At(150, 150)), PaletteOf(false).land);
    EXPECT_EQ(CountOf(LabelsOf(town, near), u"1234"_s), 1);
}

TEST(MapSheet, AsksForCoarserCellsFurtherOut)
{
    MadeTown town;
    const auto asked = [&town](double feet) {
        (void)DrawGround(town, ViewOf(feet), {});
        return town.asked;
    };
    EXPECT_EQ(asked(1640), Level::Streets);
    EXPECT_EQ(asked(26400), Level::Streets);
    EXPECT_EQ(asked(200000), Level::Town);
    EXPECT_EQ(asked(2000000), Level::Region);
}

TEST(Labels, NeverCoverEachOther)
{
    MadeTown town;
    LayGrid(town);
    for (const double feet : {1640.0, 4921.0, 12000.0}) {
        const std::vector<Written> written = LabelsOf(town, ViewOf(feet));
        ASSERT_GT(written.size(), 10U) << feet;
        for (size_t i = 0; i < written.size(); ++i) {
            EXPECT_TRUE(QRectF(0, 0, 1500, 1000).contains(written[i].box)) << written[i].text.toStdString();
            for (size_t j = 0; j < i; ++j)
                EXPECT_FALSE(written[i].box.intersects(written[j].box))
                    << written[i].text.toStdString() << " " << written[j].text.toStdString();
        }
    }
}

TEST(Labels, KeepOffWhatIsKept)
{
    MadeTown town;
    LayGrid(town);
    const QRectF arrow(600, 300, 300, 300);
    const auto covers = [&arrow](const std::vector<Written>& written) {
        return std::any_of(written.begin(), written.end(),
                           [&arrow](const Written& one) { return one.box.intersects(arrow); });
    };
    EXPECT_TRUE(covers(LabelsOf(town, ViewOf(4921))));
    EXPECT_FALSE(covers(LabelsOf(town, ViewOf(4921), {}, {arrow})));
}

TEST(Labels, NameAStretchOnceAndRepeatFarOff)
{
    MadeTown town;
    const quint32 brief = town.Name(u"Short Lane"_s);
    for (int i = 0; i < 6; ++i)
        town.Road(brief, RoadClass::Local, {town.At(i * 100, 500), town.At((i + 1) * 100, 500)});
    const quint32 far = town.Name(u"Long Road"_s);
    for (int i = -20; i < 20; ++i)
        town.Road(far, RoadClass::Collector, {town.At(i * 100, -500), town.At((i + 1) * 100, -500)});
    town.Twice();
    const std::vector<Written> written = LabelsOf(town, ViewOf(4000));
    EXPECT_EQ(CountOf(written, u"Short Lane"_s), 1);
    EXPECT_EQ(CountOf(written, u"Long Road"_s), 2);
}

TEST(Labels, NameTwoCarriagewaysOnce)
{
    MadeTown town;
    const quint32 street = town.Name(u"Memorial Drive"_s);
    town.Road(street, RoadClass::Arterial, {town.At(-500, 0), town.At(500, 0)});
    town.Road(street, RoadClass::Arterial, {town.At(500, 90), town.At(-500, 90)});
    EXPECT_EQ(CountOf(LabelsOf(town, ViewOf(4000)), u"Memorial Drive"_s), 1);
}

TEST(Labels, NameAStreetWhoseEndsAreFarOutOfSight)
{
    MadeTown town;
    town.Road(town.Name(u"County Road"_s), RoadClass::Local, {town.At(-90000, -90000), town.At(90000, 90000)});
    town.Road(town.Name(u"Elsewhere"_s), RoadClass::Local, {town.At(-90000, 80000), town.At(90000, 80000)});
    const std::vector<Written> written = LabelsOf(town, ViewOf(4000));
    EXPECT_GE(CountOf(written, u"County Road"_s), 1);
    EXPECT_EQ(CountOf(written, u"Elsewhere"_s), 0);
}

TEST(Labels, LeaveOutANameThatDoesNotFit)
{
    MadeTown town;
    town.Road(town.Name(u"A Name Much Longer Than Its Street Boulevard"_s), RoadClass::Local,
              {town.At(0, 0), town.At(200, 0)});
    town.Road(town.Name(u"Hairpin Crescent"_s), RoadClass::Local,
              {town.At(0, 300), town.At(60, 300), town.At(60, 360), town.At(0, 360), town.At(0, 420),
               town.At(60, 420), town.At(60, 480)});
    EXPECT_TRUE(LabelsOf(town, ViewOf(4000)).empty());
}

// On paper the picture is 7.5 inches wide: 200 pixels an inch, a point is 2.8 pixels.
TEST(Labels, AreNeverSmallerThanSevenPoints)
{
    MadeTown town;
    LayGrid(town);
    town.Town().houses.push_back({u"1234"_s, town.At(150, 150)});
    town.Area(AreaKind::Water, u"Mill Pond"_s, {town.At(20, 40), town.At(280, 40), town.At(280, 280)});
    town.Road(town.Name(u"Highway"_s, u"US 31"_s), RoadClass::Highway, {town.At(-800, -450), town.At(800, -450)});
    Look look;
    look.streets.text = 1;
    look.arterials.text = 1;
    look.highways.text = 1;
    const std::vector<Written> written = LabelsOf(town, ViewOf(1640, kReportRatio), look);
    EXPECT_EQ(CountOf(written, u"1234"_s), 1);
    EXPECT_GE(CountOf(written, u"US 31"_s), 1);
    for (const Written& one : written)
        EXPECT_GE(one.size / 200 * 72, 6.999) << one.text.toStdString();
}

TEST(Labels, FollowWhatTheUserChose)
{
    MadeTown town;
    LayGrid(town);
    town.Road(town.Name(u"Main Street"_s), RoadClass::Arterial, {town.At(-2000, 150), town.At(2000, 150)});
    Look look;
    look.streets.named = false;
    std::vector<Written> written = LabelsOf(town, ViewOf(4000), look);
    EXPECT_EQ(CountOf(written, u"East 20th Street"_s), 0);
    EXPECT_GE(CountOf(written, u"Main Street"_s), 1);
    const View view = ViewOf(4000);
    EXPECT_NE(ColourAt(DrawGround(town, view, look), view, town.At(70, 300)), PaletteOf(false).land);
    look.streets.shown = false;
    EXPECT_EQ(ColourAt(DrawGround(town, view, look), view, town.At(70, 300)), PaletteOf(false).land);
    look.arterials.text = 14;
    written = LabelsOf(town, ViewOf(4000), look);
    ASSERT_GE(CountOf(written, u"Main Street"_s), 1);
    EXPECT_GT(written.front().size, 18);
}

TEST(Labels, WriteTheNumbersOfASideOnThatSide)
{
    MadeTown town;
    CellEdge& east = town.Road(0, RoadClass::Local, {town.At(-400, 100), town.At(400, 100)});
    east.left = {u"11"_s, u"19"_s, {}, {}};
    east.right = {u"10"_s, u"18"_s, {}, {}};
    CellEdge& west = town.Road(0, RoadClass::Local, {town.At(400, -100), town.At(-400, -100)});
    west.left = {u"21"_s, u"29"_s, {}, {}};
    west.right = {u"20"_s, u"28"_s, {}, {}};
    const View view = ViewOf(1640);
    std::map<QString, QPointF> where;
    for (const Written& one : LabelsOf(town, view))
        where[one.text] = one.box.center();
    ASSERT_EQ(where.size(), 8U);
    const double first = Projection(view).Pixel(town.At(0, 100)).y();
    EXPECT_LT(where[u"11"_s].y(), first) << "left of a way to the east is north";
    EXPECT_GT(where[u"10"_s].y(), first);
    EXPECT_LT(where[u"11"_s].x(), where[u"19"_s].x());
    const double second = Projection(view).Pixel(town.At(0, -100)).y();
    EXPECT_GT(where[u"21"_s].y(), second) << "left of a way to the west is south";
    EXPECT_GT(where[u"21"_s].x(), where[u"29"_s].x());
}

TEST(Labels, PutAShieldForANumberedRoadAlone)
{
    MadeTown town;
    town.Road(town.Name(u"US Hwy 31"_s, u"US 31"_s), RoadClass::Highway, {town.At(-2000, 0), town.At(2000, 0)});
    town.Road(town.Name(u"Memorial Drive"_s, u"AL 14"_s), RoadClass::Highway,
              {town.At(-2000, 600), town.At(2000, 600)});
    const std::vector<Written> written = LabelsOf(town, ViewOf(4000));
    EXPECT_GE(CountOf(written, u"US 31"_s), 2);
    EXPECT_EQ(CountOf(written, u"US Hwy 31"_s), 0) << "the shield says it";
    EXPECT_GE(CountOf(written, u"Memorial Drive"_s), 1);
}

TEST(MapSheet, DrawsTheSameBytesEachTimeAndInEachOrder)
{
    MadeTown town;
    LayGrid(town);
    MadeTown other;
    LayGrid(other);
    std::reverse(other.Town().edges.begin(), other.Town().edges.end());
    other.Twice();
    const View view = ViewOf(4921, kReportRatio);
    const QImage image = DrawMap(town, view, {});
    EXPECT_EQ(DrawMap(town, view, {}), image);
    EXPECT_EQ(DrawLabels(other, view, {}), DrawLabels(town, view, {}));
}

TEST(MapSheet, SurvivesAnEmptyMapAndOddCells)
{
    MadeTown town;
    EXPECT_EQ(ColourAt(DrawMap(town, ViewOf(4000), {}), ViewOf(4000), town.At(0, 0)), PaletteOf(false).land);
    town.Road(99, RoadClass::Local, {town.At(0, 0), town.At(0, 0), town.At(0, 0)});
    town.Road(town.Name(u"Nowhere"_s), RoadClass::Local, {town.At(0, 0)});
    town.Road(0, RoadClass::Local, {}).left = {u"1"_s, u"3"_s, {}, {}};
    town.Road(town.Name(u"Dot Street"_s), RoadClass::Local, {town.At(5, 5), town.At(5, 5)}).left = {u"1"_s, u"3"_s,
                                                                                                     {}, {}};
    town.Area(AreaKind::Water, u"Drop"_s, {});
    town.Town().areas.push_back({AreaKind::Park, u"None"_s, {}});
    town.Town().waterLines.push_back({u"Dry Creek"_s, {}});
    town.Town().waterLines.push_back({u"Drip"_s, {town.At(1, 1), town.At(1, 1)}});
    town.Town().places.push_back({u""_s, PlaceKind::City, 0, town.At(0, 0), {}});
    for (const double feet : {1.0, 840.0, 26400.0, 1e8})
        EXPECT_FALSE(DrawMap(town, ViewOf(feet), {}).isNull());
}

TEST(Stretches, JoinAStreetThroughItsCrossings)
{
    const Projection projection(ViewOf(4000));
    const std::vector<Place> first{MadeTown::At(0, 0), MadeTown::At(100, 0)};
    const std::vector<Place> second{MadeTown::At(200, 0), MadeTown::At(100, 0)}; // runs the other way
    const std::vector<Place> side{MadeTown::At(100, 0), MadeTown::At(100, 100)};
    const auto lines = Join({&side, &second, &first}, projection);
    ASSERT_EQ(lines.size(), 2U);
    const auto longest = std::max_element(lines.begin(), lines.end(), [](const auto& a, const auto& b) {
        return a.size() < b.size();
    });
    ASSERT_EQ(longest->size(), 3U);
    EXPECT_NEAR(std::abs(longest->front().x() - longest->back().x()), 200 * 1500 / 4000.0, 1);
}

TEST(Furniture, ScaleIsRoundAndTrue)
{
    EXPECT_EQ(RoundLength(940).text, u"500 ft"_s);
    EXPECT_EQ(RoundLength(3).text, u"2 ft"_s);
    EXPECT_EQ(RoundLength(5280).text, u"1 mi"_s);
    EXPECT_EQ(RoundLength(1400).text, u"0.25 mi"_s);
    EXPECT_EQ(RoundLength(1300).text, u"1000 ft"_s);
    EXPECT_EQ(RoundLength(1e7).text, u"500 mi"_s);
}

} // namespace

} // namespace vasclip::street::draw
