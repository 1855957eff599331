#include "link/send_bulk.h"
#include "link/send_proximity.h"
#include "map/cmd_prox.h"
#include "map/map_test.h"
#include "map/picture_names.h"
#include "map/proximity.h"
#include "map/selection.h"

#include <cmath>

namespace vasclip::map {

namespace {

class Proximity : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        globals.ignoreZipCodes = true;
        Subject(u"1 Main St"_s);
        Street(u"1 MAIN ST"_s, kOak);
        Pin(1, kOak, u"ARROWBLUESUBJECTLT.BMP"_s);
        desk.state.g_MapResult(1) = 1;
    }
    void Pin(qint32 id, Place place, const QString& picture)
    {
        control.pins[id] = {place, 0x8C52, kArrows + picture, QString()};
        desk.state.g_MapPointCount = std::max(desk.state.g_MapPointCount, id + 1);
    }
    /// Comp 1 at a bearing from north towards the west.
    QString DirectionAt(double westward, double feet = 5280)
    {
        report.txtComp(1).SetText(u"10 Oak St"_s);
        Pin(2, Near(kOak, std::fmod(360 - westward, 360), feet), u"ARROWBLUECOMP1LT.BMP"_s);
        desk.state.g_MapSelectedID = 2;
        return GetDirection(desk, u"10 Oak St"_s);
    }
};

TEST(Miles, OneDecimalWithoutAZeroBeforeIt)
{
    EXPECT_EQ(MilesText(6336), u"1.2"_s);
    EXPECT_EQ(MilesText(2640), u".5"_s);
    EXPECT_EQ(MilesText(200), u"."_s);
    EXPECT_EQ(MilesText(0), u"."_s);
    EXPECT_EQ(MilesText(5280), u"1."_s);
    EXPECT_EQ(MilesText(264), u".1"_s); // a twentieth rounds up
    EXPECT_EQ(MilesText(263), u"."_s);
}

TEST(Miles, TheCompassRunsToTheWest)
{
    QStringList names;
    for (int i = 0; i < 16; ++i)
        names << CompassName(i);
    EXPECT_EQ(names, (QStringList{u"North"_s, u"NNW"_s, u"NW"_s, u"WNW"_s, u"West"_s, u"WSW"_s, u"SW"_s, u"SSW"_s,
                                  u"South"_s, u"SSE"_s, u"SE"_s, u"ESE"_s, u"East"_s, u"ENE"_s, u"NE"_s, u"NNE"_s}));
    EXPECT_EQ(CompassName(16), QString());
    EXPECT_EQ(CompassName(-1), QString());
}

TEST_F(Proximity, FifteenPlacesAroundTheSubject)
{
    DirectionAt(10);
    QStringList bearings = control.log.filter(u"DValue="_s);
    for (QString& bearing : bearings)
        bearing.remove(u"DValue="_s);
    EXPECT_EQ(bearings.join(u' '), u"0 23 46 69 92 115 138 161 184 207 230 253 276 299 322"_s);
    EXPECT_EQ(control.log.count(u"Value=5280"_s), 15);
    EXPECT_EQ(control.log.count(u"Action 48"_s), 15);
    EXPECT_EQ(control.log.count(u"Action 236"_s), 16);
    EXPECT_TRUE(control.log.contains(u"Latitude=0"_s)); // the sixteenth, which never wins
    EXPECT_EQ(control.origin, control.pins[2].place);   // measured from the comp
}

TEST_F(Proximity, EachBearingHasItsName)
{
    for (int k = 0; k < 15; ++k)
        EXPECT_EQ(DirectionAt(23.0 * k), CompassName(k)) << k;
    EXPECT_EQ(DirectionAt(92, 20000), u"West"_s);
    EXPECT_EQ(DirectionAt(276, 300), u"East"_s);
}

TEST_F(Proximity, NorthNorthEastNeverComesOut)
{
    for (int degrees = 300; degrees < 360; ++degrees) {
        const QString name = DirectionAt(degrees);
        EXPECT_NE(name, u"NNE"_s) << degrees;
        if (degrees >= 338 && degrees <= 349) {
            EXPECT_TRUE(name == u"NE"_s || name == u"North"_s) << degrees;
        }
    }
    EXPECT_EQ(DirectionAt(340), u"NE"_s);
    EXPECT_EQ(DirectionAt(342), u"North"_s);
}

TEST_F(Proximity, BetweenTwoSpokesTheLowerWins)
{
    EXPECT_EQ(DirectionAt(11.4), u"North"_s);
    EXPECT_EQ(DirectionAt(11.6), u"NNW"_s);
    int asked = 0; // the fifth and the ninth are equally near
    control.distance = [&](Place) {
        ++asked;
        return asked == 5 || asked == 9 ? 100.0 : 200.0;
    };
    EXPECT_EQ(DirectionAt(0), u"West"_s);
}

TEST_F(Proximity, NoWordWithoutASubjectOrASelection)
{
    EXPECT_EQ(DirectionAt(0), u"North"_s);
    desk.state.g_MapSelectedID = 0;
    EXPECT_EQ(GetDirection(desk, u"10 Oak St"_s), QString());
    desk.state.g_MapSelectedID = 2;
    desk.state.inUse = false;
    EXPECT_EQ(GetDirection(desk, u"10 Oak St"_s), QString());
    desk.state.inUse = true;
    control.pins.erase(1);
    EXPECT_EQ(GetDirection(desk, u"10 Oak St"_s), QString());
}

TEST_F(Proximity, AnotherAddressIsMeasuredFromItsOwnPlace)
{
    EXPECT_EQ(DirectionAt(0), u"North"_s); // comp 1 is selected
    const Place west = Near(kOak, 270, 5000);
    AddTown(u"77 Pine St"_s, {{u"LATITUDE"_s, DegreesText(west.latitude)}, {u"LONGITUDE"_s, DegreesText(west.longitude)}});
    AddTown(u"78 Pine St"_s);
    EXPECT_EQ(GetDirection(desk, u"77 PINE ST"_s), u"West"_s);
    EXPECT_EQ(GetDirection(desk, u"78 PINE ST"_s), QString());
}

TEST_F(Proximity, OfTwoPoints)
{
    Pin(2, Near(kOak, 90, 7920), u"ARROWBLUECOMP1LT.BMP"_s);
    EXPECT_EQ(PointDistanceToSubject(desk, 2), u"1.5"_s);
    EXPECT_EQ(PointDistanceToSubject(desk, 1), QString());
    EXPECT_EQ(PointDistanceToSubject(desk, 0), QString());
    EXPECT_EQ(PointDistanceToSubject(desk, 9), QString()); // not on the map: no distance of another one
    desk.state.g_MapResult(1) = 0;
    control.pins.erase(1);
    EXPECT_EQ(PointDistanceToSubject(desk, 2), QString());
    Pin(40, Near(kOak, 90, 2640), u"ARROWBLUESUBJECTLT.BMP"_s); // placed by hand
    EXPECT_EQ(PointDistanceToSubject(desk, 2), u"1."_s);
}

TEST_F(Proximity, OfARecordByItsPlaceOrItsAddress)
{
    const Place place = Near(kOak, 180, 6336);
    AddTown(u"10 Oak St"_s, {{u"LATITUDE"_s, DegreesText(place.latitude)}, {u"LONGITUDE"_s, DegreesText(place.longitude)}});
    AddTown(u"11 Oak St"_s);
    AddTown(u"12 Oak St"_s);
    control.addresses[u"11 OAK ST,PRATTVILLE, AL"_s] = Near(kOak, 0, 2640);
    EXPECT_EQ(CalcTheDistance(desk, u"10 OAK ST"_s), u"1.2"_s);
    EXPECT_EQ(control.log.filter(u"Location="_s), QStringList{u"Location=1 Main St, Prattville,AL"_s});
    EXPECT_EQ(CalcTheDistance(desk, u"11 OAK ST"_s), u".5"_s);
    EXPECT_EQ(CalcTheDistance(desk, u"12 OAK ST"_s), QString()); // not found
    EXPECT_EQ(CalcTheDistance(desk, u"13 OAK ST"_s), QString()); // no record
    Subject(u"1 Nowhere"_s);
    EXPECT_EQ(CalcTheDistance(desk, u"10 OAK ST"_s), QString());
}

TEST_F(Proximity, TheSubjectsAnchorComesBeforeItsAddress)
{
    const Place place = Near(kOak, 180, 6336);
    const Place right = Near(kOak, 180, 1056);
    AddTown(u"10 Oak St"_s, {{u"LATITUDE"_s, DegreesText(place.latitude)}, {u"LONGITUDE"_s, DegreesText(place.longitude)}});
    AddTown(u"1 Main St"_s, Anchor(DegreesText(right.latitude), DegreesText(right.longitude)));
    EXPECT_EQ(CalcTheDistance(desk, u"10 OAK ST"_s), u"1."_s);
    EXPECT_EQ(control.lookUps, 0);
}

TEST_F(Proximity, ShortDistancesAreShownSo)
{
    report.txtComp(1).SetText(u"10 Oak St"_s);
    Pin(2, Near(kOak, 0, 200), u"ARROWBLUECOMP1LT.BMP"_s);
    mapview_PointClick(desk, 2);
    EXPECT_EQ(tab.txtMapProximity.Text(), u"< .1 Mi North"_s);
    EXPECT_EQ(ProximityText(desk, u"10 Oak St"_s), u"< .1 Mi North"_s);
    desk.state.g_MapSelectedID = 0; // typed without a point, and without a record
    EXPECT_EQ(ProximityText(desk, u"10 Oak St"_s), QString());
}

// Into the report.

class ProximitySending : public Proximity
{
protected:
    void SetUp() override
    {
        Proximity::SetUp();
        addr.txtKelReport.SetText(u"SMITH"_s);
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
        conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"URAR,SUBPHOTO,"_s);
        for (const QString& type : {u"SALE"_s, u"ALT"_s, u"RENT"_s, u"LIST"_s})
            for (const QString& base : {u"1"_s, u"4"_s})
                Map({u"URAR"_s, u"URAR"_s, u"PROXIMITY"_s, base == u"1"_s ? u"14"_s : u"24"_s, u"2"_s, type, base, u"10"_s});
        Map({u"URAR"_s, u"URAR"_s, u"GLA"_s, u"15"_s, u"2"_s, u"SALE"_s, u"1"_s, u"10"_s});
    }
    void Map(const QStringList& values)
    {
        static const QStringList columns = {u"FORMTYPE"_s, u"FORMNAME"_s, u"FIELDNAME"_s, u"ROW"_s,
                                            u"CELL"_s,     u"COMPTYPE"_s, u"COMP"_s,      u"OFFSET"_s};
        Fields fields;
        for (qsizetype i = 0; i < values.size(); ++i)
            fields.append({columns[i], values[i]});
        Add(kMapping, u"Comp2Kel"_s, fields);
    }
    [[nodiscard]] QStringList Poked() const
    {
        QStringList pairs;
        for (const QStringList& poke : conduit.pokes)
            pairs << poke[1] + u'=' + poke[2];
        return pairs;
    }
    void Comp(Group group, int n, qint32 id, double feet)
    {
        (report.*link::RowOf(group).texts)(n).SetText(u"%1 %2 ST"_s.arg(n).arg(TypeWord(group)));
        if (feet > 0)
            Pin(id, Near(kOak, 0, feet), ArrowName({true, u"BLUE"_s, TypeWord(group), n, 1}));
        desk.state.g_MapResult(id) = feet > 0 ? 1 : 0;
    }
};

TEST_F(ProximitySending, EachCompGoesIntoItsCell)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 10560);
    Comp(Group::Rentals, 1, 4, 2640);
    Comp(Group::Alternates, 1, 5, 7920);
    Comp(Group::Listings, 1, 6, 100);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_|RENTAL|4W1_|ALTCOMP|5W1_|LISTING|6W1_"_s;
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), (QStringList{u"URAR|14|2=1. Mi. North"_s, u"URAR|14|12=2. Mi. North"_s,
                                    u"URAR|14|2=1.5 Mi. North"_s, u"URAR|14|2=.5 Mi. North"_s,
                                    u"URAR|14|2=< .1 Mi North"_s}));
    EXPECT_EQ(addr.txtProximity(2).Text(), u"2. Mi. North"_s);
    EXPECT_EQ(addr.txtAltProximity(1).Text(), u"1.5 Mi. North"_s);
    EXPECT_EQ(addr.txtRentProximity(1).Text(), u".5 Mi. North"_s);
    EXPECT_EQ(addr.txtListProximity(1).Text(), u"< .1 Mi North"_s);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"In the report (5): COMP #1 1. Mi. North, #2 2. Mi. North, ALTCOMP #1 1.5 Mi. North, RENTAL #1 .5 Mi. "
              "North, LISTING #1 < .1 Mi North"_s);
    EXPECT_EQ(desk.state.g_MapSelectedID, 6);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(ProximitySending, ArrowsOfOtherAddressesAskFirst)
{
    Comp(Group::Sales, 1, 2, 5280);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W1_"_s;
    desk.state.placedFor = {{1, u"1 Main St"_s}, {2, u"8 Gone St"_s}};
    doubles.prompter.Answer(forms::Answer::No);
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), QStringList());
    EXPECT_EQ(doubles.prompter.Last().text,
              u"These arrows were placed for other addresses than the report has there now: COMP #1: 8 Gone St, now 1 COMP "
              "ST. They are measured by the report's addresses, not by the arrows. Send the proximities?"_s);
    EXPECT_FALSE(desk.state.working);
    const Place place = Near(kOak, 270, 10560);
    AddTown(u"1 COMP ST"_s, {{u"LATITUDE"_s, DegreesText(place.latitude)}, {u"LONGITUDE"_s, DegreesText(place.longitude)}});
    Street(u"1 MAIN ST"_s, kOak);
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), QStringList{u"URAR|14|2=2. Mi. West"_s});
}

TEST_F(ProximitySending, TheFirstSaleIsShownBeforeTheFirstIsMeasured)
{
    QStringList shown;
    QObject::connect(&tab.txtMapAddress, &forms::TextBox::TextChanged, [&] { shown << tab.txtMapAddress.Text(); });
    report.txtComp(1).SetText(u"1 SALE ST"_s);
    Comp(Group::Rentals, 2, 2, 5280);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|RENTAL|2W1_"_s;
    cmdProx_Click(desk);
    EXPECT_EQ(shown, (QStringList{u"1 SALE ST"_s, u"2 RENTAL ST"_s}));
}

TEST_F(ProximitySending, WithoutArrowsOnlyTheSubjectIsSelected)
{
    cmdProx_Click(desk);
    EXPECT_EQ(control.log, (QStringList{u"ID=1"_s, u"Action 6"_s}));
    EXPECT_EQ(desk.state.g_MapSelectedID, 1);
    EXPECT_TRUE(conduit.log.isEmpty());
    EXPECT_EQ(status.lblmsg.Caption(), u"No arrows of comps are on the map: place them first"_s);
}

TEST_F(ProximitySending, AReportThatWasClosedIsNotSaidToHaveNoArrows)
{
    Comp(Group::Sales, 1, 2, 5280);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W1_"_s;
    desk.state.placedFor = {{1, u"1 Main St"_s}, {2, u"1 COMP ST"_s}};
    report.txtSubject.SetText({});
    report.txtComp(1).SetText({});
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), QStringList());
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "nothing is measured, so nothing is asked";
    EXPECT_EQ(status.lblmsg.Caption(),
              u"The report has no addresses for the arrows on the map, so nothing was sent. Refresh the report"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(ProximitySending, ACompThatWasNotFoundEmptiesItsCell)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 0);
    Comp(Group::Sales, 4, 4, 10560);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W3_"_s;
    desk.state.g_MapPointCount = 5;
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), (QStringList{u"URAR|14|2=1. Mi. North"_s, u"URAR|14|12="_s, u"URAR|24|2=2. Mi. North"_s}));
    EXPECT_EQ(status.lblmsg.Caption(), u"Not on the map, so their cells are empty now: COMP #2. In the report (2): "
                                       "COMP #1 1. Mi. North, #4 2. Mi. North"_s);
}

TEST_F(ProximitySending, AnOmittedCompShiftsNobodysDistance)
{
    Comp(Group::Sales, 1, 2, 5280);
    report.txtComp(2).SetText(u"2 OMITTED ST"_s); // left out: it took no number
    Comp(Group::Sales, 3, 3, 10560);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_"_s;
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), (QStringList{u"URAR|14|2=1. Mi. North"_s, u"URAR|14|22=2. Mi. North"_s}));
    EXPECT_EQ(addr.txtProximity(2).Text(), QString());
}

TEST_F(ProximitySending, ACompPlacedByHandIsMeasuredThere)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 0);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_"_s;
    Pin(40, Near(kOak, 0, 15840), u"ARROWREDCOMP2LT.BMP"_s);
    cmdProx_Click(desk);
    EXPECT_EQ(Poked(), (QStringList{u"URAR|14|2=1. Mi. North"_s, u"URAR|14|12=3. Mi. North"_s}));
}

TEST_F(ProximitySending, AnErrorStopsTheRun)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 10560);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_"_s;
    conduit.before = [](const QString& entry) {
        if (entry == u"poke"_s)
            throw RuntimeError(286, u"No answer"_s);
    };
    cmdProx_Click(desk);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_EQ(doubles.prompter.Last().title, u"Proximities Not Transferred"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Unable to complete proximity transfers. Please verify comp locations"_s);
    EXPECT_EQ(addr.txtProximity(1).Text(), QString());
    EXPECT_FALSE(desk.state.working);
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(ProximitySending, AnotherReportStopsTheRunAfterOneQuestion)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 10560);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_"_s;
    addr.txtKelReport.SetText(u"JONES"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    cmdProx_Click(desk);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_FALSE(status.lblmsg.Caption().isEmpty());
}

TEST_F(ProximitySending, WithoutAReportItIsToldOnce)
{
    Comp(Group::Sales, 1, 2, 5280);
    Comp(Group::Sales, 2, 3, 10560);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W2_"_s;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, QString());
    cmdProx_Click(desk);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_FALSE(status.lblmsg.Caption().isEmpty());
    EXPECT_EQ(addr.txtProximity(1).Text(), QString());
}

TEST_F(ProximitySending, AFormWithoutTheCellIsTold)
{
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"ERS,"_s);
    Comp(Group::Sales, 1, 2, 5280);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W1_"_s;
    cmdProx_Click(desk);
    EXPECT_TRUE(conduit.pokes.isEmpty());
    EXPECT_EQ(status.lblmsg.Caption(), u"The form has no cell for COMP #1"_s);
}

TEST_F(ProximitySending, ADroppedCompTakesItsDistanceFromTheMap)
{
    MapProximity proximity{desk};
    linkDesk.proximity = &proximity;
    const Place west = Near(kOak, 270, 6336);
    AddTown(u"77 Pine St"_s, {{u"LATITUDE"_s, DegreesText(west.latitude)}, {u"LONGITUDE"_s, DegreesText(west.longitude)}});
    Comp(Group::Sales, 1, 2, 5280);
    mapview_PointClick(desk, 2); // another comp is selected
    sources.datsql.Refresh();
    link::MappingRow row;
    row.formName = u"URAR"_s;
    row.fieldName = u"PROXIMITY"_s;
    row.row = u"14"_s;
    row.cell = u"2"_s;
    const auto record = store::ReadRecord(sources.datDatabook, u"77 PINE ST"_s);
    ASSERT_TRUE(record);
    const auto sent = link::FieldToSend(linkDesk, *record, row, u"URAR"_s, 1);
    ASSERT_TRUE(sent);
    EXPECT_EQ(sent->text, u"1.2 Mi. West"_s);
}

} // namespace

} // namespace vasclip::map
