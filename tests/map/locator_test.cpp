#include "map/locator.h"
#include "map/map_test.h"

namespace vasclip::map {

namespace {

class Locator : public MapTest
{
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        globals.ignoreZipCodes = true;
    }
    /// The last search: all records in the order of their keys.
    void Search()
    {
        sources.datsql.SetRecordSource(u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s);
        sources.datsql.Refresh();
    }
};

TEST_F(Locator, PlacesTheSearchAsHouses)
{
    Subject(u"1 Main St"_s);
    Street(u"1 MAIN ST"_s, kOak);
    Street(u"10 OAK ST"_s, Near(kOak, 0, 1000));
    Street(u"11 OAK ST"_s, Near(kOak, 0, 2000));
    AddTown(u"10 Oak St"_s, {{u"FRONT"_s, u"1"_s}});
    AddTown(u"11 Oak St"_s);
    AddTown(u"12 Oak St"_s, Anchor(u"32.47"_s, u"-86.48"_s));
    AddComp(u"13 Oak St"_s, {{u"CITY"_s, u"PRATTVILLE"_s}}); // no state
    AddTown(u"14 Oak St"_s);                                 // not found
    AddComp(u"15 Oak St"_s, {{u"ST"_s, u"AL"_s}});           // no city
    Search();
    tab.txtMapAddress.SetText(u"99 Elm St"_s); // of the point before
    tab.txtradius.SetText(u"1"_s);
    tab.ckbRadius.SetValue(true);
    desk.state.g_MapRanges = u"SUBJECT|1W1_|COMP|2W3_"_s; // of the arrows before
    cmdGeoComp_Click(desk);
    EXPECT_EQ(Pins(), (QStringList{u"1 comp.bmp 'SUBJECT' 8C52"_s, u"2 reddoor.bmp '10 OAK ST' 8C52"_s,
                                   u"3 comp.bmp '11 OAK ST' 8C52"_s, u"4 reddooranchor.bmp '12 OAK ST' 8C62"_s}));
    EXPECT_EQ(desk.state.g_MapPointCount, 5);
    EXPECT_FALSE(desk.state.arrows);
    EXPECT_EQ(desk.state.g_MapRanges, QString()); // houses are no comps of the report
    EXPECT_EQ(Field(u"10 OAK ST"_s, u"ANCHORED"_s), u"0"_s);
    EXPECT_EQ(Location(u"12 OAK ST"_s), u"32.47 -86.48 1"_s);
    EXPECT_EQ(status.lblmsg.Caption(), u"3 comps are on the map; 1 was not found: 14 OAK ST; 2 have no address, "
                                       "city or state"_s);
    EXPECT_GT(control.centre.latitude, kOak.latitude); // zoomed to them
    EXPECT_TRUE(control.log.contains(u"Scale=26400"_s)) << "from the whole view";
    EXPECT_TRUE(control.log.contains(u"7/1=-1"_s)) << "the detail";
    EXPECT_EQ(tab.txtMapAddress.Text(), QString());
    EXPECT_EQ(tab.lstaddresses.Items(), (QStringList{u"10 OAK ST"_s, u"11 OAK ST"_s, u"12 OAK ST"_s})) << "the circle follows";
    EXPECT_EQ(control.log.last(), u"Refresh"_s);
}

TEST_F(Locator, AnAnchorWithoutANumberIsToldByItsAddress)
{
    AddTown(u"12 Oak St"_s, Anchor(u"north"_s, u"west"_s));
    AddTown(u"13 Oak St"_s, Anchor(u"0"_s, u"0"_s));
    AddTown(u"14 Oak St"_s, Anchor(u"32.47"_s, u"-86.48"_s));
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(),
              u"3 comps are on the map. Anchored where there is no place, at 0, 0: 12 OAK ST; 13 OAK ST. Anchor anew"_s);
}

TEST_F(Locator, TheZipIsAskedForWhereItCounts)
{
    globals.ignoreZipCodes = false;
    AddTown(u"10 Oak St"_s);
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_TRUE(control.log.contains(u"Location=10 OAK ST, PRATTVILLE, AL 36067"_s));
}

TEST_F(Locator, WithoutASubjectOneIsStillTheSubjects)
{
    Street(u"10 OAK ST"_s, kOak);
    AddTown(u"10 Oak St"_s);
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_EQ(Pins(), QStringList{u"2 comp.bmp '10 OAK ST' 8C52"_s});
    EXPECT_EQ(control.centre, kOak);
}

TEST_F(Locator, ASubjectThatIsNotFoundIsTold)
{
    Subject(u"1 Nowhere St"_s);
    Street(u"10 OAK ST"_s, kOak);
    AddTown(u"10 Oak St"_s);
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"Not found on the map: SUBJECT 1 Nowhere St. Place by hand with Manual, or correct "
                                       "the address. 1 comp is on the map"_s);
    EXPECT_EQ(status.lblmsg.Fore(), forms::Colour::Red);
}

TEST_F(Locator, ASubjectAloneIsShown)
{
    Subject(u"1 Main St"_s);
    Street(u"1 MAIN ST"_s, kOak);
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"No comps available"_s);
    EXPECT_EQ(control.centre, kOak);
}

TEST_F(Locator, AnEmptySearchIsTold)
{
    Search();
    cmdGeoComp_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().title, u"No comps available"_s);
    EXPECT_EQ(doubles.prompter.Last().text, u"No comps were avaiable from last Search query (count = 0). Expand your "
                                            "search criteria and retry"_s);
}

class ManyRecords : public Locator
{
protected:
    void SetUp() override
    {
        Locator::SetUp();
        const auto database = engine.OpenDatabase(kDatabook);
        engine::Transaction whole(*database);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (int i = 0; i < 251; ++i) {
            const QString key = u"%1 OAK ST"_s.arg(i + 1);
            rows->AddNew();
            rows->SetValue(u"CENTRALKEY"_s, key);
            rows->SetValue(u"CITY"_s, u"PRATTVILLE"_s);
            rows->SetValue(u"ST"_s, u"AL"_s);
            rows->Update();
            control.addresses[key + u", PRATTVILLE, AL"_s] = Near(kOak, 0, 100.0 * i);
        }
        rows->Close();
        whole.Commit();
        Search();
    }
    [[nodiscard]] qint64 PlaceInSearch(const QString& key)
    {
        const store::Rows rows = store::ReadRows(sources.datsql, sources.datsql.RecordSource());
        for (qint64 place = 0; place < rows.Count(); ++place)
            if (rows.At(place)->Text(u"CENTRALKEY"_s) == key)
                return place;
        return -1;
    }
};

TEST_F(ManyRecords, AreAskedAbout)
{
    bool search = false;
    desk.openSearch = [&] { search = true; };
    doubles.prompter.Answer(forms::Answer::Cancel);
    cmdGeoComp_Click(desk);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNoCancel);
    EXPECT_EQ(doubles.prompter.Last().title, u"Comp locator exceeds recommended maximum (250)"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"251 records were found. Do you want to refine the SEARCH criteria to reduce matches?..."_s);
    EXPECT_FALSE(search);
    doubles.prompter.Answer(forms::Answer::Yes);
    cmdGeoComp_Click(desk);
    EXPECT_TRUE(search);
    EXPECT_EQ(control.log, QStringList());
}

TEST_F(ManyRecords, AreAllPlacedAndStoredAtOnce)
{
    doubles.prompter.Answer(forms::Answer::No);
    cmdGeoComp_Click(desk);
    EXPECT_EQ(control.pins.size(), 251u); // more than the results have room for
    EXPECT_EQ(status.lblmsg.Caption(), u"251 comps are on the map"_s);
    EXPECT_EQ(Field(u"251 OAK ST"_s, u"ANCHORED"_s), u"0"_s);
    EXPECT_FALSE(Field(u"251 OAK ST"_s, u"LATITUDE"_s).isEmpty());
    EXPECT_TRUE(doubles.prompter.AllAnswered());
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u);
    EXPECT_FALSE(status.cmdStop.Visible());
}

TEST_F(ManyRecords, CanBeStoppedAndShutOthersOut)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.pump.turns = 0;
    doubles.pump.onTurn = [this] {
        cmdGeoComp_Click(desk); // another click meanwhile
        if (doubles.pump.turns == 3)
            Q_EMIT status.cmdStop.Clicked();
    };
    cmdGeoComp_Click(desk);
    EXPECT_EQ(control.pins.size(), 50u); // a turn of the queue, which paints them all, comes every 25 comps
    EXPECT_EQ(status.lblmsg.Caption(), u"50 comps are on the map; stopped after 50 of 251"_s);
    EXPECT_FALSE(Field(u"1 OAK ST"_s, u"LATITUDE"_s).isEmpty()); // what was found is kept
    EXPECT_FALSE(desk.state.working);
}

TEST_F(ManyRecords, ARecordThatGoesMeanwhileIsPassedOver)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.pump.turns = 0;
    doubles.pump.onTurn = [this] {
        if (doubles.pump.turns == 2)
            engine.OpenDatabase(kDatabook)->Execute(u"DELETE FROM COMPS WHERE CENTRALKEY = '251 OAK ST'"_s);
    };
    const qint64 place = PlaceInSearch(u"251 OAK ST"_s);
    ASSERT_GT(place, 25) << "behind the first turn";
    cmdGeoComp_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"250 comps are on the map; 1 was deleted meanwhile"_s);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u) << doubles.prompter.Texts().join(u'\n').toStdString();
}

TEST_F(ManyRecords, AnotherDatabookIsNotWrittenInto)
{
    const QString other = u"C:\\DATABOOK\\OTHER.MDB"_s;
    home.disk.FileCopy(kDatabook, other);
    doubles.prompter.Answer(forms::Answer::No);
    doubles.pump.turns = 0;
    doubles.pump.onTurn = [&] {
        if (doubles.pump.turns == 2)
            store::Connect2Databook(doubles.Get(), sources, other, u"COMPS"_s);
    };
    cmdGeoComp_Click(desk);
    EXPECT_EQ(status.lblmsg.Caption(), u"25 comps are on the map; stopped after 25 of 251"_s);
    for (int i = 1; i <= 251; ++i)
        ASSERT_EQ(Field(u"%1 OAK ST"_s.arg(i), u"LATITUDE"_s), QString()) << i;
}

TEST_F(ManyRecords, AProgramThatClosesMeanwhileIsLeftInPeace)
{
    doubles.prompter.Answer(forms::Answer::No);
    doubles.pump.turns = 0;
    doubles.pump.onTurn = [this] {
        if (doubles.pump.turns == 2) {
            sources.datsql.Close();
            sources.datDatabook.Close();
        }
    };
    cmdGeoComp_Click(desk);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1u) << doubles.prompter.Texts().join(u'\n').toStdString();
    EXPECT_EQ(control.pins.size(), 25u);
}

} // namespace

} // namespace vasclip::map
