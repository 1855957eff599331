#include "map/anchors.h"
#include "map/cmd_prox.h"
#include "map/map_test.h"
#include "map/place_arrows.h"
#include "map/placed_for.h"
#include "map/proximity.h"
#include "map/selection.h"

namespace vasclip::map {

namespace {

/// Subject and two comps, placed as the button does; the report then has other addresses there.
class PlacedFor : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        globals.ignoreZipCodes = true;
        Subject(u"1 Main St"_s);
        Street(u"1 MAIN ST"_s, kOak);
        AddTown(u"1 Main St"_s);
        int feet = 0;
        for (const QString& address : {u"10 Oak St"_s, u"20 Oak St"_s, u"30 Elm St"_s}) {
            AddTown(address);
            Street(address, Near(kOak, 0, feet += 5280));
        }
        report.txtComp(1).SetText(u"10 Oak St"_s);
        report.txtComp(2).SetText(u"20 Oak St"_s);
        cmdSubjectAnd_Click(desk);
        ASSERT_EQ(control.pins.size(), 3u);
        doubles.prompter.Forget();
    }
    void Swap()
    {
        report.txtComp(1).SetText(u"20 OAK ST"_s); // as the report writes it
        report.txtComp(2).SetText(u"10 Oak St"_s);
    }
    [[nodiscard]] QString Asked() const
    {
        return doubles.prompter.Boxes().empty() ? QString() : doubles.prompter.Last().text;
    }
    static inline const QString kSwapped =
        u"These arrows were placed for other addresses than the report has there now: COMP #1: 10 Oak St, now 20 OAK ST; "
        "COMP #2: 20 Oak St, now 10 Oak St. Go on with the report's addresses?"_s;
};

TEST_F(PlacedFor, AnArrowThatIsMovedAsksBeforeAnotherRecordTakesItsPlace)
{
    const QString before = Location(u"20 OAK ST"_s);
    Swap();
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
    EXPECT_EQ(Asked(), u"These arrows were placed for other addresses than the report has there now: COMP #1: 10 Oak St, "
                       "now 20 OAK ST. Go on with the report's addresses?"_s);
    EXPECT_EQ(Location(u"20 OAK ST"_s), before);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_TRUE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
    EXPECT_EQ(Field(u"20 OAK ST"_s, u"ANCHORED"_s), u"1"_s);
    doubles.prompter.Forget();
    EXPECT_TRUE(MovePointTo(desk, 2, Near(kOak, 90, 4000))); // by now it is that one's
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PlacedFor, TheSameAddressInOtherLettersIsTheSame)
{
    report.txtComp(1).SetText(u" 10 OAK ST"_s);
    EXPECT_TRUE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PlacedFor, AnchoringAndItsReverseAsk)
{
    const QString before = Location(u"20 OAK ST"_s);
    Swap();
    for (const auto& gesture : {cmdAnchor_Click, cmdAnchor_RightClick}) {
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::No);
        gesture(desk);
        EXPECT_EQ(Asked(), kSwapped);
        EXPECT_EQ(Location(u"20 OAK ST"_s), before);
    }
    mapview_PointClick(desk, 3);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"Placed for another address than the report has there now: COMP #2: 20 Oak St, now 10 Oak St. Place the "
              "arrows again"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
    doubles.prompter.Answer(forms::Answer::No);
    cmdAnchorOne_Click(desk);
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"0"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdAnchor_Click(desk);
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"LATITUDE"_s), DegreesText(control.pins[3].place.latitude));
}

TEST_F(PlacedFor, AnArrowAsksForACompWithoutARecordToo)
{
    report.txtComp(1).SetText(u"7 New St"_s); // nobody has stored it, and its distance would be the arrow's
    doubles.prompter.Answer(forms::Answer::No);
    const Place before = control.pins[2].place;
    EXPECT_FALSE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
    EXPECT_TRUE(Asked().contains(u"COMP #1: 10 Oak St, now 7 New St"_s)) << Asked().toStdString();
    EXPECT_EQ(control.pins[2].place, before);
    EXPECT_FALSE(StandsFor(desk, *LoadPoint(desk, 2))) << "it is still the other one's";
}

TEST_F(PlacedFor, AnArrowWhoseReportWasClosedStaysWhoseItWas)
{
    const QString before = Location(u"10 OAK ST"_s);
    report.txtComp(1).SetText({}); // the report is closed while the arrow is held
    EXPECT_TRUE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
    EXPECT_EQ(status.lblmsg.Caption(), u"COMP #1 (10 Oak St) has no address in the report now: its place is kept on this "
                                       "map, and forgotten with it"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
    EXPECT_EQ(Location(u"10 OAK ST"_s), before);
    mapview_PointClick(desk, 2);
    cmdAnchorOne_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"COMP #1 (10 Oak St) is not anchored any more: placed again, its address is looked up"_s);
    report.txtComp(1).SetText(u"10 Oak St"_s); // and opened again
    EXPECT_TRUE(MovePointTo(desk, 2, Near(kOak, 90, 4000)));
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Texts().join(u'\n').toStdString();
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"1"_s);
    report.txtComp(1).SetText(u"20 OAK ST"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_FALSE(MovePointTo(desk, 2, Near(kOak, 90, 5000))) << "another one's is asked about as before";
}

TEST_F(PlacedFor, PlacingAgainSettlesIt)
{
    Swap();
    cmdSubjectAnd_Click(desk);
    cmdAnchor_Click(desk);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PlacedFor, AFrozenArrowWhoseNewAddressIsNotFoundIsKnown)
{
    tab.ckbFreeze.SetValue(true);
    AddTown(u"99 Nowhere"_s);
    report.txtComp(1).SetText(u"99 Nowhere"_s);
    cmdSubjectAnd_Click(desk);
    mapview_PointClick(desk, 2);
    EXPECT_TRUE(status.lblmsg.Caption().contains(u"COMP #1: 10 Oak St, now 99 Nowhere"_s));
    EXPECT_EQ(tab.txtMapProximity.Text(), QString()); // not the distance of the one before
}

TEST_F(PlacedFor, AnArrowOfAnotherIsMeasuredByTheReportsAddress)
{
    mapview_PointClick(desk, 2);
    EXPECT_EQ(tab.txtMapProximity.Text(), u"1. Mi. North"_s);
    Swap();
    mapview_PointClick(desk, 2);
    EXPECT_EQ(tab.txtMapAddress.Text(), u"20 OAK ST"_s);
    EXPECT_EQ(tab.txtMapProximity.Text(), u"2. Mi. North"_s);
}

TEST_F(PlacedFor, AnAddressThatIsNotTheSelectedPointsHasItsOwnDistance)
{
    mapview_PointClick(desk, 2);
    ShowMapAddress(desk, u"30 ELM ST"_s); // as the find window and a typed address do
    EXPECT_EQ(tab.txtMapProximity.Text(), u"3. Mi. "_s); // its place is not stored, so it has no word
    desk.state.g_MapSelectedID = 0;
    ShowMapAddress(desk, u"30 ELM ST"_s);
    EXPECT_EQ(tab.txtMapProximity.Text(), u"3. Mi. "_s);
}

TEST_F(PlacedFor, AnotherSubjectIsMeasuredFromWhereItIs)
{
    AddTown(u"2 Main St"_s);
    Street(u"2 MAIN ST"_s, Near(kOak, 0, 10560));
    Subject(u"2 Main St"_s);
    mapview_PointClick(desk, 2);
    EXPECT_EQ(tab.txtMapProximity.Text(), u"1. Mi. South"_s);
}

TEST_F(PlacedFor, PlacingAnewEmptiesWhatIsShownOfAPoint)
{
    mapview_PointClick(desk, 2);
    ASSERT_EQ(tab.txtMapAddress.Text(), u"10 Oak St"_s);
    for (const auto& gesture : {cmdSubjectAnd_Click, cmdSubjectOnly_Click}) {
        mapview_PointClick(desk, 2);
        gesture(desk);
        EXPECT_EQ(tab.txtMapAddress.Text(), QString());
        EXPECT_EQ(tab.txtMapProximity.Text(), QString());
        cmdSubjectAnd_Click(desk);
    }
}

TEST_F(PlacedFor, AnAnchorOffTheGlobeIsNotFound)
{
    AddTown(u"40 Elm St"_s, Anchor(u"95.5"_s, u"-86.47"_s));
    report.txtComp(3).SetText(u"40 Elm St"_s);
    cmdSubjectAnd_Click(desk);
    EXPECT_FALSE(control.pins.contains(4));
    EXPECT_EQ(desk.state.g_MapResult(4), 0);
    EXPECT_TRUE(status.lblmsg.Caption().startsWith(u"Not found on the map: COMP #3 40 Elm St"_s))
        << status.lblmsg.Caption().toStdString();
    EXPECT_EQ(Field(u"40 ELM ST"_s, u"LATITUDE"_s), u"95.5"_s) << "nobody but its user changes an anchor";
}

TEST_F(PlacedFor, ALongGestureKeepsOthersOut)
{
    mapview_PointClick(desk, 2);
    const auto before = control.pins[2].place;
    {
        const Working working{desk.state};
        EXPECT_FALSE(MovePointTo(desk, 2, Near(kOak, 90, 3000)));
        for (const auto& gesture :
             {cmdAnchor_Click, cmdAnchorOne_Click, cmdAnchor_RightClick, cmdClear_Click, cmdClearPoint_Click})
            gesture(desk);
    }
    EXPECT_EQ(control.pins[2].place, before);
    EXPECT_EQ(control.pins.size(), 3u);
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"0"_s);
}

} // namespace

} // namespace vasclip::map
