#include "databook/frm_mass_city.h"

#include "databook/city_fields.h"
#include "platform/files/profile.h"
#include "support/databook_home.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class FrmMassCity : public tests::DatabookHome
{
protected:
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    std::unique_ptr<databook::frm_MassCity> screen;

    void SetUp() override
    {
        DatabookHome::SetUp();
        globals.applicationIni = u"C:\\VAS2000.INI"_s;
        disk.WriteWhole(
            globals.applicationIni,
            "[CITIES]\r\nCITY1=Marlow, WA  98210  Skagit\r\nCITY2=Ferndale, WA  98248  Whatcom\r\n");
        const auto comp = [this](const QString& name, const QString& neighborhood, const QString& city) {
            Values values{{key, name.leftJustified(35)}, {u"NEIGHBORHD"_s, neighborhood}};
            if (!city.isNull())
                values.append({u"CITY"_s, city});
            return values;
        };
        AddRows({comp(u"1 A ST"_s, u"Eastside"_s, u"Marlow"_s),
                 comp(u"2 B ST"_s, u"eastside   "_s, QString()),
                 comp(u"3 C ST"_s, u"O'Brien's Hill"_s, u"   "_s), comp(u"4 D ST"_s, u"East"_s, QString()),
                 comp(u"5 E ST"_s, u" "_s, QString())});
        Bind(source);
        screen = std::make_unique<databook::frm_MassCity>(ports, source, globals, disk);
        screen->Open();
    }
    [[nodiscard]] QString Field(const QString& comp, const QString& field)
    {
        EXPECT_TRUE(store::FindRecord(ports, source, comp, key)) << comp.toStdString();
        return store::GetFieldData(source, field);
    }
    void Enter(const QString& neighborhood, const QString& city, const QString& state, const QString& zip,
               const QString& county)
    {
        screen->txtneighborhood.SetText(neighborhood);
        screen->txtCity.SetText(city);
        screen->txtState.SetText(state);
        screen->txtZip.SetText(zip);
        screen->txtCounty.SetText(county);
    }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    void Leave()
    {
        screen->Unload();
        screen->End();
    }
};

TEST_F(FrmMassCity, TheStatements)
{
    EXPECT_EQ(databook::frm_MassCity::SelectText(false),
              u"SELECT CENTRALKEY, NEIGHBORHD, CITY, ST, ZIP, COUNTY FROM COMPS"_s);
    EXPECT_EQ(databook::frm_MassCity::SelectText(true),
              u"SELECT CENTRALKEY, NEIGHBORHD, CITY, ST, ZIP, COUNTY FROM COMPS WHERE "
              u"isnull(trim(CITY))<>False"_s);
}

TEST_F(FrmMassCity, StepsThroughTheRecords)
{
    EXPECT_EQ(screen->Caption(), u"City Editing"_s);
    EXPECT_EQ(screen->ckbBlank.Caption(), u"Display Blank Records Only"_s);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"1 A ST"_s);
    EXPECT_EQ(screen->txtneighborhood.Text(), u"Eastside"_s);
    EXPECT_EQ(screen->txtCity.Text(), u"Marlow"_s);
    EXPECT_EQ(screen->lblRecord.Caption(), u"Record 1 of 5"_s);
    EXPECT_FALSE(screen->cmdprev.Enabled());
    for (int i = 0; i < 7; ++i)
        Click(screen->cmdnext);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"5 E ST"_s);
    EXPECT_FALSE(screen->cmdnext.Enabled());
    Click(screen->cmdprev);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"4 D ST"_s);
    EXPECT_EQ(screen->txtCity.Text(), QString());
}

TEST_F(FrmMassCity, BlankOnlyShowsRecordsWhoseCityIsNull)
{
    screen->ckbBlank.SetValue(true);
    QStringList keys{screen->lblCentralKey.Caption()};
    while (screen->cmdnext.Enabled()) {
        Click(screen->cmdnext);
        keys.append(screen->lblCentralKey.Caption());
    }
    EXPECT_EQ(keys, (QStringList{u"2 B ST"_s, u"4 D ST"_s, u"5 E ST"_s}));
    screen->ckbBlank.SetValue(false);
    EXPECT_EQ(screen->lblRecord.Caption(), u"Record 3 of 5"_s) << "stays at the same place";
}

TEST_F(FrmMassCity, ALineOfTheListFillsTheBoxes)
{
    screen->lstcity.SetListIndex(1);
    EXPECT_EQ(screen->txtCity.Text(), u"Ferndale"_s);
    EXPECT_EQ(screen->txtState.Text(), u"WA"_s);
    EXPECT_EQ(screen->txtZip.Text(), u"98248"_s);
    EXPECT_EQ(screen->txtCounty.Text(), u"Whatcom"_s);
}

TEST_F(FrmMassCity, CopiesToEveryRecordOfTheNeighbourhoodOnly)
{
    Enter(u" EASTSIDE "_s, u"Port O'Ellis"_s, u"WA"_s, u"98111"_s, u"Skagit"_s);
    Click(screen->cmdCopyCity);
    EXPECT_EQ(screen->lblmsg.Caption(), u"2 records of EASTSIDE were changed."_s);
    for (const QString& comp : {u"1 A ST"_s, u"2 B ST"_s}) {
        EXPECT_EQ(Field(comp, u"CITY"_s), u"Port O'Ellis"_s);
        EXPECT_EQ(Field(comp, u"ST"_s), u"WA"_s);
        EXPECT_EQ(Field(comp, u"ZIP"_s), u"98111"_s);
        EXPECT_EQ(Field(comp, u"COUNTY"_s), u"Skagit"_s);
    }
    const engine::Recordset& rows = source.Recordset();
    EXPECT_EQ(rows.Value(u"CITY"_s).toString().size(), rows.Fields().at(rows.FieldIndex(u"CITY"_s)).size)
        << "brought to the field's size";
    EXPECT_EQ(Field(u"4 D ST"_s, u"CITY"_s), QString());
    EXPECT_TRUE(screen->HasChanged());
    Enter(u"O'Brien's Hill"_s, u"Marlow"_s, {}, {}, {});
    Click(screen->cmdCopyCity);
    EXPECT_EQ(screen->lblmsg.Caption(), u"1 record of O'Brien's Hill was changed."_s);
    EXPECT_EQ(Field(u"3 C ST"_s, u"CITY"_s), u"Marlow"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmMassCity, AnUnknownNeighbourhoodChangesNothing)
{
    Enter(u"Nowhere'; DROP TABLE COMPS; --"_s, u"Marlow"_s, u"WA"_s, {}, {});
    Click(screen->cmdCopyCity);
    EXPECT_TRUE(screen->lblmsg.Caption().startsWith(u"0 records of Nowhere'"_s));
    EXPECT_FALSE(screen->HasChanged());
    EXPECT_EQ(source.Recordset().RecordCount(), 5);
}

TEST_F(FrmMassCity, WithoutCityStateAndZipItAsks)
{
    Enter(u"Eastside"_s, u" "_s, {}, {}, u"Skagit"_s);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdCopyCity);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"No city, state, or zip information has been entered.  Are you sure you wish to replace all "
              u"neighborhoods equal to Eastside with blank information."_s);
    EXPECT_EQ(Field(u"1 A ST"_s, u"CITY"_s), u"Marlow"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdCopyCity);
    EXPECT_EQ(Field(u"1 A ST"_s, u"CITY"_s), QString());
    EXPECT_EQ(Field(u"1 A ST"_s, u"COUNTY"_s), u"Skagit"_s);
}

TEST_F(FrmMassCity, TheMissingCityIsAskedAboutBeforeTheMissingNeighbourhood)
{
    const QString ask = u"No city, state, or zip information has been entered.  Are you sure you wish to replace "
                        u"all neighborhoods equal to  with blank information."_s;
    Enter(u" "_s, {}, u" "_s, {}, {});
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdCopyCity);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList{ask}) << "No ends it";
    doubles.prompter.Forget();
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdCopyCity);
    EXPECT_EQ(doubles.prompter.Texts(), (QStringList{ask, u"You must have a neighborhood name."_s}));
    EXPECT_FALSE(screen->HasChanged());
}

TEST_F(FrmMassCity, ABlankNeighbourhoodIsRefused)
{
    for (const QString& blank : {QString(), u"    "_s}) {
        doubles.prompter.Forget();
        Enter(blank, u"Marlow"_s, u"WA"_s, u"98210"_s, {});
        Click(screen->cmdCopyCity);
        EXPECT_EQ(doubles.prompter.Texts(), QStringList{u"You must have a neighborhood name."_s});
    }
    EXPECT_EQ(Field(u"5 E ST"_s, u"CITY"_s), QString());
    EXPECT_THROW(databook::AssignCity(source, u" "_s, {u"Marlow"_s, {}, {}, {}}), RuntimeError);
}

TEST_F(FrmMassCity, EditStoresInTheRecordOnShow)
{
    Click(screen->cmdnext);
    Enter(u"Somewhere else"_s, u"Marlow"_s, u"WA"_s, u"98210"_s, u"Skagit"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(screen->lblmsg.Caption(), u"2 B ST was changed."_s);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"2 B ST"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"CITY"_s), u"Marlow"_s);
    EXPECT_EQ(Field(u"2 B ST"_s, u"NEIGHBORHD"_s), u"eastside"_s) << "not a field of this screen's records";
    EXPECT_EQ(Field(u"4 D ST"_s, u"CITY"_s), QString());
}

TEST_F(FrmMassCity, AmongTheBlankOnesTheNextStepsUpWhenOneGetsItsCity)
{
    screen->ckbBlank.SetValue(true);
    ASSERT_EQ(screen->lblRecord.Caption(), u"Record 1 of 3"_s);
    for (const QString& comp : {u"2 B ST"_s, u"4 D ST"_s, u"5 E ST"_s}) {
        EXPECT_EQ(screen->lblCentralKey.Caption(), comp);
        screen->lstcity.SetListIndex(-1);
        screen->lstcity.SetListIndex(1);
        Click(screen->cmdOk);
        EXPECT_EQ(screen->lblmsg.Caption(), comp + u" was changed."_s);
        EXPECT_EQ(Field(comp, u"CITY"_s), u"Ferndale"_s);
    }
    EXPECT_EQ(screen->lblRecord.Caption(), u"No records to show"_s);
    EXPECT_EQ(screen->lblCentralKey.Caption(), QString());
    EXPECT_FALSE(screen->cmdOk.Enabled());
    EXPECT_FALSE(screen->cmdnext.Enabled());
    Click(screen->cmdOk);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(FrmMassCity, ARecordThatSomebodyElseDeletedIsTold)
{
    store::DeleteRecord(ports, source, u"1 A ST"_s);
    store::DeleteRecord(ports, source, u"2 B ST"_s);
    Enter(u"Eastside"_s, u"Marlow"_s, u"WA"_s, u"98210"_s, u"Skagit"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(screen->lblmsg.Caption(), u"The address 1 A ST is not in the Databook."_s);
    Click(screen->cmdnext);
    EXPECT_EQ(screen->lblmsg.Caption(), u"The record was deleted by somebody else meanwhile."_s);
    EXPECT_FALSE(screen->cmdOk.Enabled());
    Click(screen->cmdnext);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"3 C ST"_s);
    EXPECT_TRUE(screen->cmdOk.Enabled());
}

TEST_F(FrmMassCity, TheBoxesTakeWhatTheFieldsHold)
{
    const engine::Recordset& rows = source.Recordset();
    EXPECT_EQ(screen->txtZip.MaxLength(), rows.Fields().at(rows.FieldIndex(u"ZIP"_s)).size);
    EXPECT_EQ(screen->txtCity.MaxLength(), rows.Fields().at(rows.FieldIndex(u"CITY"_s)).size);
}

TEST_F(FrmMassCity, KeepsTheListOfCities)
{
    Enter({}, u"Port Ellis"_s, u"WA"_s, u"98111"_s, u"Skagit"_s);
    Click(screen->cmdAdd);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Port Ellis, WA  98111  Skagit was added to the list."_s);
    Click(screen->cmdAdd);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Port Ellis, WA  98111  Skagit is in the list already."_s);
    Enter({}, u" "_s, u"WA"_s, {}, {});
    Click(screen->cmdAdd);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Enter a city first."_s);
    Click(screen->cmdDelete);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "nothing is selected";
    screen->lstcity.SetSelected(0, true);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdDelete);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete selected cities?"_s);
    EXPECT_EQ(screen->lstcity.ListCount(), 3);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdDelete);
    Leave();
    EXPECT_EQ(disk.ReadWhole(globals.applicationIni), "[CITIES]\r\nCITY1=Ferndale, WA  98248  Whatcom\r\n"
                                                      "CITY2=Port Ellis, WA  98111  Skagit\r\n");
}

TEST_F(FrmMassCity, TheBoxesTakeEveryKindOfText)
{
    for (const QString& sample : {QString(300, u'W'), u"Caf\u00e9 \u00d1u\u00f1ez"_s,
                                  u"\u05e8\u05d7\u05d5\u05d1 12"_s, u"a\tb\x01"_s, u"O'B \"x\" %s; --"_s}) {
        Enter(u"Eastside"_s, sample, sample, sample, sample);
        const QStringList typed{screen->txtCity.Text(), screen->txtState.Text(), screen->txtZip.Text(),
                                screen->txtCounty.Text()};
        const auto stored = [this](const QString& comp) {
            return QStringList{Field(comp, u"CITY"_s), Field(comp, u"ST"_s), Field(comp, u"ZIP"_s),
                               Field(comp, u"COUNTY"_s)};
        };
        QStringList trimmed;
        for (const QString& text : typed) {
            EXPECT_TRUE(sample.startsWith(text)) << sample.toStdString();
            trimmed.append(text.endsWith(u' ') ? text.chopped(1) : text);
        }
        Click(screen->cmdOk);
        EXPECT_EQ(stored(u"1 A ST"_s), trimmed) << sample.toStdString();
        Enter(u"Eastside"_s, typed[0], typed[1], typed[2], typed[3]);
        Click(screen->cmdCopyCity);
        EXPECT_EQ(stored(u"2 B ST"_s), trimmed) << sample.toStdString();
        Enter(sample, u"Nowhere"_s, {}, {}, {}); // the neighbourhood box, quotes and all
        Click(screen->cmdCopyCity);
        EXPECT_TRUE(screen->lblmsg.Caption().startsWith(u"0 records of"_s)) << sample.toStdString();
    }
    EXPECT_EQ(source.Recordset().RecordCount(), 5);
}

TEST_F(FrmMassCity, AllSelectedCitiesAreDeletedAtOnce)
{
    for (const QString& city : {u"Port Ellis"_s, u"Alder"_s}) {
        Enter({}, city, u"WA"_s, {}, {});
        Click(screen->cmdAdd);
    }
    screen->lstcity.SetListIndex(1); // stood on, not selected
    screen->lstcity.Select({0, 2});
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdDelete);
    EXPECT_EQ(screen->lstcity.Items(), (QStringList{u"Ferndale, WA  98248  Whatcom"_s, u"Alder, WA"_s}));
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    Click(screen->cmdDelete);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U) << "nothing is selected any more";
    Leave();
    EXPECT_EQ(disk.ReadWhole(globals.applicationIni),
              "[CITIES]\r\nCITY1=Ferndale, WA  98248  Whatcom\r\nCITY2=Alder, WA\r\n");
}

TEST_F(FrmMassCity, AnUntouchedListIsNotWritten)
{
    disk.WriteWhole(globals.applicationIni, "[CITIES]\r\nCITY1=Somebody else's, WA  1\r\n");
    Leave();
    EXPECT_EQ(disk.ReadWhole(globals.applicationIni), "[CITIES]\r\nCITY1=Somebody else's, WA  1\r\n");
}

} // namespace
