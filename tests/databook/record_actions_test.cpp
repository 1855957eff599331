#include "databook/record_actions.h"

#include "databook/frm_rename.h"
#include "databook/records.h"
#include "support/databook_home.h"
#include "support/standing_time.h"

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

class RecordActions : public tests::DatabookHome
{
protected:
    forms::ControlSet set;
    common::StatusDesk status{set};
    databook::RecordDesk desk{set};
    store::DataSource source{engine, u"datDatabook"_s};
    common::Globals globals;
    QStringList shown;  ///< keys that the grid was to stand on
    QStringList opened; ///< keys whose entry screen was shown
    bool storesSomething = false;
    databook::RecordWork work{.ports = ports,
                              .desk = desk,
                              .status = status,
                              .databook = source,
                              .globals = globals,
                              .disk = disk,
                              .loadCompForm =
                                  [this](const QString& key) {
                                      opened.append(key);
                                      return storesSomething;
                                  },
                              .showRecord = [this](const QString& key) { shown.append(key); }};

    void SetUp() override
    {
        DatabookHome::SetUp();
        AddComps({u"12 MAIN ST"_s, u"7 OAK AVE"_s});
        Bind(source);
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        desk.LoadCompType();
        Type(u"12 Main St"_s);
    }
    void Type(const QString& address)
    {
        desk.txtcentralkey.SetText(address);
        desk.cboapprslType.SetListIndex(1);
    }
    bool IsThere(const QString& address) { return store::FindRecord(ports, source, address.toUpper(), key); }
    void ExpectSaid(const QString& text, forms::Colour colour)
    {
        EXPECT_EQ(status.lblmsg.Caption(), text);
        EXPECT_EQ(status.lblmsg.Fore(), colour);
    }
};

TEST_F(RecordActions, EachGuardsItsFields)
{
    using Action = void (*)(const databook::RecordWork&);
    struct Row
    {
        const char* name;
        Action action;
        bool wantsType;
    };
    for (const Row& row :
         {Row{"add", databook::CompAddRecord, true}, Row{"edit", databook::CompEditRecord, false},
          Row{"delete", databook::CompDeleteRecord, true}, Row{"copy", databook::CompCopyRecord, false},
          Row{"rename", databook::CompRenameRecord, false}}) {
        Type(u"  "_s);
        row.action(work);
        ExpectSaid(u"Please Enter An Address"_s, forms::Colour::Blue);
        if (!row.wantsType)
            continue;
        Type(u"1 New Rd"_s);
        desk.cboapprslType.SetText(u"Z"_s);
        row.action(work);
        ExpectSaid(u"Please Select The Appraisal Type"_s, forms::Colour::Blue);
    }
    EXPECT_TRUE(doubles.screens.Shown().isEmpty());
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(RecordActions, AddStoresShowsAndOpens)
{
    Type(u" 1 New Rd "_s);
    databook::CompAddRecord(work);
    ASSERT_TRUE(IsThere(u"1 NEW RD"_s));
    EXPECT_EQ(store::GetFieldData(source, u"ADDRESS"_s), u"1 New Rd"_s);
    EXPECT_EQ(store::GetFieldData(source, u"APPRSLTYPE"_s), u"C"_s);
    EXPECT_EQ(opened, QStringList{u"1 NEW RD"_s});
    EXPECT_EQ(shown, QStringList{u"1 NEW RD"_s});
    ExpectSaid(u"1 NEW RD was added."_s, forms::Colour::Blue);
    storesSomething = true;
    Type(u"2 New Rd"_s);
    databook::CompAddRecord(work);
    EXPECT_EQ(shown, (QStringList{u"1 NEW RD"_s, u"2 NEW RD"_s, u"2 NEW RD"_s}))
        << "what the form stored shows";
}

TEST_F(RecordActions, AddOfAnAddressThatIsThereAsksToOpenIt)
{
    doubles.prompter.Answer(forms::Answer::No);
    databook::CompAddRecord(work);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::YesNo);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The address 12 MAIN ST is in the Databook already.  Do you want to open its record?"_s);
    EXPECT_TRUE(opened.isEmpty());
    ExpectSaid(u"12 MAIN ST was found in the comp file."_s, forms::Colour::Blue);
    doubles.prompter.Answer(forms::Answer::Yes);
    databook::CompAddRecord(work);
    EXPECT_EQ(opened, QStringList{u"12 MAIN ST"_s});
    EXPECT_EQ(source.Recordset().RecordCount(), 2);
}

TEST_F(RecordActions, AddOfAnAddressThatSomebodyElseJustAddedAsksToo)
{
    engine::Engine othersEngine(disk, tests::SomeTime());
    store::DataSource other(othersEngine, u"datDatabook"_s);
    store::Connect2mdb(ports, other, path, table, store::SourceKind::Table);
    bool done = false;
    doubles.pump.onTurn = [&] {
        if (!std::exchange(done, true))
            (void)databook::AddRecord(ports, other, u"1 NEW RD"_s, u'F', 2);
    };
    doubles.prompter.Answer(forms::Answer::Yes);
    Type(u"1 New Rd"_s);
    databook::CompAddRecord(work);
    EXPECT_EQ(opened, QStringList{u"1 NEW RD"_s});
    ASSERT_TRUE(IsThere(u"1 NEW RD"_s));
    EXPECT_EQ(store::GetFieldData(source, u"APPRSLTYPE"_s), u"F"_s) << "the other user's record stays";
}

TEST_F(RecordActions, AnAddressThatIsTooLongIsRefusedInRed)
{
    Type(QString(36, u'x'));
    databook::CompAddRecord(work);
    ExpectSaid(u"The address "_s + QString(36, u'x') +
                   u" has 36 characters; the Databook holds at most 35. Shorten it and try again."_s,
               forms::Colour::Red);
    EXPECT_TRUE(shown.isEmpty());
}

TEST_F(RecordActions, EditOpensTheRecord)
{
    databook::CompEditRecord(work);
    EXPECT_EQ(opened, QStringList{u"12 MAIN ST"_s});
    EXPECT_TRUE(shown.isEmpty()) << "nothing was stored";
    Type(u"99 Nowhere"_s);
    databook::CompEditRecord(work);
    EXPECT_EQ(opened.size(), 1);
    ExpectSaid(u"The address 99 NOWHERE is not in the Databook."_s, forms::Colour::Red);
}

TEST_F(RecordActions, TheButtonsLearnThatTheRecordIsGone)
{
    using Action = void (*)(const databook::RecordWork&);
    for (const Action action : {databook::CompEditRecord, databook::CompDeleteRecord,
                                databook::CompCopyRecord, databook::CompRenameRecord}) {
        Type(u"99 Nowhere"_s);
        desk.ButtonStatus(u"Found"_s);
        action(work);
        ExpectSaid(u"The address 99 NOWHERE is not in the Databook."_s, forms::Colour::Red);
        EXPECT_TRUE(desk.cmdAdd.Enabled());
        EXPECT_FALSE(desk.cmdDelete.Enabled());
    }
    EXPECT_TRUE(doubles.screens.Shown().isEmpty());
}

TEST_F(RecordActions, DeleteAsksThenTakesRecordAndPictures)
{
    disk.MkDir(u"C:\\JPG"_s);
    disk.WriteWhole(u"C:\\JPG\\11111111.jpg"_s, "jpeg");
    ASSERT_TRUE(IsThere(u"12 MAIN ST"_s));
    source.Recordset().Edit();
    store::SetFieldData(source, u"FRONT VIEW|11111111\r\n"_s, u"PHOTOS"_s);
    source.Recordset().Update();

    doubles.prompter.Answer(forms::Answer::No);
    databook::CompDeleteRecord(work);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete '12 MAIN ST'?"_s);
    EXPECT_TRUE(IsThere(u"12 MAIN ST"_s));
    EXPECT_TRUE(disk.FileExists(u"C:\\JPG\\11111111.jpg"_s));
    EXPECT_TRUE(shown.isEmpty());

    doubles.prompter.Answer(forms::Answer::Yes);
    databook::CompDeleteRecord(work);
    EXPECT_FALSE(IsThere(u"12 MAIN ST"_s));
    EXPECT_FALSE(disk.FileExists(u"C:\\JPG\\11111111.jpg"_s));
    EXPECT_EQ(shown, QStringList{u"12 MAIN ST"_s});
    ExpectSaid(u"12 MAIN ST was deleted."_s, forms::Colour::Blue);
}

TEST_F(RecordActions, DeleteOfWhatIsNotThereAsksNothing)
{
    Type(u"99 Nowhere"_s);
    databook::CompDeleteRecord(work);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    ExpectSaid(u"The address 99 NOWHERE is not in the Databook."_s, forms::Colour::Red);
}

TEST_F(RecordActions, ARecordDeletedBySomebodyElseWhileTheQuestionStandsIsTold)
{
    class Slow : public tests::ScriptedPrompter
    {
    public:
        std::function<void()> meanwhile;
        forms::Answer MsgBox(forms::Buttons, forms::Icon, const QString&, const QString&) override
        {
            meanwhile();
            return forms::Answer::Yes;
        }
    } prompter;
    engine::Engine othersEngine(disk, tests::SomeTime());
    store::DataSource other(othersEngine, u"datDatabook"_s);
    store::Connect2mdb(ports, other, path, table, store::SourceKind::Table);
    prompter.meanwhile = [&] { store::DeleteRecord(ports, other, u"12 MAIN ST"_s); };
    const forms::Ports slow{prompter, ports.pump, ports.clock, ports.random, ports.window, ports.screens};
    const databook::RecordWork slowWork{slow, desk, status, source, globals, disk, {}, work.showRecord, {}};
    databook::CompDeleteRecord(slowWork);
    ExpectSaid(u"The address 12 MAIN ST is not in the Databook."_s, forms::Colour::Blue);
    EXPECT_EQ(shown, QStringList{u"12 MAIN ST"_s}) << "the grid learns it";
}

TEST_F(RecordActions, CopyAndRenameOpenTheirScreen)
{
    work.newNames = {u"22 Ferry St"_s};
    doubles.screens.Play([](forms::Screen& screen) {
        auto& rename = dynamic_cast<databook::frm_Rename&>(screen);
        EXPECT_EQ(rename.Caption(), u"Copy Record"_s);
        EXPECT_EQ(rename.cboNewName.Items(), QStringList{u"22 Ferry St"_s});
        rename.cboNewName.SetText(u"14 Main St"_s);
        Q_EMIT rename.cmdRename.Clicked();
    });
    databook::CompCopyRecord(work);
    ExpectSaid(u"12 MAIN ST was copied to 14 MAIN ST."_s, forms::Colour::Blue);
    EXPECT_TRUE(IsThere(u"12 MAIN ST"_s) && IsThere(u"14 MAIN ST"_s));

    doubles.screens.Play([](forms::Screen& screen) {
        auto& rename = dynamic_cast<databook::frm_Rename&>(screen);
        EXPECT_EQ(rename.Caption(), u"Rename Search Address"_s);
        rename.cboNewName.SetText(u"16 Main St"_s);
        Q_EMIT rename.cmdRename.Clicked();
    });
    databook::CompRenameRecord(work);
    ExpectSaid(u"12 MAIN ST is 16 MAIN ST now."_s, forms::Colour::Blue);
    EXPECT_EQ(shown, (QStringList{u"14 MAIN ST"_s, u"16 MAIN ST"_s}));
    EXPECT_FALSE(IsThere(u"12 MAIN ST"_s));
}

TEST_F(RecordActions, ACancelledScreenChangesNothing)
{
    doubles.screens.Play([](forms::Screen& screen) {
        Q_EMIT dynamic_cast<databook::frm_Rename&>(screen).cmdCancel.Clicked();
        EXPECT_FALSE(screen.IsOpen());
    });
    databook::CompRenameRecord(work);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(source.Recordset().RecordCount(), 2);
}

} // namespace
