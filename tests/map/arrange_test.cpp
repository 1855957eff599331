#include "map/arrange.h"
#include "map/arrange_arrows.h"
#include "map/map_keys.h"
#include "map/map_test.h"
#include "map/place_arrows.h"
#include "map/selection.h"

#include <random>

namespace vasclip::map {

namespace {

constexpr double kWidth = 70, kHeight = 24, kHouse = 12;

ArrowToArrange Arrow(double x, double y, int direction = 1, bool fixed = false)
{
    ArrowToArrange arrow{.house = {x, y}, .direction = direction, .fixed = fixed};
    for (int d = 1; d <= kDirections; ++d)
        arrow.shapes[static_cast<std::size_t>(d - 1)] = ShapeOf(d, kWidth, kHeight);
    return arrow;
}

Tile TileOf(const ArrowToArrange& arrow, int direction)
{
    return arrow.shapes[static_cast<std::size_t>(direction - 1)].At(arrow.house);
}

/// Does an arrow cover what it must not?
bool Hides(const std::vector<ArrowToArrange>& arrows, const std::vector<int>& directions, std::size_t i)
{
    const Tile tile = TileOf(arrows[i], directions[i]);
    for (std::size_t j = 0; j < arrows.size(); ++j) {
        if (i == j)
            continue;
        const Spot spot = arrows[j].house;
        const Tile house{spot.x - kHouse / 2, spot.y - kHouse / 2, kHouse, kHouse};
        if (tile.Shared(TileOf(arrows[j], directions[j])) > 0)
            return true;
        if (tile.Shared(house) > kHouse * kHouse / 4 && !house.Holds(arrows[i].house)) // less only grazes it
            return true;
    }
    return false;
}

bool Clear(const std::vector<ArrowToArrange>& arrows, const std::vector<int>& directions)
{
    for (std::size_t i = 0; i < arrows.size(); ++i)
        if (Hides(arrows, directions, i))
            return false;
    return true;
}

TEST(ArrowShapes, HaveTheirTipAtTheHotSpot)
{
    const QList<std::pair<double, double>> tips = {{0, 0},   {35, 0},  {70, 0}, {70, 12},
                                                   {70, 24}, {35, 24}, {0, 24}, {0, 12}};
    for (int direction = 1; direction <= kDirections; ++direction) {
        const ArrowShape shape = ShapeOf(direction, kWidth, kHeight);
        EXPECT_EQ(shape.tip.x, tips[direction - 1].first) << direction;
        EXPECT_EQ(shape.tip.y, tips[direction - 1].second) << direction;
    }
    const Tile tile = ShapeOf(5, kWidth, kHeight).At({100, 100});
    EXPECT_EQ(tile.left, 30);
    EXPECT_EQ(tile.top, 76);
}

TEST(Arranging, ArrowsThatAreClearStay)
{
    const std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(300, 100, 5), Arrow(100, 300, 8)};
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_EQ(arranged.directions, (std::vector<int>{1, 5, 8}));
    EXPECT_TRUE(arranged.crowded.empty());
    EXPECT_TRUE(Arrange({}, {}, kHouse).directions.empty());
}

TEST(Arranging, NeighboursMakeRoom)
{
    std::vector<ArrowToArrange> arrows;
    for (int i = 0; i < 3; ++i)
        arrows.push_back(Arrow(100 + 25.0 * i, 100 + 10.0 * i));
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_TRUE(arranged.crowded.empty());
    EXPECT_TRUE(Clear(arrows, arranged.directions));
    EXPECT_FALSE(Clear(arrows, {1, 1, 1}));
}

TEST(Arranging, TwoOnOneHousePointAtIt)
{
    const std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(100, 100), Arrow(102, 101)};
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_TRUE(arranged.crowded.empty());
    EXPECT_TRUE(Clear(arrows, arranged.directions));
}

TEST(Arranging, OtherHousesStayInSight)
{
    const std::vector<ArrowToArrange> arrows = {Arrow(100, 100)};
    const Tile house{120, 105, 12, 12}; // under the arrow as it is
    const Arrangement arranged = Arrange(arrows, {house}, kHouse);
    EXPECT_NE(arranged.directions[0], 1);
    EXPECT_EQ(TileOf(arrows[0], arranged.directions[0]).Shared(house), 0);
}

TEST(Arranging, WhatIsFixedStays)
{
    const std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(125, 100, 1, true)};
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_EQ(arranged.directions[1], 1);
    EXPECT_NE(arranged.directions[0], 1);
    EXPECT_TRUE(arranged.crowded.empty());
    const std::vector<ArrowToArrange> both = {Arrow(100, 100, 1, true), Arrow(125, 100, 1, true)};
    EXPECT_EQ(Arrange(both, {}, kHouse).directions, (std::vector<int>{1, 1}));
    EXPECT_EQ(Arrange(both, {}, kHouse).crowded, (std::vector<int>{0, 1})); // and it says so
}

TEST(Arranging, SaysWhenThereIsNoRoom)
{
    std::vector<ArrowToArrange> arrows;
    for (int i = 0; i < 30; ++i)
        arrows.push_back(Arrow(100 + i, 100));
    arrows.push_back(Arrow(900, 900));
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_FALSE(arranged.crowded.empty());
    EXPECT_EQ(std::count(arranged.crowded.begin(), arranged.crowded.end(), 30), 0); // the one apart is clear
    EXPECT_EQ(arranged.directions[30], 1);
    EXPECT_EQ(Arrange(arrows, {}, kHouse).directions, arranged.directions); // the same each time
}

TEST(Arranging, OneMoreArrowTurnsAloneIfItCan)
{
    std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(300, 120), Arrow(500, 90)};
    arrows.push_back(Arrow(120, 100));
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_EQ(arranged.directions[1], 1);
    EXPECT_EQ(arranged.directions[2], 1);
    EXPECT_TRUE(Clear(arrows, arranged.directions));
    // What came out is where the next run begins.
    for (std::size_t i = 0; i < arrows.size(); ++i)
        arrows[i].direction = arranged.directions[i];
    EXPECT_EQ(Arrange(arrows, {}, kHouse).directions, arranged.directions);
    arrows.push_back(Arrow(305, 122));
    const Arrangement next = Arrange(arrows, {}, kHouse);
    for (const std::size_t i : {0u, 2u, 3u})
        EXPECT_EQ(next.directions[i], arranged.directions[i]) << i;
    EXPECT_TRUE(Clear(arrows, next.directions));
}

TEST(Arranging, TheOneThatIsNotClearGivesWay)
{
    // The first arrow covers a house; its nearest turn would cover the second one, which is clear.
    const std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(30, 108)};
    const Arrangement arranged = Arrange(arrows, {Tile{144, 106, 12, 12}}, kHouse);
    EXPECT_EQ(arranged.directions, (std::vector<int>{7, 1}));
    EXPECT_TRUE(arranged.crowded.empty());
}

TEST(Arranging, ABitmapThatIsMissingIsNoWayOut)
{
    std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(120, 100)};
    for (int d = 2; d <= kDirections; ++d)
        arrows[0].shapes[static_cast<std::size_t>(d - 1)] = arrows[1].shapes[static_cast<std::size_t>(d - 1)] = {};
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_EQ(arranged.directions, (std::vector<int>{1, 1}));
    EXPECT_EQ(arranged.crowded, (std::vector<int>{0, 1}));
}

TEST(Arranging, StaysWithinTheView)
{
    const std::vector<ArrowToArrange> arrows = {Arrow(790, 300), Arrow(400, 595)};
    const Tile view{0, 0, 800, 600};
    const Arrangement arranged = Arrange(arrows, {}, kHouse, view);
    for (std::size_t i = 0; i < arrows.size(); ++i)
        EXPECT_TRUE(view.Holds(TileOf(arrows[i], arranged.directions[i]))) << i;
    EXPECT_EQ(Arrange(arrows, {}, kHouse).directions, (std::vector<int>{1, 1})); // without a border
}

TEST(Arranging, WhatIsEmptyOfABitmapHidesNothing)
{
    // Only the right part of the first one and the left half of the second one are drawn.
    std::vector<ArrowToArrange> arrows = {Arrow(100, 100), Arrow(60, 110)};
    EXPECT_NE(Arrange(arrows, {}, kHouse).directions, (std::vector<int>{1, 1}));
    arrows[0].shapes[0].inked = {Tile{25, 0, 45, kHeight}};
    arrows[1].shapes[0].inked = {Tile{0, 0, 30, kHeight}, Tile{30, 12, 5, 12}};
    const Arrangement arranged = Arrange(arrows, {}, kHouse);
    EXPECT_EQ(arranged.directions, (std::vector<int>{1, 1}));
    EXPECT_TRUE(arranged.crowded.empty());
    arrows[1].shapes[0].inked.push_back(Tile{60, 0, 10, 5}); // by now it reaches into the other's drawing
    EXPECT_NE(Arrange(arrows, {}, kHouse).directions, (std::vector<int>{1, 1}));
}

TEST(Arranging, WhatOnlyGrazesATipLeavesItInSight)
{
    // The tip of the second one lies a little below the first one's lower edge, then nearer.
    EXPECT_EQ(Arrange({Arrow(100, 100), Arrow(140, 128)}, {}, kHouse).directions, (std::vector<int>{1, 1}));
    EXPECT_NE(Arrange({Arrow(100, 100), Arrow(140, 125, 1, true)}, {}, kHouse).directions[0], 1);
    // A house that is drawn is hidden by less.
    EXPECT_NE(Arrange({Arrow(100, 100)}, {Tile{140, 122, 12, 12}}, kHouse).directions[0], 1);
}

/// How many of those that are clear as they are have another direction in a way.
int TurnedOfTheClear(const std::vector<ArrowToArrange>& arrows, const std::vector<int>& way)
{
    std::vector<int> now;
    for (const ArrowToArrange& arrow : arrows)
        now.push_back(arrow.direction);
    int turned = 0;
    for (std::size_t i = 0; i < arrows.size(); ++i)
        turned += !Hides(arrows, now, i) && way[i] != now[i] ? 1 : 0;
    return turned;
}

/// The fewest of them over all ways, tried one by one; -1 if there is none.
int FewestTurned(const std::vector<ArrowToArrange>& arrows)
{
    int fewest = -1;
    std::vector<int> way(arrows.size(), 1);
    for (bool more = true; more;) {
        if (Clear(arrows, way)) {
            const int turned = TurnedOfTheClear(arrows, way);
            fewest = fewest < 0 ? turned : std::min(fewest, turned);
        }
        more = false;
        for (int& direction : way) {
            if (++direction <= kDirections) {
                more = true;
                break;
            }
            direction = 1;
        }
    }
    return fewest;
}

TEST(Arranging, FindsAWayWhereverThereIsOneAndTurnsTheFewest)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> x(100, 190), y(100, 170);
    std::uniform_int_distribution<int> turned(1, kDirections);
    int ways = 0, none = 0;
    for (int run = 0; run < 60; ++run) {
        std::vector<ArrowToArrange> arrows;
        for (int i = 0; i < 4; ++i)
            arrows.push_back(Arrow(x(random), y(random), turned(random)));
        const int fewest = FewestTurned(arrows);
        (fewest < 0 ? none : ways) += 1;
        const Arrangement arranged = Arrange(arrows, {}, kHouse);
        ASSERT_EQ(arranged.crowded.empty(), fewest >= 0) << run;
        if (fewest < 0)
            continue;
        EXPECT_TRUE(Clear(arrows, arranged.directions)) << run;
        EXPECT_EQ(TurnedOfTheClear(arrows, arranged.directions), fewest) << run;
    }
    EXPECT_GT(ways, 20);
    EXPECT_GT(none, 0) << "some of them have no way";
}

TEST(Arranging, HoldsInAFurtherLayoutToo)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> x(200, 1200), y(100, 600);
    for (int run = 0; run < 100; ++run) {
        std::vector<ArrowToArrange> arrows;
        std::vector<ArrowToArrange> closer;
        Sheet sheet;
        for (int i = 0; i < 6; ++i) {
            arrows.push_back(Arrow(x(random), y(random)));
            closer.push_back(Arrow(arrows.back().house.x / 2, arrows.back().house.y / 2));
            sheet.spots.push_back(closer.back().house);
        }
        const Arrangement arranged = Arrange(arrows, {}, kHouse, {}, {sheet});
        EXPECT_EQ(arranged.crowded.empty(), Clear(arrows, arranged.directions) && Clear(closer, arranged.directions)) << run;
    }
    // Clear on the screen, upon each other on paper.
    const std::vector<ArrowToArrange> apart = {Arrow(100, 100), Arrow(190, 100)};
    EXPECT_EQ(Arrange(apart, {}, kHouse).directions, (std::vector<int>{1, 1}));
    const Arrangement both = Arrange(apart, {}, kHouse, {}, {{.spots = {{50, 50}, {95, 50}}, .houses = {}, .view = {}}});
    EXPECT_NE(both.directions, (std::vector<int>{1, 1}));
    EXPECT_TRUE(both.crowded.empty());
}

TEST(Arranging, ViewsAsTheyComeAreCleared)
{
    std::mt19937 random(20240517);
    std::uniform_real_distribution<double> x(100, 700), y(60, 540);
    int cleared = 0;
    for (int run = 0; run < 200; ++run) {
        std::vector<ArrowToArrange> arrows;
        for (int i = 0; i < 10; ++i)
            arrows.push_back(Arrow(x(random), y(random)));
        const Arrangement arranged = Arrange(arrows, {}, kHouse);
        EXPECT_EQ(arranged.crowded.empty(), Clear(arrows, arranged.directions)) << run;
        cleared += arranged.crowded.empty() ? 1 : 0;
    }
    EXPECT_GE(cleared, 195); // a subject and nine comps nearly always have room
}

// On the map.

class ArrangeMap : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        for (const QString& name : {u"COMP1"_s, u"COMP2"_s, u"COMP3"_s, u"SUBJECT"_s})
            for (int d = 1; d <= kDirections; ++d)
                Bitmap(u"ARROWBLUE"_s + name + DirectionSuffix(d), 70, 24);
        Bitmap(u"comp.bmp"_s, 16, 16);
        control.centre = kOak;
        control.SetScale(8000); // ten feet a pixel
    }
    void Bitmap(const QString& name, int width, int height)
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(Qt::blue);
        ASSERT_TRUE(image.save(home.disk.ToNative(kArrows + name), "BMP"));
    }
    /// A point some pixels right of the middle.
    void Pin(qint32 id, double east, const QString& picture, qint32 flags = 0x8C52)
    {
        control.pins[id] = {Near(kOak, 90, east * 10), flags, kArrows + picture, QString()};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    [[nodiscard]] int Direction(qint32 id) const { return ParsePicture(control.pins.at(id).picture).direction; }
    [[nodiscard]] QString Name(qint32 id) const { return BitmapName(control.pins.at(id).picture); }
};

TEST_F(ArrangeMap, TurnsAsTheButtonDoes)
{
    Pin(1, 0, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, 30, u"ARROWBLUECOMP1LT.BMP"_s);
    cmdArrange_Click(desk);
    EXPECT_NE(Direction(1) + Direction(2), 2); // one of them has turned
    for (const qint32 id : {1, 2}) {
        if (Direction(id) != 1) {
            EXPECT_EQ(control.pins[id].flags, 0x8052 | HotSpot(Direction(id)));
        }
    }
    EXPECT_TRUE(status.lblmsg.Caption().startsWith(u"Turned: "_s));
    const QList<QString> names = {Name(1), Name(2)};
    EXPECT_TRUE(mapview_KeyDown(desk, 'G', forms::kCtrlMask)); // nothing more to do
    EXPECT_EQ((QList<QString>{Name(1), Name(2)}), names);
    EXPECT_EQ(status.lblmsg.Caption(), u"No arrow covers another or a house; none was turned"_s);
}

TEST_F(ArrangeMap, KeepsWhatWasTurnedByHandOrAnchored)
{
    Pin(1, 0, u"ARROWBLUESUBJECTLT.BMP"_s, 0x8C62);
    Pin(2, 30, u"ARROWBLUECOMP1LT.BMP"_s);
    Pin(3, 60, u"ARROWBLUECOMP2LT.BMP"_s);
    desk.state.turnedByHand.insert(3);
    cmdArrange_Click(desk);
    EXPECT_EQ(Name(1), u"ARROWBLUESUBJECTLT.BMP"_s);
    EXPECT_EQ(Name(3), u"ARROWBLUECOMP2LT.BMP"_s);
    EXPECT_NE(Name(2), u"ARROWBLUECOMP1LT.BMP"_s);
    // In such a row not even the free one finds room.
    EXPECT_EQ(status.lblmsg.Caption(),
              u"There is no room for all arrows at this scale: SUBJECT, COMP #1, COMP #2 still cover something or are "
              "covered, here or in the report's picture. Zoom in, or turn or move them by hand"_s);
}

TEST_F(ArrangeMap, ArrowsThatMeetOnPaperAloneTurnToo)
{
    control.width = 1440; // twice as wide as the report's picture
    control.height = 960;
    control.SetScale(14400);
    Pin(1, 0, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, 100, u"ARROWBLUECOMP1LT.BMP"_s);
    cmdArrange_Click(desk);
    EXPECT_NE(Direction(1) + Direction(2), 2);
    EXPECT_TRUE(status.lblmsg.Caption().startsWith(u"Turned: "_s));
}

TEST_F(ArrangeMap, HousesAreKeptInSight)
{
    Pin(1, 0, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, 40, u"comp.bmp"_s);
    cmdArrange_Click(desk);
    EXPECT_NE(Name(1), u"ARROWBLUESUBJECTLT.BMP"_s);
    EXPECT_EQ(Name(2), u"comp.bmp"_s);
}

TEST_F(ArrangeMap, RotatingByHandCountsAsTurned)
{
    Pin(2, 0, u"ARROWBLUECOMP1LT.BMP"_s);
    mapview_PointClick(desk, 2);
    EXPECT_TRUE(mapview_KeyDown(desk, 'R', forms::kCtrlMask));
    Pin(3, 10, u"ARROWBLUECOMP2LT.BMP"_s);
    const QString turned = Name(2);
    cmdArrange_Click(desk);
    EXPECT_EQ(Name(2), turned);
}

TEST_F(ArrangeMap, AfterPlacingWhereTheBoxSaysSo)
{
    Subject(u"1 Main St"_s);
    Street(u"1 MAIN ST"_s, kOak);
    for (int n : {1, 2, 3}) {
        const QString address = u"%1 OAK ST"_s.arg(n);
        Street(address, Near(kOak, 90, n == 3 ? 900.0 : 25.0 * n));
        report.txtComp(n).SetText(address);
        addr.txtCompCity(n).SetText(u"Prattville"_s);
        addr.txtCompState(n).SetText(u"AL"_s);
    }
    cmdSubjectAnd_Click(desk);
    for (qint32 id = 1; id <= 4; ++id)
        EXPECT_EQ(Direction(id), 1);
    tab.ckbArrange.SetValue(true);
    cmdSubjectAnd_Click(desk);
    int turned = 0;
    for (qint32 id = 1; id <= 4; ++id)
        turned += Direction(id) != 1 ? 1 : 0;
    EXPECT_GT(turned, 0);
    const QString told = status.lblmsg.Caption();
    EXPECT_TRUE(told.startsWith(u"On the map: SUBJECT, COMP #1, COMP #2, COMP #3. There is no room for all arrows "
                                "at this scale: "_s))
        << told.toStdString();
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(ArrangeMap, AViewWithoutASizeIsLeftAlone)
{
    Pin(1, 0, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, 30, u"ARROWBLUECOMP1LT.BMP"_s);
    control.width = 0;
    cmdArrange_Click(desk);
    EXPECT_EQ(Direction(1) + Direction(2), 2);
}

} // namespace

} // namespace vasclip::map
