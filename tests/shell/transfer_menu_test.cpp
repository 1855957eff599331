#include "report_home.h"

#include "link/frm_attach_city.h"
#include "platform/files/profile.h"

// What the Transfer menu leads to, and Setup > City Listings, with a report open.

namespace vasclip::shell {
namespace {

class TransferMenu : public ReportHome
{
protected:
    void Choose(int entry) { main.mnuTransferItem.Choose(u"mnuTransferItem"_s, entry); }
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
    EXPECT_EQ(main.status.lblmsg.Caption(), u"The Appraisal Program is not running at this time."_s);
}

TEST_F(TransferMenu, EmptyTabsAreNotTheReportsDoingWhereNoneIsThere)
{
    conduit.running = false;
    main.Form_load(options, splash);
    for (const int entry : {0, 2, 3, 4, 5, 7}) {
        main.status.lblmsg.Show({}, forms::Colour::Normal);
        Choose(entry);
        EXPECT_EQ(main.status.lblmsg.Caption(), u"The Appraisal Program is not running at this time."_s) << entry;
    }
    conduit.running = true;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    Choose(7);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"No report is open, so there is nothing to transfer."_s);
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
