#include "map/anchors.h"
#include "map/blink.h"
#include "map/map_keys.h"
#include "map/map_test.h"
#include "map/place_arrows.h"
#include "map/rotate.h"
#include "map/selection.h"

#include <sqlite3.h>

namespace vasclip::map {

namespace {

/// Records that can't be stored, for a scope.
class NoStoring
{
public:
    explicit NoStoring(const QString& native)
    {
        EXPECT_EQ(sqlite3_open(native.toUtf8().constData(), &m_handle), SQLITE_OK);
        Say("CREATE TRIGGER refuse BEFORE UPDATE ON COMPS BEGIN SELECT RAISE(ABORT, 'full'); END");
    }
    ~NoStoring()
    {
        Say("DROP TRIGGER refuse");
        sqlite3_close(m_handle);
    }
    NoStoring(const NoStoring&) = delete;
    NoStoring& operator=(const NoStoring&) = delete;

private:
    void Say(const char* statement) const
    {
        EXPECT_EQ(sqlite3_exec(m_handle, statement, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(m_handle);
    }
    sqlite3* m_handle = nullptr;
};

/// An arrow map: the subject, comps 1 and 2, an alternate; comp 2's record is anchored.
class Selection : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        globals.ignoreZipCodes = true;
        Subject(u"1 Main St"_s);
        report.txtComp(1).SetText(u"10 Oak St"_s);
        report.txtComp(2).SetText(u"20 Oak St"_s);
        report.txtAltComp(1).SetText(u"30 Elm St"_s);
        AddTown(u"10 Oak St"_s, {{u"GLA"_s, u"1800"_s}, {u"SELLINGPR"_s, u"$250,000"_s}, {u"SALEDATE"_s, u"5/1/2024"_s}});
        AddTown(u"20 Oak St"_s, Anchor(u"32.47"_s, u"-86.47"_s));
        Pin(1, kOak, {}, u"ARROWBLUESUBJECTLT.BMP"_s);
        Pin(2, Near(kOak, 0, 6336), {}, u"ARROWBLUECOMP1LT.BMP"_s);
        Pin(3, Near(kOak, 180, 2640), {}, u"ARROWBLUECOMP2UP.BMP"_s, 0x8862);
        Pin(4, Near(kOak, 90, 2640), {}, u"ARROWBLUEALTCOMP1LT.BMP"_s);
        desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_|ALTCOMP|4W1_"_s;
        for (qint32 id = 1; id <= 4; ++id)
            desk.state.g_MapResult(id) = 1;
    }
    void Pin(qint32 id, Place place, const QString& text, const QString& picture, qint32 flags = 0x8C52)
    {
        control.pins[id] = {place, flags, kArrows + picture, text};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    [[nodiscard]] QString Address() const { return tab.txtMapAddress.Text(); }
    [[nodiscard]] QString Proximity() const { return tab.txtMapProximity.Text(); }
    void Bitmaps(const QStringList& names) const
    {
        for (const QString& name : names)
            home.Put(kArrows + name);
    }
};

TEST_F(Selection, AnArrowStandsForItsBox)
{
    mapview_PointClick(desk, 2);
    EXPECT_EQ(desk.state.g_MapSelectedID, 2);
    EXPECT_EQ(Address(), u"10 Oak St"_s);
    EXPECT_EQ(tab.txtGLA.Text(), u"GLA = 1800"_s);
    EXPECT_EQ(tab.txtSellingPr.Text(), u"Price = $250,000.00"_s);
    EXPECT_EQ(tab.txtSaleDate.Text(), u"5/1/2024"_s);
    EXPECT_EQ(Proximity(), u"1.2 Mi. North"_s);
    EXPECT_EQ(tab.lblProximity.Caption(), u"Proximity to Subject"_s);
    EXPECT_EQ(tab.lblMapID.Caption(), u"2|1"_s);
    EXPECT_FALSE(tab.imaanchor.Visible());
    mapview_PointClick(desk, 3);
    EXPECT_EQ(Address(), u"20 Oak St"_s);
    EXPECT_TRUE(tab.imaanchor.Visible());
    EXPECT_EQ(tab.txtGLA.Text(), QString());
    EXPECT_EQ(tab.txtSellingPr.Text(), QString());
    EXPECT_EQ(tab.txtSaleDate.Text(), u"01/01/1900"_s); // without a date: pending
    mapview_PointClick(desk, 4);
    EXPECT_EQ(Address(), u"30 Elm St"_s);
    EXPECT_EQ(tab.txtSaleDate.Text(), QString()); // no record
    EXPECT_FALSE(tab.imaanchor.Visible());
}

TEST_F(Selection, TheSubjectHasNoProximity)
{
    mapview_PointClick(desk, 2);
    mapview_PointClick(desk, 1);
    EXPECT_EQ(Address(), u"1 Main St"_s);
    EXPECT_EQ(Proximity(), QString());
    EXPECT_EQ(tab.lblProximity.Caption(), u"Subject Address"_s);
    // A house of the subject's address is the subject too.
    Pin(5, kOak, u"1 MAIN ST"_s, u"comp.bmp"_s);
    mapview_PointClick(desk, 2);
    mapview_PointClick(desk, 5);
    EXPECT_EQ(tab.lblProximity.Caption(), u"Subject Address"_s);
    EXPECT_EQ(Proximity(), QString());
}

TEST_F(Selection, AHouseStandsForItsText)
{
    Pin(5, Near(kOak, 270, 1000), u"77 PINE ST"_s, u"reddoor.bmp"_s);
    mapview_PointClick(desk, 5);
    EXPECT_EQ(Address(), u"77 PINE ST"_s);
    EXPECT_EQ(Proximity(), u".2 Mi. West"_s);
}

TEST_F(Selection, ANumberWithoutASlotLeavesTheBox)
{
    mapview_PointClick(desk, 2);
    Pin(5, kOak, {}, u"ARROWBLUEALTCOMP9LT.BMP"_s); // there are six
    mapview_PointClick(desk, 5);
    EXPECT_EQ(Address(), u"10 Oak St"_s);
    Pin(6, kOak, u"ALTCOMP #1"_s, u"ARROWBLUEALTCOMP9LT.BMP"_s); // the text's number comes first
    mapview_PointClick(desk, 6);
    EXPECT_EQ(Address(), u"30 Elm St"_s);
}

TEST_F(Selection, APointBeyondTheResultsCanBeSelected)
{
    Pin(150, kOak, u"77 PINE ST"_s, u"reddoor.bmp"_s);
    mapview_PointClick(desk, 150);
    EXPECT_EQ(tab.lblMapID.Caption(), u"150|0"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Selection, CapsLockKeepsTheSelection)
{
    mapview_PointClick(desk, 2);
    EXPECT_TRUE(mapview_KeyDown(desk, 20, 0));
    mapview_PointClick(desk, 3);
    EXPECT_EQ(desk.state.g_MapSelectedID, 2);
    EXPECT_EQ(Address(), u"10 Oak St"_s);
    mapview_KeyUp(desk, 20);
    mapview_PointClick(desk, 3);
    EXPECT_EQ(Address(), u"20 Oak St"_s);
    mapview_PointClick(desk, 99); // nothing there
    EXPECT_EQ(desk.state.g_MapSelectedID, 3);
}

TEST_F(Selection, TheFrontViewIsShownIfItsFileIsThere)
{
    AddTown(u"30 Elm St"_s, {{u"PHOTOS"_s, u"FRONT VIEW|ABCD1234\r\n"_s}});
    mapview_PointClick(desk, 4);
    EXPECT_TRUE(tab.geaMapPhoto.Picture().isNull());
    QImage image(16, 12, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    ASSERT_TRUE(image.save(home.disk.ToNative(u"C:\\JPG\\ABCD1234.jpg"_s)));
    mapview_PointClick(desk, 4);
    EXPECT_FALSE(tab.geaMapPhoto.Picture().isNull());
    EXPECT_EQ(table.ErrGetPict(tab.geaMapPhoto), u"C:\\JPG\\ABCD1234.jpg"_s);
    mapview_PointClick(desk, 2);
    EXPECT_TRUE(tab.geaMapPhoto.Picture().isNull());
    mapview_PointClick(desk, 4);
    cmdClearPoint_Click(desk);
    EXPECT_TRUE(tab.geaMapPhoto.Picture().isNull());
}

TEST_F(Selection, ADayBeforeTheCalendarBeginsIsNotShown)
{
    for (const auto& [stored, shown] : {std::pair{u"12/31/1899"_s, QString()}, std::pair{u"1/1/1900"_s, u"1/1/1900"_s}}) {
        engine.OpenDatabase(kDatabook)->Execute(u"UPDATE COMPS SET SALEDATE = '%1'"_s.arg(stored));
        mapview_PointClick(desk, 2);
        EXPECT_EQ(tab.txtSaleDate.Text(), shown) << stored.toStdString();
    }
}

TEST_F(Selection, TheBoxesOwnEventWorksOnTheSame)
{
    QObject::connect(&tab.txtMapAddress, &forms::TextBox::TextChanged, [this] { txtMapAddress_Change(desk); });
    control.log.clear();
    mapview_PointClick(desk, 2);
    EXPECT_EQ(control.log.count(u"DValue=0"_s), 1); // its details are worked out once
    tab.txtMapAddress.SetText(QString());
    EXPECT_EQ(tab.txtGLA.Text(), QString());
    EXPECT_EQ(Proximity(), QString());
    desk.state.inUse = false;
    tab.txtMapAddress.SetText(u"10 Oak St"_s);
    EXPECT_EQ(tab.txtGLA.Text(), QString());
}

TEST_F(Selection, ClearingTheSelectedPoint)
{
    cmdClearPoint_Click(desk); // without one
    EXPECT_EQ(control.pins.size(), 4u);
    mapview_PointClick(desk, 3);
    cmdClearPoint_Click(desk);
    EXPECT_EQ(control.pins.count(3), 0u);
    EXPECT_EQ(Address(), QString());
    EXPECT_EQ(tab.txtSaleDate.Text(), QString());
    EXPECT_EQ(Proximity(), QString());
    EXPECT_FALSE(tab.imaanchor.Visible());
    EXPECT_EQ(desk.state.g_MapSelectedID, 0);
    EXPECT_EQ(Location(u"20 OAK ST"_s), u"32.47 -86.47 1"_s); // its record stays as it is
    mapview_PointClick(desk, 1);
    desk.state.g_MapResult(0) = 1;
    EXPECT_TRUE(mapview_KeyDown(desk, 'C', forms::kAltMask));
    EXPECT_EQ(desk.state.g_MapResult(0), 0); // the subject's
    EXPECT_EQ(desk.state.g_MapResult(1), 0);
    mapview_PointClick(desk, 2);
    EXPECT_EQ(Proximity(), QString()); // there is nothing to measure from
}

TEST_F(Selection, ClearingAll)
{
    mapview_PointClick(desk, 3);
    cmdClear_Click(desk);
    EXPECT_TRUE(control.pins.empty());
    EXPECT_EQ(desk.state.g_MapRanges, QString());
    EXPECT_EQ(Address(), QString());
    EXPECT_FALSE(tab.imaanchor.Visible());
}

// Anchors.

TEST_F(Selection, AnchorEntryTurnsOnAndOff)
{
    mapview_PointClick(desk, 2);
    cmdAnchorOne_Click(desk);
    EXPECT_TRUE(tab.imaanchor.Visible());
    EXPECT_EQ(control.pins[2].flags, 0x60062 | 3072);
    const Place place = control.pins[2].place;
    EXPECT_EQ(Location(u"10 OAK ST"_s),
              DegreesText(place.latitude) + u' ' + DegreesText(place.longitude) + u" 1"_s);
    EXPECT_TRUE(mapview_KeyDown(desk, 'A', forms::kCtrlMask));
    EXPECT_FALSE(tab.imaanchor.Visible());
    EXPECT_EQ(control.pins[2].flags, 0x60052 | 3072);
    EXPECT_EQ(Location(u"10 OAK ST"_s), u"  0"_s);
    mapview_PointClick(desk, 3);
    cmdAnchorOne_Click(desk); // its hot spot is its direction's
    EXPECT_EQ(control.pins[3].flags, 0x60052 | 2048);
}

TEST_F(Selection, APointWithoutARecordIsAnchoredOnTheMapAlone)
{
    Pin(5, kOak, u"77 PINE ST"_s, u"comp.bmp"_s);
    mapview_PointClick(desk, 5);
    cmdAnchorOne_Click(desk);
    EXPECT_FALSE(tab.imaanchor.Visible());
    EXPECT_EQ(control.pins[5].picture, kArrows + u"COMPAnchor.bmp"_s);
    EXPECT_EQ(control.pins[5].flags, 0x60062 | 3072);
    EXPECT_EQ(status.lblmsg.Caption(), u"77 PINE ST has no record in the Databook: its place is kept on this map, and "
                                       "forgotten with it"_s);
    cmdAnchorOne_Click(desk);
    EXPECT_EQ(control.pins[5].picture, kArrows + u"COMP.bmp"_s);
    EXPECT_EQ(control.pins[5].flags, 0x60052 | 3072);
}

TEST_F(Selection, AnchorAllStopsBeforeWhatWasPlacedByHand)
{
    AddTown(u"1 Main St"_s);
    Pin(39, kOak, u"77 PINE ST"_s, u"comp.bmp"_s);
    Pin(40, kOak, u"78 PINE ST"_s, u"comp.bmp"_s);
    AddTown(u"78 Pine St"_s);
    AddTown(u"30 Elm St"_s);
    control.protectedPins = {4}; // its record is not told of a place that the map did not take
    mapview_PointClick(desk, 2);
    EXPECT_FALSE(tab.imaanchor.Visible());
    cmdAnchor_Click(desk);
    EXPECT_TRUE(tab.imaanchor.Visible()) << "of the selected point";
    EXPECT_EQ(Field(u"30 ELM ST"_s, u"ANCHORED"_s), QString());
    EXPECT_EQ(status.lblmsg.Caption(), u"4 points are anchored; 1 has no record in the Databook, so its place is kept "
                                       "on this map alone"_s);
    EXPECT_EQ(control.pins[2].flags, 0x8C72);
    EXPECT_EQ(control.pins[39].picture, kArrows + u"COMPAnchor.bmp"_s);
    EXPECT_EQ(control.pins[40].picture, kArrows + u"comp.bmp"_s);
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"1"_s);
    EXPECT_EQ(Field(u"1 MAIN ST"_s, u"ANCHORED"_s), u"1"_s); // the arrow without a number is the subject's
    EXPECT_EQ(Field(u"78 PINE ST"_s, u"ANCHORED"_s), QString());
    EXPECT_EQ(Location(u"20 OAK ST"_s), DegreesText(control.pins[3].place.latitude) + u' ' +
                                            DegreesText(control.pins[3].place.longitude) + u" 1"_s);
    desk.state.g_MapSelectedID = 0;
    cmdAnchor_Click(desk);
    EXPECT_EQ(control.ID(), 1);
}

TEST_F(Selection, TheLocatorsHousesAreAnchoredByTheirNumber)
{
    control.pins.clear();
    desk.state.arrows = false;
    for (int i = 0; i < 45; ++i) {
        AddTown(u"%1 Pine St"_s.arg(i + 100));
        Pin(i + 2, Near(kOak, 0, 10.0 * i), u"%1 PINE ST"_s.arg(i + 100), u"comp.bmp"_s);
    }
    sources.datsql.SetRecordSource(u"SELECT * FROM COMPS WHERE CENTRALKEY LIKE '*PINE*'"_s);
    sources.datsql.Refresh();
    ASSERT_EQ(sources.datsql.Recordset().RecordCount(), 45);
    cmdAnchor_Click(desk);
    EXPECT_EQ(Field(u"144 PINE ST"_s, u"ANCHORED"_s), u"1"_s); // the last one, past 39
    EXPECT_EQ(status.lblmsg.Caption(), u"45 points are anchored"_s);
}

TEST_F(Selection, TakingAllAnchorsOffAsksFirst)
{
    mapview_PointClick(desk, 3);
    doubles.prompter.Answer(forms::Answer::No);
    cmdAnchor_RightClick(desk);
    EXPECT_EQ(doubles.prompter.Last().text, u"The Databook forgets the place of a record that was put right by "
                                            "hand. Take the anchor off?"_s);
    EXPECT_EQ(Location(u"20 OAK ST"_s), u"32.47 -86.47 1"_s);
    EXPECT_TRUE(tab.imaanchor.Visible());
    Pin(5, kOak, u"77 PINE ST"_s, u"REDDOORAnchor.bmp"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdAnchor_RightClick(desk);
    EXPECT_EQ(Location(u"20 OAK ST"_s), u"  0"_s);
    EXPECT_EQ(control.pins[3].flags, 0x60052 | 2048);
    EXPECT_EQ(control.pins[5].picture, kArrows + u"REDDOOR.bmp"_s);
    EXPECT_FALSE(tab.imaanchor.Visible());
    doubles.prompter.Forget();
    cmdAnchor_RightClick(desk); // nothing is left to forget
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Selection, MovingAPointAnchorsIt)
{
    mapview_PointClick(desk, 2);
    const Place there = Near(kOak, 0, 10560);
    EXPECT_TRUE(MovePointTo(desk, 2, there));
    EXPECT_EQ(control.pins[2].place, there);
    EXPECT_EQ(control.pins[2].flags, 0x60062 | 3072);
    EXPECT_EQ(Location(u"10 OAK ST"_s), DegreesText(there.latitude) + u' ' + DegreesText(there.longitude) + u" 1"_s);
    EXPECT_EQ(Proximity(), u"2. Mi. North"_s); // measured anew
    EXPECT_TRUE(tab.imaanchor.Visible());
    EXPECT_FALSE(MovePointTo(desk, 88, there));
}

TEST_F(Selection, WhatTheDatabookRefusesIsNotAnchoredOnTheMapEither)
{
    AddTown(u"1 Main St"_s);
    mapview_PointClick(desk, 2);
    const QStringList before = Pins();
    const Place place = control.pins[2].place;
    status.lblmsg.Show(u"as it was"_s, forms::Colour::Normal);
    const auto refused = [&](const QString& what) {
        EXPECT_EQ(doubles.prompter.Boxes().size(), 1u) << what.toStdString();
        doubles.prompter.Forget();
        EXPECT_EQ(status.lblmsg.Caption(), u"as it was"_s) << what.toStdString();
        EXPECT_EQ(Pins(), before) << what.toStdString();
        EXPECT_FALSE(tab.imaanchor.Visible()) << what.toStdString();
    };
    {
        const NoStoring none(home.disk.ToNative(kDatabook));
        cmdAnchorOne_Click(desk);
        refused(u"one"_s);
        cmdAnchor_Click(desk);
        refused(u"all"_s);
        EXPECT_FALSE(MovePointTo(desk, 2, Near(kOak, 0, 10560)));
        refused(u"moved"_s);
        EXPECT_EQ(control.pins[2].place, place);
    }
    cmdAnchorOne_Click(desk);
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"1"_s);
}

TEST_F(Selection, WhatIsTakenOffIsNotSaidToBeThereAnyMore)
{
    mapview_PointClick(desk, 2);
    cmdAnchorOne_Click(desk);
    ASSERT_EQ(status.lblmsg.Caption(), u"10 Oak St is anchored: it stays at this place"_s);
    cmdAnchorOne_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"10 Oak St is not anchored any more: placed again, its address is looked up"_s);
    cmdAnchor_Click(desk);
    EXPECT_TRUE(status.lblmsg.Caption().startsWith(u"4 points are anchored"_s)) << status.lblmsg.Caption().toStdString();
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdAnchor_RightClick(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"No point is anchored any more"_s);
    mapview_PointClick(desk, 2);
    cmdClearPoint_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"10 Oak St is not on the map any more"_s);
    cmdClear_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"The map is empty"_s);
}

TEST_F(Selection, KeysMoveTheSelectedPoint)
{
    EXPECT_FALSE(mapview_KeyDown(desk, 37, forms::kCtrlMask)); // without one
    mapview_PointClick(desk, 2);
    control.SetScale(800); // a foot a pixel
    const Place before = control.pins[2].place;
    EXPECT_TRUE(mapview_KeyDown(desk, 37, forms::kCtrlMask));
    EXPECT_NEAR(street::DistanceFeet(before, control.pins[2].place), 4, 0.2);
    EXPECT_LT(control.pins[2].place.longitude, before.longitude);
    EXPECT_TRUE(mapview_KeyDown(desk, 39, forms::kCtrlMask));
    EXPECT_NEAR(street::DistanceFeet(before, control.pins[2].place), 0, 0.5);
    EXPECT_TRUE(mapview_KeyDown(desk, 38, forms::kCtrlMask | forms::kShiftMask));
    EXPECT_GT(control.pins[2].place.latitude, before.latitude);
    EXPECT_NEAR(street::DistanceFeet(before, control.pins[2].place), 1, 0.5);
    EXPECT_TRUE(mapview_KeyDown(desk, 40, forms::kCtrlMask));
    EXPECT_LT(control.pins[2].place.latitude, before.latitude);
    EXPECT_FALSE(mapview_KeyDown(desk, 37, 0)); // pans
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"1"_s);
}

// Turning.

TEST_F(Selection, TurnsThroughEightDirections)
{
    for (const auto suffix : {"LT"_L1, "UP"_L1, "RT"_L1, "RI"_L1, "RB"_L1, "DN"_L1, "LB"_L1, "LF"_L1})
        home.Put(kArrows + u"ARROWBLUECOMP1"_s + suffix + u".BMP"_s);
    cmdRotate_Click(desk); // nothing is selected
    EXPECT_EQ(control.pins[2].picture, kArrows + u"ARROWBLUECOMP1LT.BMP"_s);
    mapview_PointClick(desk, 2);
    QStringList names;
    QList<qint32> hotSpots;
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(mapview_KeyDown(desk, 'R', forms::kCtrlMask));
        names << control.pins[2].picture.mid(kArrows.size() + 14, 2);
        hotSpots << (control.pins[2].flags & 0xF00);
        EXPECT_EQ(control.pins[2].flags & ~0xF00, 0x8052);
    }
    EXPECT_EQ(names, (QStringList{u"UP"_s, u"RT"_s, u"RI"_s, u"RB"_s, u"DN"_s, u"LB"_s, u"LF"_s, u"LT"_s}));
    EXPECT_EQ(hotSpots, (QList<qint32>{2048, 2304, 256, 768, 512, 1536, 1024, 3072}));
    EXPECT_TRUE(desk.state.turnedByHand.contains(2));
}

TEST_F(Selection, WithoutTheBitmapNothingTurns)
{
    mapview_PointClick(desk, 2);
    cmdRotate_Click(desk);
    EXPECT_EQ(control.pins[2].picture, kArrows + u"ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_EQ(control.pins[2].flags, 0x8C52);
    EXPECT_FALSE(desk.state.turnedByHand.contains(2));
}

TEST_F(Selection, HousesDoNotTurn)
{
    Bitmaps({u"ARROWREDUP.BMP"_s, u"ARROWREDLT.BMP"_s, u"ARROWLT.BMP"_s, u"ARROWCOMPLT.BMP"_s});
    for (const QString& house : {u"comp.bmp"_s, u"reddoor.bmp"_s, u"REDDOT.BMP"_s, u"streetarrow.bmp"_s}) {
        Pin(5, kOak, u"77 PINE ST"_s, house);
        mapview_PointClick(desk, 5);
        cmdRotate_Click(desk);
        EXPECT_EQ(control.pins[5].picture, kArrows + house);
    }
}

TEST_F(Selection, TheSubjectAndANamelessArrowTurn)
{
    Bitmaps({u"ARROWBLUESUBJECTUP.BMP"_s, u"ARROWREDUP.BMP"_s});
    mapview_PointClick(desk, 1);
    cmdRotate_Click(desk);
    EXPECT_EQ(control.pins[1].picture, kArrows + u"ARROWBLUESUBJECTUP.BMP"_s);
    Pin(40, kOak, u"RENTAL #1"_s, u"ARROWREDLT.BMP"_s);
    mapview_PointClick(desk, 40);
    globals.transparent = u"1"_s;
    cmdRotate_Click(desk);
    EXPECT_EQ(control.pins[40].picture, kArrows + u"ARROWREDUP.BMP"_s);
    EXPECT_EQ(control.pins[40].flags, 0x9052 | 2048);
    EXPECT_EQ(control.pins[40].text, u"RENTAL #1"_s);
}

TEST_F(Selection, TurningKeepsTheAnchor)
{
    Bitmaps({u"ARROWBLUECOMP2RT.BMP"_s});
    mapview_PointClick(desk, 3);
    cmdRotate_Click(desk);
    EXPECT_EQ(control.pins[3].flags, 0x8062 | 2304);
    mapview_PointClick(desk, 3);
    EXPECT_TRUE(tab.imaanchor.Visible());
}

// Blinking.

TEST_F(Selection, APointBlinksAndIsAsBefore)
{
    Pin(5, Near(kOak, 0, 5000), u"77 PINE ST"_s, u"reddoor.bmp"_s);
    control.log.clear();
    MapFindAndBlink(desk, u"77 pine st"_s);
    EXPECT_EQ(control.centre, control.pins[5].place);
    EXPECT_EQ(control.Scale(), 840);
    const QString bitmaps = u"Picture="_s + kArrows;
    EXPECT_EQ(control.log.filter(u"Picture="_s),
              (QStringList{bitmaps + u"REDDOT.BMP"_s, bitmaps + u"COMP.BMP"_s, bitmaps + u"REDDOT.BMP"_s,
                           bitmaps + u"COMP.BMP"_s, bitmaps + u"REDDOT.BMP"_s, bitmaps + u"COMP.BMP"_s,
                           bitmaps + u"reddoor.bmp"_s}));
    EXPECT_EQ(control.log.filter(u"Flags="_s).mid(5), (QStringList{u"Flags=8C62"_s, u"Flags=8C52"_s}));
    EXPECT_EQ(control.refreshes, 7);
    EXPECT_EQ(Pins().last(), u"5 reddoor.bmp '77 PINE ST' 8C52"_s);
}

TEST_F(Selection, APointThatIsClearedWhileItBlinksStaysGone)
{
    Pin(5, kOak, u"77 PINE ST"_s, u"reddoor.bmp"_s);
    doubles.clock.onWait = [this] { control.pins.erase(5); };
    MapFindAndBlink(desk, u"77 PINE ST"_s);
    EXPECT_EQ(control.pins.count(5), 0u);
    EXPECT_FALSE(desk.state.working);
}

TEST_F(Selection, WithoutAPointItsRecordIsShown)
{
    MapFindAndBlink(desk, u"20 OAK ST"_s);
    EXPECT_EQ(Address(), u"20 OAK ST"_s);
    EXPECT_EQ(control.centre, (Place{32'470'000, -86'470'000}));
    EXPECT_EQ(control.Scale(), 840);
    control.addresses[u"10 OAK ST,PRATTVILLE, AL"_s] = kOak;
    MapFindAndBlink(desk, u"10 OAK ST"_s);
    EXPECT_EQ(control.centre, kOak);
    MapFindAndBlink(desk, u"NO SUCH"_s);
    EXPECT_EQ(Address(), u"NO SUCH"_s);
}

TEST_F(Selection, AClickInTheListBlinks)
{
    Pin(5, Near(kOak, 0, 5000), u"77 PINE ST"_s, u"reddoor.bmp"_s);
    lstaddresses_Click(desk); // no line
    EXPECT_TRUE(control.log.isEmpty());
    tab.lstaddresses.SetItems({u"77 PINE ST"_s});
    tab.lstaddresses.SetListIndex(0);
    lstaddresses_Click(desk);
    EXPECT_EQ(control.centre, control.pins[5].place);
}

} // namespace

} // namespace vasclip::map
