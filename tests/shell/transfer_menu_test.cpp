#include "link/frm_attach_city.h"
#include "platform/files/profile.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "store/schema.h"
#include "support/recording_conduit.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

// What the Transfer menu leads to, and Setup > City Listings, with a report open.

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
const QString kMapping = u"C:\\VAS2000\\Comp2Kel.mdb"_s;
const QString kReport = u"KEL|SMITH"_s;

class TransferMenu : public testing::Test
{
protected:
    tests::TempHome home;
    tests::TestPorts doubles;
    engine::Engine engine{home.disk};
    test::RecordingConduit conduit;
    StartUpOptions options{
        {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s};
    frm_Splash splash{doubles.Get()};
    frm_Main main{{home.disk, engine, conduit, doubles.Get()}};

    void SetUp() override
    {
        for (const QString& directory : {u"C:\\WINDOWS"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s,
                                         u"C:\\KEL"_s, u"C:\\SNAP"_s})
            home.MakeDirs(directory);
        home.Put(kIni, "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\n"
                       "[CITIES]\r\nCITY1=Alder, OR  97001  Calder\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s,
                 "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n[Descriptions]\r\nALTPH1=ALTPH1\r\n"
                 "[3X5_PHOTO_PAGES]\r\nCOMPARABLES_1=COMPPH1\r\nLISTINGS_1=LISTPH1\r\nRENTALS_1=RENTPH1\r\n");
        store::MakeDatabase(engine, kMapping);
        store::MakeDatabase(engine, kDatabook);
        Add(kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35)}, {u"ADDRESS"_s, u"12 Oak St"_s}});
        Report();
    }
    void Add(const QString& path, const QString& table, const QList<std::pair<QString, QString>>& fields)
    {
        const auto database = engine.OpenDatabase(path);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        for (const auto& [field, value] : fields)
            rows->SetValue(field, value);
        rows->Update();
        rows->Close();
    }
    /// A report with the subject, a comp, an alternate, a listing and a rental, each with its address in row
    /// 1 and its area in row 2 of its group's page.
    void Report()
    {
        conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
        conduit.Answer(kReport, u"ListForms"_s, u"UA5,COMPPH1,ALTPH1,LISTPH1,RENTPH1,"_s);
        const std::tuple<QString, QString, QString, QString> groups[] = {
            {u"SALE"_s, u"10"_s, u"SUBJ"_s, u"1 Subject Way"_s},
            {u"SALE"_s, u"1"_s, u"CMP"_s, u"12 Oak St"_s},
            {u"ALT"_s, u"1"_s, u"ALTC"_s, u"3 Alt St"_s},
            {u"LIST"_s, u"1"_s, u"LST"_s, u"4 List St"_s},
            {u"RENT"_s, u"1"_s, u"RNT"_s, u"5 Rent St"_s}};
        int area = 1000;
        for (const auto& [group, base, page, address] : groups) {
            int row = 0;
            for (const QString& field : {u"ADDRESS"_s, u"GLA"_s})
                Add(kMapping, u"Comp2Kel"_s,
                    {{u"FORMTYPE"_s, u"UA5"_s},
                     {u"FORMNAME"_s, page},
                     {u"FIELDNAME"_s, field},
                     {u"ROW"_s, QString::number(++row)},
                     {u"CELL"_s, u"1"_s},
                     {u"COMPTYPE"_s, group},
                     {u"COMP"_s, base},
                     {u"OFFSET"_s, u"1"_s}});
            conduit.Answer(kReport, page + u"|1|1"_s, address);
            conduit.Answer(kReport, page + u"|2|1"_s, QString::number(++area));
        }
    }
    void Load()
    {
        main.Form_load(options, splash);
        ASSERT_TRUE(main.linkState.linkActive);
    }
    void Choose(int entry) { main.mnuTransferItem.Choose(u"mnuTransferItem"_s, entry); }
    /// GLA by key.
    [[nodiscard]] QMap<QString, QString> Records()
    {
        QMap<QString, QString> records;
        const auto rows =
            engine.OpenDatabase(kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            records.insert(rows->Value(u"CENTRALKEY"_s).toString().trimmed(),
                           rows->Value(u"GLA"_s).toString().trimmed());
        return records;
    }
};

TEST_F(TransferMenu, EachEntryStoresItsGroup)
{
    Load();
    const std::tuple<int, QString, QString, QString> entries[] = {
        {0, u"1 SUBJECT WAY"_s, u"1001"_s, u"1 record was added."_s},
        {3, u"3 ALT ST"_s, u"1003"_s, u"1 record was added."_s},
        {4, u"4 LIST ST"_s, u"1004"_s, u"1 record was added."_s},
        {5, u"5 RENT ST"_s, u"1005"_s, u"1 record was added."_s}};
    for (const auto& [entry, key, area, told] : entries) {
        const auto before = Records();
        ASSERT_FALSE(before.contains(key));
        Choose(entry);
        auto expected = before;
        expected.insert(key, area);
        EXPECT_EQ(Records(), expected) << "entry " << entry;
        EXPECT_EQ(main.status.lblmsg.Caption(), told) << "entry " << entry;
        EXPECT_EQ(main.records.grddatabook.Source()->RowCount(), expected.size()) << "the grid follows";
    }
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(doubles.window.hourglass);
}

TEST_F(TransferMenu, ARecordThatIsThereIsReplacedAfterAsking)
{
    Load();
    doubles.prompter.Answer(forms::Answer::No);
    Choose(2);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList(u"Replace the data for 12 Oak St?"_s));
    EXPECT_EQ(Records()[u"12 OAK ST"_s], QString());
    EXPECT_EQ(main.status.lblmsg.Caption(), u"1 was kept as it was."_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    Choose(2);
    EXPECT_EQ(Records()[u"12 OAK ST"_s], u"1002"_s);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"1 was replaced."_s)
        << "not what the row on show tells of itself";
}

TEST_F(TransferMenu, AllDataStoresEveryGroupAtOnce)
{
    Load();
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    Choose(7);
    EXPECT_EQ(Records(), (QMap<QString, QString>{{u"1 SUBJECT WAY"_s, u"1001"_s},
                                                 {u"12 OAK ST"_s, u"1002"_s},
                                                 {u"3 ALT ST"_s, u"1003"_s},
                                                 {u"4 LIST ST"_s, u"1004"_s},
                                                 {u"5 RENT ST"_s, u"1005"_s}}));
    EXPECT_EQ(main.status.lblmsg.Caption(), u"4 records were added, 1 was replaced."_s);
}

TEST_F(TransferMenu, WithNobodyOnTheLinkItIsSaidAndNothingIsStored)
{
    Load();
    conduit.running = false;
    Choose(7);
    EXPECT_EQ(doubles.prompter.Texts(), QStringList(u"The Appraisal Program is not running at this time."_s));
    EXPECT_EQ(Records().size(), 1);
}

TEST_F(TransferMenu, CityListingsOfACompOfTheReportKeepsListAndRecord)
{
    Load();
    main.records.txtcentralkey.SetText(u"12 OAK ST"_s);
    doubles.screens.Play([](forms::Screen& shown) {
        auto& screen = dynamic_cast<link::frm_AttachCity&>(shown);
        EXPECT_EQ(screen.Caption(), u"SALE Transfer Option"_s);
        EXPECT_EQ(screen.lblCentralKey.Caption(), u"12 OAK ST"_s);
        ASSERT_EQ(screen.lstcity.ListCount(), 1);
        screen.txtCity.SetText(u"Birch"_s);
        screen.txtState.SetText(u"OR"_s);
        screen.txtZip.SetText(u"97002"_s);
        screen.txtCounty.SetText(u"Calder"_s);
        Q_EMIT screen.cmdAdd.Clicked();
        Q_EMIT screen.cmdOk.Clicked();
    });
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 3);
    EXPECT_EQ(doubles.screens.Shown(), QStringList(u"frm_AttachCity"_s));
    const auto rows = engine.OpenDatabase(kDatabook)->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    EXPECT_EQ(rows->Value(u"CITY"_s).toString().trimmed(), u"Birch"_s);
    EXPECT_EQ(rows->Value(u"ZIP"_s).toString().trimmed(), u"97002"_s);
    EXPECT_EQ(files::GetPrivateProfileString(home.disk, u"CITIES"_s, u"CITY2"_s, {}, kIni),
              u"Birch, OR  97002  Calder"_s);

    main.records.txtcentralkey.SetText(u"99 Nowhere"_s);
    doubles.screens.Play(
        [](forms::Screen& shown) { EXPECT_EQ(shown.Caption(), u"MANUAL Transfer Option"_s); });
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 3);
    EXPECT_EQ(Records().size(), 1);
}

} // namespace
} // namespace vasclip::shell
