#include "link/frm_attach_city.h"

#include "desk_test.h"
#include "link/attach_fields.h"
#include "platform/files/profile.h"
#include "platform/text/text.h"
#include "store/schema.h"
#include "support/standing_time.h"

namespace vasclip::link {
namespace {

class AttachCity : public DeskTest
{
protected:
    const QString topic = u"KEL|SMITH"_s;
    std::unique_ptr<frm_AttachCity> screen;

    void SetUp() override
    {
        DeskTest::SetUp();
        globals.applicationIni = u"C:\\VAS2000\\VAS2000.INI"_s;
        globals.useSubjCsz = u"CS"_s;
        home.Put(globals.applicationIni, "[CITIES]\r\nCITY1=Marlow, WA  98210  Skagit\r\n"
                                         "CITY2=Ferndale, WA  98248  Whatcom\r\n[PREFERENCES]\r\n"
                                         "USESUBJCSZ=CS\r\n");
        OpenReport(u"SMITH"_s, u"UA5,"_s);
        addr.txtFormType.SetText(u"UA5"_s);
        for (const auto& [field, row] : {std::pair{u"NEIGHBORHD"_s, u"2"_s},
                                         {u"SALEFLD"_s, u"3"_s},
                                         {u"SALEDATE"_s, u"4"_s},
                                         {u"GLA"_s, u"5"_s}})
            Map({u"UA5"_s, u"PAGE2"_s, field, row, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
        AddComp(u"12 Oak St"_s, {{u"CITY"_s, u"Old City"_s},
                                 {u"ZIP"_s, u"55555"_s},
                                 {u"NEIGHBORHD"_s, u"Hill"_s},
                                 {u"SALEDATE"_s, u"01/01/1900"_s}});
        addr.txtCompAddr(5).SetText(u"12 oak st"_s);
    }
    void Open(const QString& mode, const QString& key = u"12 OAK ST"_s)
    {
        screen = std::make_unique<frm_AttachCity>(desk, mode, key);
        screen->Open();
    }
    void Click(forms::Button& button) { Q_EMIT button.Clicked(); }
    void Close()
    {
        screen->Unload();
        screen->End();
    }
    [[nodiscard]] QString Field(const QString& field)
    {
        StandOn(u"12 OAK ST"_s);
        return store::GetFieldData(sources.datDatabook, field);
    }
    [[nodiscard]] QString Ini(const QString& section, const QString& key) const
    {
        return files::GetPrivateProfileString(home.disk, section, key, {}, globals.applicationIni);
    }
};

TEST_F(AttachCity, TheCaptionTellsTheModeAndCompShowsAsSale)
{
    for (const auto& [mode, caption] : {std::pair{u"COMP"_s, u"SALE Transfer Option"_s},
                                        {u"sale"_s, u"SALE Transfer Option"_s},
                                        {u"MANUAL"_s, u"MANUAL Transfer Option"_s}}) {
        Open(mode);
        EXPECT_EQ(screen->Caption(), caption);
    }
    EXPECT_EQ(screen->cmdAdd.Caption(), u"&Add Location to List"_s);
    EXPECT_EQ(screen->cmdDelete.Caption(), u"Delete Location From List"_s);
    EXPECT_EQ(screen->cmdOk.Caption(), u"&Ok"_s);
    EXPECT_EQ(screen->cmdCancel.Caption(), u"&Cancel"_s);
    EXPECT_EQ(screen->optUseSubjCSZ(0).Caption(), u"Use Subject City, State"_s);
    EXPECT_EQ(screen->optUseSubjCSZ(1).Caption(), u"Use Subject City, State, Zip"_s);
    EXPECT_EQ(screen->optUseSubjCSZ(2).Caption(), u"Leave Empty"_s);
}

TEST_F(AttachCity, ItOpensOnTheRecordAndTheList)
{
    Open(u"MANUAL"_s);
    EXPECT_EQ(screen->lblCentralKey.Caption(), u"12 OAK ST"_s);
    EXPECT_EQ(screen->txtAddress.Text(), u"12 Oak St"_s);
    EXPECT_TRUE(screen->txtAddress.Locked());
    EXPECT_EQ(screen->txtCity.Text(), u"Old City"_s);
    EXPECT_EQ(screen->txtZip.Text(), u"55555"_s);
    EXPECT_EQ(screen->txtNeighborhd.Text(), u"Hill"_s);
    EXPECT_EQ(screen->lstcity.Items(),
              (QStringList{u"Marlow, WA  98210  Skagit"_s, u"Ferndale, WA  98248  Whatcom"_s}));
    EXPECT_TRUE(screen->lblPending.Visible());
    EXPECT_TRUE(screen->optUseSubjCSZ(0).Value());
    EXPECT_TRUE(conduit.Take().isEmpty()) << "by hand nothing is read from the report";
}

TEST_F(AttachCity, PendingShowsForTheThreeTextsOfNoSale)
{
    Open(u"MANUAL"_s);
    for (const auto& [text, pending] : {std::pair{QString(), true},
                                        {u"1/1/1900"_s, true},
                                        {u"01/01/1900"_s, true},
                                        {u"03/14/2024"_s, false},
                                        {u"12/30/1899"_s, false}}) {
        screen->txtSaleDate.SetText(text);
        EXPECT_EQ(screen->lblPending.Visible(), pending) << text.toStdString();
    }
}

TEST_F(AttachCity, ACompOfTheReportIsReadFromItsCells)
{
    conduit.Answer(topic, u"PAGE2|2|5"_s, u"Alder Creek, WI 54001"_s);
    conduit.Answer(topic, u"PAGE2|3|5"_s, u"03/14/2024"_s);
    Open(u"COMP"_s);
    QStringList asked;
    for (const QString& entry : conduit.Take())
        if (entry.startsWith(u"item "_s))
            asked << entry.mid(5);
    EXPECT_EQ(asked, (QStringList{u"ActiveReports"_s, u"PAGE2|2|5"_s, u"PAGE2|3|5"_s, u"PAGE2|4|5"_s}));
    EXPECT_EQ(screen->txtCity.Text(), u"Alder Creek"_s);
    EXPECT_EQ(screen->txtState.Text(), u"WI"_s);
    EXPECT_EQ(screen->txtZip.Text(), u"54001"_s);
    EXPECT_EQ(screen->txtSaleFld.Text(), u"03/14/2024"_s);
    EXPECT_EQ(screen->txtSaleDate.Text(), u"01/01/1900"_s) << "a blank cell leaves the box";
    EXPECT_EQ(Field(u"CITY"_s), u"Old City"_s) << "nothing is stored before Ok";
}

TEST_F(AttachCity, TheReportsCityLineIsNoNeighborhood)
{
    for (const auto& [line, neighborhood] :
         {std::pair{u"Alder Creek, WI 54001"_s, u"Hill"_s},
          {u"Alder Creek, WI, 54001-1234"_s, u"Hill"_s},
          {u"Alder Creek, WI"_s, u"Hill"_s},
          {u"Reno, NV 89501"_s, u"Hill"_s},
          {u"Cherry Glen"_s, u"Cherry Glen"_s},
          {u"Hill, North-West"_s, u"Hill, North-West"_s},
          {u"Hill, Upper Part"_s, u"Hill, Upper Part"_s}}) {
        engine.OpenDatabase(kDatabook)->Execute(u"UPDATE COMPS SET NEIGHBORHD = 'Hill', CITY = 'C', ST = 'WI'"_s);
        conduit.Answer(topic, u"PAGE2|2|5"_s, line);
        Open(u"COMP"_s);
        EXPECT_EQ(screen->txtNeighborhd.Text(), neighborhood) << line.toStdString();
        Click(screen->cmdOk);
        EXPECT_FALSE(screen->IsOpen());
        EXPECT_EQ(Field(u"NEIGHBORHD"_s), neighborhood) << line.toStdString();
        Close();
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(AttachCity, NeighborhoodAndCountyComeFromTheReportAndGoToTheirFields)
{
    Map({u"UA5"_s, u"PAGE2"_s, u"COUNTY"_s, u"6"_s, u"3"_s, u"SALE"_s, u"4"_s, u"2"_s});
    conduit.Answer(topic, u"PAGE2|2|5"_s, u"Cherry Glen"_s);
    conduit.Answer(topic, u"PAGE2|6|5"_s, u"Polk"_s);
    Open(u"COMP"_s);
    EXPECT_EQ(screen->txtNeighborhd.Text(), u"Cherry Glen"_s);
    EXPECT_EQ(screen->txtCounty.Text(), u"Polk"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), QString());
    screen->txtState.SetText(u"WI"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(Field(u"NEIGHBORHD"_s), u"Cherry Glen"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), u"Polk"_s);
    Open(u"MANUAL"_s);
    EXPECT_EQ(screen->txtCounty.Text(), u"Polk"_s);
    screen->txtNeighborhd.SetText(u"Hillside"_s);
    screen->txtCounty.SetText(u"Barron"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(Field(u"NEIGHBORHD"_s), u"Hillside"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), u"Barron"_s);
}

TEST_F(AttachCity, TheSubjectsFieldsAreReadOneByOne)
{
    int row = 1;
    for (const QString& field : {u"CITY"_s, u"ST"_s, u"ZIP"_s, u"COUNTY"_s, u"NEIGHBORHD"_s}) {
        Map({u"UA5"_s, u"UA5"_s, field, QString::number(row), u"1"_s, u"SALE"_s, u"10"_s, u"0"_s});
        conduit.Answer(topic, u"UA5|%1|1"_s.arg(row++), u"the "_s + field);
    }
    const AttachFields read = GetNeighborHdCompData(desk, {Group::Subject, kSubjectComp});
    EXPECT_EQ(read.city, u"the CITY"_s);
    EXPECT_EQ(read.state, u"the ST"_s);
    EXPECT_EQ(read.zip, u"the ZIP"_s);
    EXPECT_EQ(read.county, u"the COUNTY"_s);
    EXPECT_EQ(read.neighborhood, u"the NEIGHBORHD"_s);
}

TEST_F(AttachCity, PickingALocationFillsTheFourBoxes)
{
    Open(u"MANUAL"_s);
    screen->lstcity.SetListIndex(1);
    EXPECT_EQ(screen->txtCity.Text(), u"Ferndale"_s);
    EXPECT_EQ(screen->txtState.Text(), u"WA"_s);
    EXPECT_EQ(screen->txtZip.Text(), u"98248"_s);
    EXPECT_EQ(screen->txtCounty.Text(), u"Whatcom"_s);
}

TEST_F(AttachCity, OkStoresTheBoxesCutToTheirFields)
{
    Open(u"MANUAL"_s);
    screen->lstcity.SetListIndex(1);
    screen->txtSaleFld.SetText(u"03/24"_s);
    screen->txtSaleDate.SetText(u"3/14/2024"_s);
    Click(screen->cmdOk);
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_TRUE(screen->HasChanged());
    EXPECT_EQ(Field(u"CITY"_s), u"Ferndale"_s);
    EXPECT_EQ(Field(u"ST"_s), u"WA"_s);
    EXPECT_EQ(Field(u"ZIP"_s), u"98248"_s);
    EXPECT_EQ(Field(u"COUNTY"_s), u"Whatcom"_s);
    EXPECT_EQ(Field(u"SALEFLD"_s), u"03/24"_s);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"3/14/2024"_s);
    EXPECT_EQ(Field(u"SALESERIAL"_s), u"45365"_s);
    EXPECT_EQ(Field(u"ADDRESS"_s), u"12 Oak St"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(AttachCity, ASaleDateThatIsNoneIsAskedAboutBeforeItIsStored)
{
    engine.OpenDatabase(kDatabook)->Execute(u"UPDATE COMPS SET ST = 'WI', SALEDATE = '3/14/2024'"_s);
    conduit.Answer(topic, u"PAGE2|4|5"_s, u"s05/24;c04/24"_s); // what the report says, untouched
    Open(u"COMP"_s);
    int focus = 0;
    QObject::connect(&screen->txtSaleDate, &forms::Control::FocusWanted, &screen->txtSaleDate, [&] { ++focus; });
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdOk);
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(focus, 1);
    EXPECT_EQ(Field(u"SALEDATE"_s), u"3/14/2024"_s);
    const QString shown = screen->txtSaleDate.Text();
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"\"%1\" is not understood as a date; it counts as 01/01/1900, a pending sale.\n\nDo you want "
                          u"to store that and leave?"_s.arg(shown)});
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdOk);
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
    for (const QString& plain : {u"3/15/2024"_s, u"pending"_s, QString()}) {
        doubles.prompter.Forget();
        Open(u"MANUAL"_s);
        screen->txtSaleDate.SetText(plain);
        Click(screen->cmdOk);
        EXPECT_FALSE(screen->IsOpen());
        EXPECT_TRUE(doubles.prompter.Boxes().empty()) << plain.toStdString();
    }
}

TEST_F(AttachCity, CancelStoresNothing)
{
    Open(u"MANUAL"_s);
    screen->txtCity.SetText(u"Elsewhere"_s);
    Click(screen->cmdCancel);
    EXPECT_FALSE(screen->IsOpen());
    EXPECT_FALSE(screen->HasChanged());
    EXPECT_EQ(Field(u"CITY"_s), u"Old City"_s);
}

struct QuestionRow
{
    QString city, state, zip;
    const char* question; ///< nullptr for none
};

TEST_F(AttachCity, WhatIsMissingIsAskedAboutInItsOwnWords)
{
    for (const QuestionRow& row : {
             QuestionRow{u""_s, u""_s, u""_s,
                         "Are you sure you want to skip assigning ALL city, state, and zip fields to this "
                         "comparable? Excluding this data may create inaccurate map locations."},
             QuestionRow{u""_s, u"  "_s, u"98210"_s,
                         "Are you sure you want to skip assigning city and state fields to this "
                         "comparable? Excluding this data may create inaccurate map locations."},
             QuestionRow{u" "_s, u"WA"_s, u""_s,
                         "Are you sure you want to skip assigning city field to this comparable? Excluding "
                         "this data may create inaccurate map locations."},
             QuestionRow{u"Marlow"_s, u""_s, u"98210"_s,
                         "Are you sure you want to skip assigning state field to this comparable? "
                         "Excluding this data may create inaccurate map locations."},
             QuestionRow{u"Marlow"_s, u"WA"_s, u""_s, nullptr},
         }) {
        doubles.prompter.Forget();
        Open(u"MANUAL"_s);
        screen->txtCity.SetText(row.city);
        screen->txtState.SetText(row.state);
        screen->txtZip.SetText(row.zip);
        if (row.question == nullptr) {
            Click(screen->cmdOk);
            EXPECT_TRUE(doubles.prompter.Boxes().empty());
            EXPECT_FALSE(screen->IsOpen());
            continue;
        }
        doubles.prompter.Answer(forms::Answer::No);
        Click(screen->cmdOk);
        EXPECT_TRUE(screen->IsOpen());
        EXPECT_FALSE(screen->HasChanged());
        EXPECT_EQ(doubles.prompter.Last(), (tests::ShownBox{forms::Buttons::YesNo, forms::Icon::Exclamation,
                                                            u"City and State information not complete"_s,
                                                            QString::fromLatin1(row.question)}));
        doubles.prompter.Answer(forms::Answer::Yes);
        Click(screen->cmdOk);
        EXPECT_FALSE(screen->IsOpen());
    }
    EXPECT_EQ(Field(u"CITY"_s), u"Marlow"_s);
    EXPECT_EQ(Field(u"ST"_s), u"WA"_s);
}

TEST_F(AttachCity, LocationsAreAddedOnceAndDeletedAfterAQuestion)
{
    Open(u"MANUAL"_s);
    screen->txtCity.SetText(u"Alder"_s);
    screen->txtState.SetText(u"WI"_s);
    screen->txtZip.SetText(u"54001"_s);
    screen->txtCounty.SetText(u"Polk"_s);
    Click(screen->cmdAdd);
    Click(screen->cmdAdd);
    EXPECT_EQ(screen->lstcity.Items().size(), 3);
    EXPECT_EQ(screen->lstcity.List(2), u"Alder, WI  54001  Polk"_s);
    EXPECT_EQ(screen->lblmsg.Caption(), u"Alder, WI  54001  Polk is in the list already."_s);
    Click(screen->cmdDelete);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "nothing is selected";
    screen->lstcity.SetSelected(0, true);
    doubles.prompter.Answer(forms::Answer::No);
    Click(screen->cmdDelete);
    EXPECT_EQ(screen->lstcity.ListCount(), 3);
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdDelete);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete selected cities?"_s);
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY1"_s), u"Marlow, WA  98210  Skagit"_s) << "written at the end";
    Close();
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY1"_s), u"Ferndale, WA  98248  Whatcom"_s);
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY2"_s), u"Alder, WI  54001  Polk"_s);
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY3"_s), QString());
}

TEST_F(AttachCity, AllSelectedLocationsAreDeletedAtOnce)
{
    Open(u"MANUAL"_s);
    screen->lstcity.SelectAllLines();
    doubles.prompter.Answer(forms::Answer::Yes);
    Click(screen->cmdDelete);
    EXPECT_EQ(screen->lstcity.ListCount(), 0);
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
    Close();
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY1"_s), QString());
}

TEST_F(AttachCity, TheChoiceIsOneOfThreeAndIsWrittenBack)
{
    Open(u"MANUAL"_s);
    screen->optUseSubjCSZ(2).SetValue(true);
    EXPECT_FALSE(screen->optUseSubjCSZ(0).Value());
    screen->optUseSubjCSZ(1).SetValue(true);
    EXPECT_FALSE(screen->optUseSubjCSZ(2).Value());
    Close();
    EXPECT_EQ(globals.useSubjCsz, u"CSZ"_s);
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"USESUBJCSZ"_s), u"CSZ"_s);
    Open(u"MANUAL"_s);
    EXPECT_TRUE(screen->optUseSubjCSZ(1).Value());
}

TEST_F(AttachCity, AChoiceThatIsNoneOfTheThreeShowsWhatItDoes)
{
    globals.useSubjCsz = u"CITY"_s;
    Open(u"MANUAL"_s);
    EXPECT_TRUE(screen->optUseSubjCSZ(2).Value());
    EXPECT_FALSE(screen->optUseSubjCSZ(0).Value());
    Close();
    EXPECT_EQ(Ini(u"PREFERENCES"_s, u"USESUBJCSZ"_s), u"CS"_s) << "nothing was chosen, nothing is written";
}

TEST_F(AttachCity, TheBoxesTakeEveryKindOfText)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes); // a sale date may be none
    for (const QString& sample : {QString(300, u'W'), u"Caf\u00e9 \u00d1u\u00f1ez"_s,
                                  u"\u05e8\u05d7\u05d5\u05d1 12"_s, u"a\tb\x01"_s, u"O'B \"x\" %s; --"_s}) {
        Open(u"MANUAL"_s);
        QHash<QString, QString> typed;
        for (const auto& [box, field] : {std::pair{&screen->txtCity, u"CITY"_s},
                                         {&screen->txtState, u"ST"_s},
                                         {&screen->txtZip, u"ZIP"_s},
                                         {&screen->txtCounty, u"COUNTY"_s},
                                         {&screen->txtNeighborhd, u"NEIGHBORHD"_s},
                                         {&screen->txtSaleFld, u"SALEFLD"_s}}) {
            box->SetText(sample);
            EXPECT_EQ(box->Text(), sample.left(store::FindCompsColumn(field)->size));
            typed.insert(field, text::Trim(box->Text()));
        }
        screen->txtSaleDate.SetText(sample);
        Click(screen->cmdOk);
        EXPECT_FALSE(screen->IsOpen()) << sample.toStdString();
        for (auto field = typed.cbegin(); field != typed.cend(); ++field)
            EXPECT_EQ(Field(field.key()), field.value()) << field.key().toStdString();
        EXPECT_EQ(Field(u"SALEDATE"_s), u"01/01/1900"_s);
        Close();
    }
    EXPECT_EQ(doubles.prompter.Boxes().size(), 5U) << "about nothing but the dates";
}

TEST_F(AttachCity, WithoutARecordTheListIsThereAllTheSame)
{
    Open(u"MANUAL"_s, u"NOWHERE"_s);
    EXPECT_EQ(screen->lblmsg.Caption(),
              u"No record of the Databook is on show: the list of locations can be kept, nothing else."_s);
    EXPECT_FALSE(screen->lblPending.Visible());
    EXPECT_FALSE(screen->txtSaleDate.Enabled());
    screen->txtCity.SetText(u"Alder"_s);
    Click(screen->cmdAdd);
    Click(screen->cmdOk);
    EXPECT_FALSE(screen->IsOpen());
    screen->End();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(Ini(u"CITIES"_s, u"CITY3"_s), u"Alder,"_s);
}

TEST_F(AttachCity, ARecordDeletedMeanwhileIsSaid)
{
    Open(u"MANUAL"_s);
    engine.OpenDatabase(kDatabook)->Execute(u"DELETE FROM COMPS"_s);
    screen->txtState.SetText(u"WA"_s);
    Click(screen->cmdOk);
    EXPECT_TRUE(screen->IsOpen());
    EXPECT_EQ(screen->lblmsg.Caption(), u"The record 12 OAK ST is not in the Databook any more."_s);
}

TEST_F(AttachCity, ADatabookThatStaysLockedEndsTheProgramAndChangesNothing)
{
    Open(u"MANUAL"_s);
    engine::Engine othersEngine(home.disk, tests::SomeTime());
    const auto other = othersEngine.OpenDatabase(kDatabook);
    engine.SetLockWait(50);
    screen->txtState.SetText(u"WA"_s);
    {
        engine::Transaction busy(*other);
        other->Execute(u"UPDATE COMPS SET CITY = 'Theirs'"_s);
        EXPECT_THROW(Click(screen->cmdOk), forms::EndOfProgram);
        ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
        EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"The databases may be corrupt."_s));
        EXPECT_FALSE(screen->HasChanged());
        busy.Commit();
    }
    EXPECT_EQ(Field(u"ST"_s), QString());
    EXPECT_EQ(Field(u"CITY"_s), u"Theirs"_s);
}

TEST_F(AttachCity, OnlyWhatWasChangedIsWrittenOverAnothersWork)
{
    Open(u"MANUAL"_s);
    engine.OpenDatabase(kDatabook)->Execute(u"UPDATE COMPS SET CITY = 'Theirs'"_s);
    screen->txtState.SetText(u"WA"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(Field(u"CITY"_s), u"Theirs"_s);
    EXPECT_EQ(Field(u"ST"_s), u"WA"_s);
}

TEST_F(AttachCity, TheReportIsToldThroughItsScript)
{
    Script(u"CITYPLUS.BAS"_s);
    state.linkActive = true;
    Open(u"SALE"_s);
    screen->txtState.SetText(u"WA"_s);
    Click(screen->cmdOk);
    EXPECT_EQ(conduit.commands, QStringList(u"[RunMacro(CITYPLUS.BAS)]\r"_s));
    conduit.commands.clear();
    Open(u"MANUAL"_s);
    screen->txtState.SetText(u"WI"_s);
    Click(screen->cmdOk);
    EXPECT_TRUE(conduit.commands.isEmpty());
}

TEST_F(AttachCity, AReportThatDoesNotAnswerIsToldAndTheRecordShown)
{
    conduit.FailOnce(u"item PAGE2|2|5"_s, error::kLinkTimeOut, u"No answer in time"_s);
    Open(u"COMP"_s);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_TRUE(doubles.prompter.Last().text.contains(u"No answer in time"_s));
    EXPECT_EQ(screen->txtCity.Text(), u"Old City"_s);
}

} // namespace
} // namespace vasclip::link
