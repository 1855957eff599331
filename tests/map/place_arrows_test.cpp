#include "map/flags.h"
#include "map/map_addresses.h"
#include "map/map_test.h"
#include "map/messages.h"
#include "map/place_arrows.h"

namespace vasclip::map {

namespace {

class PlaceArrows : public MapTest
{
protected:
    /// A comp's address and city in the report's boxes.
    void Box(Group group, int n, const QString& address, const QString& city = {}, const QString& state = {},
             const QString& zip = {})
    {
        const link::GroupRow& row = link::RowOf(group);
        (report.*row.texts)(n).SetText(address);
        (addr.*row.addresses)(n).SetText(address);
        (addr.*row.cities)(n).SetText(city);
        (addr.*row.states)(n).SetText(state);
        (addr.*row.zips)(n).SetText(zip);
    }
    void SetUp() override
    {
        MapTest::SetUp();
        Subject(u"1 Main St"_s);
        Street(u"1 MAIN ST"_s, kMain);
        for (int n = 1; n <= 9; ++n)
            Street(text(n), Near(kMain, 40.0 * n, 1000.0 * n));
    }
    static QString text(int n) { return u"%1 OAK ST"_s.arg(n * 10); }
    static constexpr Place kMain{32'464'000, -86'460'000};
};

// The ladder of city, state and ZIP.

using Ladder = PlaceArrows;

TEST_F(Ladder, TheRecordsOwnWithoutAsking)
{
    AddTown(u"10 Oak St"_s, {});
    EXPECT_EQ(ResolveCompCityState(desk, u"10 oak st"_s, {Group::Sales, 1}), u"PRATTVILLE, AL"_s);
    globals.ignoreZipCodes = false;
    EXPECT_EQ(ResolveCompCityState(desk, u"10 oak st"_s, {Group::Sales, 1}), u"PRATTVILLE, AL 36067"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(Ladder, AMissingZipComesFromTheBoxThenTheSubject)
{
    globals.ignoreZipCodes = false;
    AddComp(u"10 Oak St"_s, {{u"CITY"_s, u"Prattville"_s}, {u"ST"_s, u"al."_s}});
    Box(Group::Sales, 1, u"10 Oak St"_s, {}, {}, u"36066-1234"_s);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), u"PRATTVILLE, AL 36066"_s);
    Box(Group::Sales, 1, u"10 Oak St"_s, {}, {}, u"00000"_s); // five zeros are none
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), u"PRATTVILLE, AL 36067"_s);
}

TEST_F(Ladder, ARecordWithoutItsStateAsks)
{
    // The list of states has no Nevada.
    AddComp(u"10 Oak St"_s, {{u"CITY"_s, u"Reno"_s}, {u"ST"_s, u"NV"_s}});
    Box(Group::Sales, 1, u"10 Oak St"_s, u"Ely"_s, u"GA"_s);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), QString());
    EXPECT_EQ(doubles.prompter.Last().title, u"Insufficient Address Data"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Incomplete Address - CITY/STATE - information is missing or incomplete. Use best available (Subject "
              "and/or non-saved comparable information)?. If you choose NO, arrow will be omitted from map"_s);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), u"RENO, GA"_s);
    Box(Group::Sales, 1, u"10 Oak St"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), u"RENO, AL"_s); // the subject's
}

TEST_F(Ladder, ARecordThatNothingCompletesIsOmitted)
{
    AddComp(u"10 Oak St"_s, {{u"CITY"_s, u"Reno"_s}});
    addr.txtKelState.SetText(u"NV"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Sales, 1}), QString());
    EXPECT_EQ(doubles.prompter.Last().text, u"Incomplete Address - CITY and STATE - information is missing or "
                                            "incomplete. Arrow will be Omitted. "_s);
}

TEST_F(Ladder, WithoutARecordTheBoxesGiveItWithoutAQuestion)
{
    Box(Group::Rentals, 2, u"10 Oak St"_s, u"Millbrook"_s, u"al"_s);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Rentals, 2}), u"MILLBROOK, AL"_s);
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Listings, 2}), u"PRATTVILLE, AL"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    addr.txtKelCity.SetText(QString());
    EXPECT_EQ(ResolveCompCityState(desk, u"10 Oak St"_s, {Group::Listings, 2}), QString());
    EXPECT_EQ(doubles.prompter.Last().text, u"Incomplete Address - CITY and/or STATE - information is missing or "
                                            "incomplete. Arrow will be Omitted. "_s);
}

// The subject.

TEST_F(PlaceArrows, TheSubjectByItsAddress)
{
    AddTown(u"1 Main St"_s);
    desk.state.arrows = false; // of the Comp Locator before
    cmdSubjectOnly_Click(desk);
    EXPECT_TRUE(desk.state.arrows);
    EXPECT_EQ(Pins(), QStringList{u"1 ARROWBLUESUBJECTLT.BMP '' 8C52"_s});
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_"_s);
    EXPECT_EQ(desk.state.g_MapResult(1), 1);
    EXPECT_EQ(control.Scale(), 25344);
    EXPECT_EQ(control.centre, kMain);
    EXPECT_EQ(Location(u"1 MAIN ST"_s), u"32.464 -86.46 0"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"On the map: SUBJECT"_s);
}

TEST_F(PlaceArrows, TheSubjectAtItsAnchorWithoutALookUp)
{
    AddTown(u"1 Main St"_s, Anchor(u"32.5"_s, u"-86.5"_s));
    globals.arrowColor = 1;
    cmdSubjectOnly_Click(desk);
    EXPECT_EQ(Pins(), QStringList{u"1 ARROWREDSUBJECTLT.BMP '' 8C62"_s});
    EXPECT_EQ(control.lookUps, 0);
    EXPECT_EQ(desk.state.g_MapResult(1), 1);
    EXPECT_EQ(Location(u"1 MAIN ST"_s), u"32.5 -86.5 1"_s);
}

TEST_F(PlaceArrows, ASubjectThatIsNotFoundIsTold)
{
    Subject(u"1 Nowhere"_s);
    cmdSubjectOnly_Click(desk);
    EXPECT_TRUE(control.pins.empty());
    EXPECT_EQ(desk.state.g_MapRanges, QString());
    EXPECT_EQ(control.Scale(), 26400);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"Not found on the map: SUBJECT 1 Nowhere. Place by hand with Manual, or correct the address"_s);
}

TEST_F(PlaceArrows, WithoutASubjectThereIsNoSubjectMap)
{
    Subject(u"  "_s);
    control.pins[1] = {};
    cmdSubjectOnly_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to generate Subject Map"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"There is no subject address listed. Please enter a subject address to "
                                            "generate a Subject Map."_s);
    EXPECT_EQ(control.pins.size(), 1u); // the map is as it was
}

TEST_F(PlaceArrows, ASubjectWithoutItsCityIsTold)
{
    QList<RecordLocation> found;
    const auto place = [&](const QString& city, const QString& state) {
        addr.txtKelCity.SetText(city);
        addr.txtKelState.SetText(state);
        doubles.prompter.Forget();
        EXPECT_FALSE(PlaceSubjectPoint(desk, u"comp.bmp"_s, {}, found));
        EXPECT_EQ(doubles.prompter.Last().title, u"Insufficient Address Data"_s);
        return doubles.prompter.Last().text;
    };
    EXPECT_EQ(place({}, {}), messages::kSubjectCityAndState);
    EXPECT_EQ(place(u"Prattville"_s, {}), messages::kSubjectState);
    EXPECT_EQ(place({}, u"AL"_s), messages::kSubjectCity);
    AddComp(u"1 Main St"_s);
    doubles.prompter.AnswerAlways(forms::Answer::No);
    EXPECT_EQ(place(u"Prattville"_s, {}), messages::kSubjectRecordState);
    EXPECT_EQ(place({}, u"AL"_s), messages::kSubjectRecordCity);
    EXPECT_EQ(place({}, {}), messages::kSubjectCityAndState);
    EXPECT_TRUE(control.pins.empty());
}

TEST_F(PlaceArrows, AnOmittedSubjectRecordFallsBackToTheReport)
{
    AddComp(u"1 Main St"_s); // neither city nor state
    doubles.prompter.Answer(forms::Answer::No);
    QList<RecordLocation> found;
    EXPECT_TRUE(PlaceSubjectPoint(desk, u"comp.bmp"_s, u"SUBJECT"_s, found));
    EXPECT_EQ(Pins(), QStringList{u"1 comp.bmp 'SUBJECT' 8C52"_s});
}

// The comps of the active tab.

TEST_F(PlaceArrows, SubjectAndComps)
{
    AddTown(text(1));
    AddTown(text(2), Anchor(u"32.5"_s, u"-86.5"_s));
    for (int n : {1, 2, 3})
        Box(Group::Sales, n, text(n), u"Prattville"_s, u"AL"_s);
    desk.state.arrows = false;
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(Pins(), (QStringList{u"1 ARROWBLUESUBJECTLT.BMP '' 8C52"_s, u"2 ARROWBLUECOMP1LT.BMP '' 8C52"_s,
                                   u"3 ARROWBLUECOMP2LT.BMP '' 8C62"_s, u"4 ARROWBLUECOMP3LT.BMP '' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W3_"_s);
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    EXPECT_EQ(Location(text(2)), u"32.5 -86.5 1"_s);
    EXPECT_EQ(Field(text(1), u"ANCHORED"_s), u"0"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"On the map: SUBJECT, COMP #1, COMP #2, COMP #3"_s);
    EXPECT_TRUE(desk.state.arrows);
    // First the whole view, then what was placed, then the detail.
    const qsizetype wide = control.log.indexOf(u"Scale=26400"_s);
    const qsizetype placed = control.log.lastIndexOf(u"Action 3"_s);
    const qsizetype centred = control.log.lastIndexOf(u"Action 217"_s);
    EXPECT_TRUE(0 <= wide && wide < placed && placed < centred) << wide << ' ' << placed << ' ' << centred;
    EXPECT_GT(control.log.lastIndexOf(u"7/1=-1"_s), centred);
    street::Extent around;
    for (const auto& [id, pin] : control.pins)
        around.Widen(pin.place);
    EXPECT_NEAR(control.centre.latitude, (around.low.latitude + around.high.latitude) / 2.0, 1);
    EXPECT_NEAR(control.centre.longitude, (around.low.longitude + around.high.longitude) / 2.0, 1);
    EXPECT_NE(control.Scale(), 26400);
}

TEST_F(PlaceArrows, ANewArrowOfAFrozenNumberMayBeTurned)
{
    Box(Group::Sales, 1, text(1));
    cmdSubjectAnd_Click(desk);
    desk.state.turnedByHand = {1, 2};
    tab.ckbFreeze.SetValue(true);
    cmdSubjectAnd_Click(desk); // comp 1 is placed anew, the subject stays
    EXPECT_EQ(desk.state.turnedByHand, QSet<qint32>{1});
}

TEST_F(PlaceArrows, EachTabHasItsType)
{
    Box(Group::Alternates, 6, text(6));
    Box(Group::Listings, 1, text(1));
    Box(Group::Rentals, 9, text(9));
    for (const auto& [group, arrow] : {std::pair{Group::Alternates, u"ARROWBLACKALTCOMP6LT.BMP"_s},
                                       std::pair{Group::Listings, u"ARROWBLACKLISTING1LT.BMP"_s},
                                       std::pair{Group::Rentals, u"ARROWBLACKRENTAL9LT.BMP"_s}}) {
        globals.arrowColor = 2;
        ShowTab(group);
        cmdSubjectAnd_Click(desk);
        ASSERT_EQ(control.pins.size(), 2u);
        EXPECT_EQ(control.pins[2].picture, kArrows + arrow);
        EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|"_s + TypeWord(group) + u"|2W1_"_s);
    }
}

TEST_F(PlaceArrows, TheButtonFollowsTheTab)
{
    const QList<std::pair<Group, QStringList>> table = {
        {Group::Sales, {u"Su&bject/Comp"_s, u"Place the Subject and Comps on the map."_s}},
        {Group::Alternates, {u"Su&bj/AltComp"_s, u"Place the Subject and Alt Comps on the map."_s}},
        {Group::Rentals, {u"Su&bject/Rent"_s, u"Place the Subject and Rentals on the map."_s}},
        {Group::Listings, {u"Su&bject/Listing"_s, u"Place the Subject and Listings on the map."_s}}};
    for (const auto& [group, words] : table) {
        ShowTab(group);
        FollowTabs(report);
        EXPECT_EQ(report.cmdSubjectAnd.Caption(), words[0]);
        EXPECT_EQ(report.cmdSubjectAnd.ToolTipText(), words[1]);
    }
    report.TabData.SetTab(2); // general photos have no comps
    EXPECT_EQ(ActiveGroup(report), Group::Sales);
}

TEST_F(PlaceArrows, ACompThatIsNotFoundKeepsItsNumber)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Sales, 2, u"1 Nowhere"_s);
    Box(Group::Sales, 3, text(3));
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(Pins(), (QStringList{u"1 ARROWBLUESUBJECTLT.BMP '' 8C52"_s, u"2 ARROWBLUECOMP1LT.BMP '' 8C52"_s,
                                   u"4 ARROWBLUECOMP3LT.BMP '' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapResult(3), 0);
    EXPECT_EQ(desk.state.g_MapResult(4), 1);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W3_"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"Not found on the map: COMP #2 1 Nowhere. Place by hand with Manual, or "
                                       "correct the address"_s);
}

TEST_F(PlaceArrows, AnOmittedCompTakesNoNumber)
{
    Box(Group::Sales, 1, text(1));
    AddComp(text(2), {{u"CITY"_s, u"Reno"_s}, {u"ST"_s, u"NV"_s}});
    Box(Group::Sales, 2, text(2));
    Box(Group::Sales, 3, text(3));
    doubles.prompter.Answer(forms::Answer::No);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(Pins(), (QStringList{u"1 ARROWBLUESUBJECTLT.BMP '' 8C52"_s, u"2 ARROWBLUECOMP1LT.BMP '' 8C52"_s,
                                   u"3 ARROWBLUECOMP3LT.BMP '' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W2_"_s);
}

TEST_F(PlaceArrows, WithoutASubjectTheUserDecides)
{
    Subject(QString());
    addr.txtKelCity.SetText(u"Prattville"_s);
    Box(Group::Sales, 1, text(1));
    doubles.prompter.Answer(forms::Answer::No);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to generate Subject Map"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"There is no subject address listed. Do you wish to generate map anyway?"_s);
    EXPECT_EQ(control.log, QStringList());
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(Pins(), QStringList{u"2 ARROWBLUECOMP1LT.BMP '' 8C52"_s}); // 1 is the subject's
    EXPECT_EQ(desk.state.g_MapRanges, u"|COMP|2W1_"_s);
}

TEST_F(PlaceArrows, PlacingAgainBeginsAnew)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Sales, 2, text(2));
    cmdSubjectAnd_Click(desk);
    Box(Group::Sales, 2, QString());
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(control.pins.size(), 2u);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W1_"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PlaceArrows, FrozenArrowsStayAndOthersJoinThem)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Rentals, 1, text(2));
    cmdSubjectAnd_Click(desk);
    tab.ckbFreeze.SetValue(true);
    ShowTab(Group::Rentals);
    control.log.clear();
    cmdSubjectAnd_Click(desk);
    EXPECT_FALSE(control.log.contains(u"Action 37"_s));
    EXPECT_FALSE(control.log.contains(u"Scale=26400"_s));
    EXPECT_EQ(Pins(), (QStringList{u"1 ARROWBLUESUBJECTLT.BMP '' 8C52"_s, u"2 ARROWBLUECOMP1LT.BMP '' 8C52"_s,
                                   u"3 ARROWBLUERENTAL1LT.BMP '' 8C52"_s}));
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W1_|RENTAL|3W1_"_s);
}

TEST_F(PlaceArrows, TheFrozenWayWritesAZeroForTheSubject)
{
    tab.ckbFreeze.SetValue(true);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|0W1_|COMP|2W0_"_s);
    control.pins[1].text = u"kept"_s;
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(control.pins[1].text, u"kept"_s); // it is there: not placed again
}

TEST_F(PlaceArrows, OneMoreCompOnFrozenArrowsWarns)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Sales, 2, text(2));
    Box(Group::Rentals, 1, text(9));
    cmdSubjectAnd_Click(desk);
    tab.ckbFreeze.SetValue(true);
    ShowTab(Group::Rentals);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    ShowTab(Group::Sales);
    Box(Group::Sales, 3, text(3));
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"3 comparables were added after initial arrow placement."_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"3 comparables were added after initial arrow placement. It is advisable to clear 'ALL' and recreate "
              "all arrows for accurate proximities"_s);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W2_|RENTAL|4W1_"_s); // written once
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    doubles.prompter.Forget();
    Box(Group::Sales, 3, QString());
    cmdSubjectAnd_Click(desk); // as many as at first
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(PlaceArrows, PlacingFrozenArrowsAgainKeepsTheNextNumber)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Rentals, 1, text(8));
    Box(Group::Rentals, 2, text(9));
    cmdSubjectAnd_Click(desk);
    tab.ckbFreeze.SetValue(true);
    ShowTab(Group::Rentals);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    ShowTab(Group::Sales);
    cmdSubjectAnd_Click(desk); // number 2 again
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    EXPECT_EQ(control.pins.size(), 4u);
}

TEST_F(PlaceArrows, AnErrorEndsThePlacing)
{
    Box(Group::Sales, 1, text(1));
    Box(Group::Sales, 2, text(2));
    int lookUps = 0;
    control.onGeocode = [&] {
        if (++lookUps == 3)
            throw RuntimeError(5, u"Broken"_s);
    };
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"unable to complete Arrow Placement"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Unable to complete arrow placement. Please verify addresses before re-trying"_s);
    EXPECT_EQ(desk.state.g_MapRanges, u"SUBJECT|1W1_|COMP|2W1_"_s); // what stands on the map is known
}

TEST_F(PlaceArrows, NumbersBeyondTheResultsAreABoundsError)
{
    Box(Group::Sales, 1, text(1));
    desk.state.g_MapPointCount = 102;
    QList<RecordLocation> found;
    EXPECT_TRUE(PlaceTypeArrows(desk, found).failed);
    EXPECT_EQ(doubles.prompter.Last().title, u"unable to complete Arrow Placement"_s);
    EXPECT_TRUE(control.pins.empty()) << "no arrow that is not counted";
    tab.ckbFreeze.SetValue(true); // as after the Comp Locator
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"There are too many points on the map for more arrows: press Clear All first"_s)
        << "the addresses are not to blame";
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(PlaceArrows, ALongGestureShutsOutAnother)
{
    const Working working{desk.state};
    cmdSubjectOnly_Click(desk);
    cmdSubjectAnd_Click(desk);
    EXPECT_EQ(control.log, QStringList());
}

} // namespace

} // namespace vasclip::map
