#include "map/anchors.h"
#include "map/map_test.h"
#include "map/place_arrows.h"
#include "map/radius.h"
#include "map/selection.h"
#include "platform/street/geodesy.h"

namespace vasclip::map {

namespace {

class Radius : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        Subject(u"1 Main St"_s);
        Street(u"1 MAIN ST"_s, kOak);
        globals.ignoreZipCodes = true;
    }
    void Pin(qint32 id, Place place, const QString& text, const QString& picture = u"comp.bmp"_s)
    {
        control.pins[id] = {place, 0, kArrows + picture, text};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    void Draw(const QString& miles)
    {
        tab.txtradius.SetText(miles);
        tab.ckbRadius.SetValue(true);
        txtradius_Change(desk);
    }
};

TEST_F(Radius, TheCircleHas36PlacesAndIsNotClosed)
{
    Draw(u"0.5"_s);
    ASSERT_TRUE(control.lines.count(kRadiusLine));
    const auto& ring = control.lines[kRadiusLine];
    ASSERT_EQ(ring.size(), 36u);
    for (const Place& place : ring)
        EXPECT_NEAR(street::DistanceFeet(kOak, place), 2640, 1);
    EXPECT_GT(ring[0].latitude, kOak.latitude);    // from north
    EXPECT_LT(ring[9].longitude, kOak.longitude);  // towards the west
    EXPECT_NE(ring.front(), ring.back());
    EXPECT_TRUE(control.log.contains(u"CreateLine 12345 of 36, width 2, colour ff00ff"_s));
    EXPECT_EQ(desk.state.radiusCentre, kOak);
    // Each bearing from the centre with the distance anew.
    EXPECT_EQ(control.log.count(u"Value=2640"_s), 36);
    EXPECT_TRUE(control.log.contains(u"DValue=350"_s));
}

TEST_F(Radius, IsSetInOrder)
{
    desk.state.radiusMiles = 1;
    SetCircle(desk, kOak);
    QStringList steps;
    for (const QString& entry : std::as_const(control.log))
        if (entry.startsWith(u"Action 36"_s) || entry.startsWith(u"Action 27"_s) || entry.contains(u"Line"_s) ||
            entry == u"Refresh"_s || entry.startsWith(u"ID"_s))
            steps << entry;
    EXPECT_EQ(steps, (QStringList{u"Action 36"_s, u"DestroyLine 12345"_s,
                                  u"CreateLine 12345 of 36, width 2, colour ff00ff"_s, u"Refresh"_s, u"ID=12345"_s,
                                  u"Action 27"_s}));
}

TEST_F(Radius, StandsAroundTheSubjectsPoint)
{
    const Place elsewhere = Near(kOak, 90, 9000);
    Pin(1, elsewhere, {}, u"ARROWBLUESUBJECTLT.BMP"_s);
    Draw(u"1"_s);
    EXPECT_EQ(desk.state.radiusCentre, elsewhere);
    EXPECT_EQ(control.lookUps, 0);
}

TEST_F(Radius, IsNotDrawnForASubjectThatIsNotFound)
{
    Subject(u"1 Nowhere"_s);
    Draw(u"1"_s);
    EXPECT_TRUE(control.lines.empty());
    Subject(QString());
    Draw(u"1"_s);
    EXPECT_TRUE(control.lines.empty());
    EXPECT_EQ(control.lookUps, 1);
}

TEST_F(Radius, ListsWhatIsWithinWithoutTheSubject)
{
    Pin(1, kOak, u"SUBJECT"_s);
    Pin(2, Near(kOak, 10, 4000), u" 12 OAK ST "_s);
    Pin(3, Near(kOak, 10, 6000), u"14 OAK ST"_s);
    Pin(4, Near(kOak, 90, 100), u"1 Main St"_s);
    Pin(5, Near(kOak, 90, 100), {}, u"ARROWBLUECOMP1LT.BMP"_s);
    Pin(6, Near(kOak, 180, 5000), u"16 OAK ST"_s);
    Draw(u"1"_s);
    EXPECT_EQ(tab.lstaddresses.Items(), (QStringList{u"12 OAK ST"_s, u"16 OAK ST"_s}));
    EXPECT_EQ(tab.lstids.Items(), (QStringList{u"2"_s, u"6"_s}));
    Draw(u".5"_s); // others take their place
    EXPECT_EQ(tab.lstaddresses.Items(), QStringList());
}

TEST_F(Radius, AnEmptyTextRemovesIt)
{
    Pin(2, Near(kOak, 10, 4000), u"12 OAK ST"_s);
    for (const QString& nothing : {u""_s, u"."_s, u"0"_s, u"-1"_s}) {
        Draw(u"1"_s);
        ASSERT_EQ(control.lines.size(), 1u);
        tab.txtradius.SetText(nothing);
        txtradius_Change(desk);
        EXPECT_TRUE(control.lines.empty());
        EXPECT_EQ(tab.lstaddresses.ListCount(), 0);
    }
}

TEST_F(Radius, TheBoxWorksOnTheMapTabAlone)
{
    tab.txtradius.SetText(u"1"_s);
    tab.ckbRadius.SetValue(true);
    ckbRadius_Click(desk, false);
    EXPECT_TRUE(control.lines.empty());
    ckbRadius_Click(desk, true);
    EXPECT_EQ(control.lines.size(), 1u);
    tab.ckbRadius.SetValue(false);
    ckbRadius_Click(desk, true);
    EXPECT_TRUE(control.lines.empty());
    txtradius_Change(desk);
    EXPECT_EQ(control.lines.size(), 1u) << "a number that is typed draws it,";
    EXPECT_TRUE(tab.ckbRadius.Value()) << "and the box says so";
    tab.txtradius.SetText(QString());
    ckbRadius_Click(desk, true);
    EXPECT_TRUE(control.lines.empty());
    EXPECT_EQ(status.lblmsg.Caption(), u"Type the miles of the circle"_s);
}

TEST_F(Radius, AnotherRadiusThatCannotBeDrawnLeavesNoneBehind)
{
    Pin(2, Near(kOak, 10, 1000), u"12 OAK ST"_s);
    Draw(u"1"_s);
    ASSERT_EQ(control.lines.size(), 1u);
    Subject(u"1 Nowhere"_s);
    Draw(u"2"_s);
    EXPECT_TRUE(control.lines.empty()) << "a circle of one mile around another house";
    EXPECT_EQ(tab.lstaddresses.ListCount(), 0);
    EXPECT_EQ(status.lblmsg.Caption(), u"No circle: the subject is not on the map, and its address was not found"_s);
}

TEST_F(Radius, StepsByAQuarterMile)
{
    spnradius_Change(desk, 1);
    EXPECT_EQ(tab.txtradius.Text(), u"0.25"_s);
    EXPECT_TRUE(tab.ckbRadius.Value());
    spnradius_Change(desk, 1);
    EXPECT_EQ(tab.txtradius.Text(), u"0.5"_s);
    tab.txtradius.SetText(u"0.4"_s);
    spnradius_Change(desk, -1);
    EXPECT_EQ(tab.txtradius.Text(), u"0"_s); // below a quarter is nothing
    EXPECT_FALSE(tab.ckbRadius.Value());
    spnradius_Change(desk, -1);
    EXPECT_EQ(tab.txtradius.Text(), u"0"_s);
}

TEST_F(Radius, TellsDistancesAndWhoIsJustOutside)
{
    report.txtComp(2).SetText(u"20 Oak St"_s);
    Pin(1, kOak, {}, u"ARROWBLUESUBJECTLT.BMP"_s);
    Pin(2, Near(kOak, 10, 7000), u"12 OAK ST"_s);
    Pin(3, Near(kOak, 10, 4000), {}, u"ARROWBLUECOMP2LT.BMP"_s); // by the report's box
    Pin(4, Near(kOak, 10, 9000), u"FAR ST"_s);
    EXPECT_TRUE(CompsByDistance(desk).empty()); // without a circle
    Draw(u"1"_s);
    const std::vector<RadiusComp> all = CompsByDistance(desk);
    ASSERT_EQ(all.size(), 3u);
    EXPECT_EQ(all[0].address, u"20 Oak St"_s);
    EXPECT_NEAR(all[0].feet, 4000, 1);
    EXPECT_TRUE(all[0].within);
    EXPECT_EQ(all[1].id, 2);
    EXPECT_FALSE(all[1].within);
    const std::vector<RadiusComp> around = CompsAroundRadius(desk);
    ASSERT_EQ(around.size(), 2u); // half as far again, and no farther
    EXPECT_EQ(around[1].address, u"12 OAK ST"_s);
    EXPECT_EQ(tab.lstaddresses.Items(), QStringList{u"20 Oak St"_s}); // an arrow too
    EXPECT_EQ(desk.state.radiusDistances, QStringList{u"0.76 mi"_s});
    EXPECT_EQ(tab.lblJustOutside.Caption(), u"Just outside: 12 OAK ST 1.33 mi"_s);
    control.pins[2].place = Near(kOak, 10, 2000);
    FollowCircle(desk);
    EXPECT_EQ(tab.lstaddresses.Items(), (QStringList{u"12 OAK ST"_s, u"20 Oak St"_s}));
    EXPECT_EQ(desk.state.radiusDistances, (QStringList{u"0.38 mi"_s, u"0.76 mi"_s}));
    EXPECT_EQ(tab.lblJustOutside.Caption(), QString());
}

TEST_F(Radius, FollowsWhatIsPlacedMovedAndCleared)
{
    globals.ignoreZipCodes = true;
    report.txtComp(1).SetText(u"20 Oak St"_s);
    AddTown(u"20 Oak St"_s);
    Street(u"20 OAK ST"_s, Near(kOak, 90, 3000));
    Draw(u"1"_s);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(tab.lstaddresses.Items(), QStringList{u"20 Oak St"_s});
    MovePointTo(desk, 2, Near(kOak, 90, 6000));
    EXPECT_EQ(tab.lstaddresses.ListCount(), 0);
    EXPECT_EQ(tab.lblJustOutside.Caption(), u"Just outside: 20 Oak St 1.14 mi"_s);
    MovePointTo(desk, 2, Near(kOak, 90, 1000));
    EXPECT_EQ(tab.lstaddresses.ListCount(), 1);
    const Place elsewhere = Near(kOak, 0, 9000);
    MovePointTo(desk, 1, elsewhere);
    EXPECT_EQ(desk.state.radiusCentre, elsewhere);
    EXPECT_EQ(tab.lstaddresses.ListCount(), 0);
    MovePointTo(desk, 1, kOak);
    cmdClear_Click(desk);
    EXPECT_EQ(tab.lstaddresses.ListCount(), 0);
}

} // namespace

} // namespace vasclip::map
