#include "platform/engine/convert.h"
#include "platform/files/profile.h"
#include "shell/frm_config.h"
#include "shell/main_home.h"
#include "support/unix.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QFile>
#include <QScopeGuard>
#include <QSet>
#include <QThread>

// What the Setup, Database and Help menus lead to.

namespace vasclip::shell {
namespace {

using namespace Qt::Literals::StringLiterals;

const QString kIni = u"C:\\APPRAISE\\VAS2000.INI"_s;

class SetupMenu : public MainHome
{
protected:
    void SetUp() override
    {
        for (const QString& directory :
             {u"C:\\WINDOWS"_s, u"C:\\DATABOOK"_s, u"C:\\OTHER"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s,
              u"C:\\KEL"_s, u"C:\\SNAP"_s, u"C:\\DATABOOK\\ARCHIVE"_s, u"C:\\DATABOOK\\EXPORT"_s,
              u"C:\\DATABOOK\\IMPORT"_s, u"C:\\VAM"_s})
            home.MakeDirs(directory);
        home.Put(kIni, "[DIRECTORIES]\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\n");
        home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n");
        store::MakeDatabase(engine, u"C:\\VAS2000\\Comp2Kel.mdb"_s);
        MakeDatabook(u"C:\\DATABOOK\\DATABOOK.MDB"_s, {u"12 OAK ST"_s, u"14 ELM ST"_s});
        MakeDatabook(u"C:\\DATABOOK\\OLD.MDB"_s, {u"1 ASH AVE"_s});
        MakeDatabook(u"C:\\OTHER\\DATABOOK.MDB"_s, {});
        conduit.running = false;
    }
    void MakeDatabook(const QString& path, const QStringList& keys)
    {
        store::MakeDatabase(engine, path);
        const auto database = engine.OpenDatabase(path);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        for (const QString& key : keys) {
            rows->AddNew();
            rows->SetValue(u"CENTRALKEY"_s, key.leftJustified(35));
            rows->SetValue(u"ADDRESS"_s, key);
            rows->Update();
        }
        rows->Close();
    }
    [[nodiscard]] qint64 Rows() const
    {
        const forms::GridSource* source = main.records.grddatabook.Source();
        return source ? source->RowCount() : -1;
    }
    /// Changes something on the settings screen and saves it.
    void Configure(const std::function<void(frm_Config&)>& change)
    {
        doubles.screens.Play([change](forms::Screen& screen) {
            auto& config = dynamic_cast<frm_Config&>(screen);
            change(config);
            Q_EMIT config.cmdSave.Clicked();
        });
        main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 0);
    }
    QString Ini(const QString& key)
    {
        return files::GetPrivateProfileString(home.disk, u"DIRECTORIES"_s, key, u"(absent)"_s, kIni);
    }
    /// Saves this data path on the settings screen.
    void Configure(const QString& dataDir)
    {
        Configure([dataDir](frm_Config& config) {
            dynamic_cast<forms::TextBox&>(*config.controls.Find(u"txtDataDir"_s)).SetText(dataDir);
        });
    }
    void ChooseDatabase(const QString& name)
    {
        doubles.screens.Play([this, name](forms::Screen& screen) {
            auto& list = dynamic_cast<forms::ListBox&>(*screen.controls.Find(u"lstdatabases"_s));
            offered = list.Items();
            if (name.isEmpty())
                return Q_EMIT screen.controls.Find(u"cmdCancel"_s)->Clicked();
            list.SetListIndex(list.IndexOf(name));
            if (onChoice)
                onChoice();
            Q_EMIT screen.controls.Find(u"cmdOk"_s)->Clicked();
        });
        main.mnuDBItem.Choose(u"mnuDBItem"_s, 4);
    }
    QStringList offered;
    std::function<void()> onChoice;
};

TEST_F(SetupMenu, ConfigurationOpensItsScreenAndLeavesTheDatabookAlone)
{
    Load();
    int captions = 0;
    QObject::connect(&main, &frm_Main::CaptionChanged, [&] { ++captions; });
    Configure(u"C:\\databook"_s);
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_Config"_s});
    EXPECT_EQ(captions, 0) << "the same database";
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(main.mnuSetupItem.Entry(u"mnuSetupItem"_s, 0)->shortcut, u"Ctrl+,"_s);
}

TEST_F(SetupMenu, AnotherDataPathOpensItsDatabook)
{
    Load();
    Configure(u"C:\\OTHER"_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(main.Caption(), u"Vasclip -  Version 6.2.1  -  Connection = C:\\OTHER\\DATABOOK.MDB"_s);
    EXPECT_EQ(main.sources.datDatabook.DatabaseName(), u"C:\\OTHER\\DATABOOK.MDB"_s);
    EXPECT_EQ(main.globals.G_DataDir, u"C:\\OTHER\\"_s);
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(Ini(u"DATADIR"_s), u"C:\\OTHER\\"_s);
}

TEST_F(SetupMenu, ADataPathWithoutADatabookKeepsTheOldOneHereAndInTheIni)
{
    Load();
    Configure(u"C:\\NOWHERE"_s);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"C:\\NOWHERE\\DATABOOK.MDB is missing"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_EQ(main.globals.G_DataDir, u"C:\\DATABOOK\\"_s);
    EXPECT_EQ(main.sources.datDatabook.DatabaseName(), u"C:\\DATABOOK\\DATABOOK.MDB"_s);
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(Ini(u"DATADIR"_s), u"C:\\DATABOOK\\"_s);
    EXPECT_FALSE(main.lblChangingDB.Visible());
}

TEST_F(SetupMenu, AnotherCaptureDirectoryIsShownAtOnce)
{
    home.MakeDirs(u"C:\\CARD"_s);
    home.Put(u"C:\\CARD\\A.JPG"_s);
    Load();
    main.ShowCapture();
    EXPECT_EQ(main.capture.filCapture.ListCount(), 0);
    Configure([](frm_Config& config) {
        dynamic_cast<forms::TextBox&>(*config.controls.Find(u"txtCaptureDir"_s)).SetText(u"C:\\CARD"_s);
    });
    EXPECT_EQ(main.capture.lblTab.Caption(), u"C:\\CARD"_s);
    EXPECT_EQ(main.capture.filCapture.ListCount(), 1);
}

TEST_F(SetupMenu, TheViewsOfTheCaptureDirectoryFollowTheirSettings)
{
    home.Put(u"C:\\SNAP\\A.JPG"_s);
    Load();
    main.ShowCapture();
    const auto ticked = [this](int index) {
        return main.mnuSetupItem.Entry(u"mnuSetupItem"_s, index)->checked;
    };
    EXPECT_TRUE(main.capture.lbltag(0).Visible() && ticked(5));
    EXPECT_FALSE(main.capture.filCapture.Visible() || ticked(6));
    const auto set = [](frm_Config& config, const QString& box, bool on) {
        dynamic_cast<forms::CheckBox&>(*config.controls.Find(box)).SetValue(on);
    };
    Configure([&](frm_Config& config) { set(config, u"ckbImageFilenames"_s, false); });
    EXPECT_FALSE(main.capture.lbltag(0).Visible() || ticked(5));
    EXPECT_FALSE(main.popThumb_M.Entry(u"popThumb_M"_s, 2)->checked);
    Configure([&](frm_Config& config) { set(config, u"ckbImageListbox"_s, true); });
    EXPECT_TRUE(main.capture.filCapture.Visible() && ticked(6));
    EXPECT_TRUE(main.popThumb_M.Entry(u"popThumb_M"_s, 5)->checked);
    EXPECT_FALSE(main.capture.fraPics.Visible());
}

TEST_F(SetupMenu, TheAddressesOfTheReportsTabsAreLockedBySetting)
{
    Load();
    const auto locked = [this] {
        QSet<bool> states{main.report.txtSubject.Locked()};
        for (const auto* boxes : {&main.report.txtComp, &main.report.txtAltComp, &main.report.txtListing,
                                  &main.report.txtRental, &main.report.txtgeneraladdr})
            for (int i = boxes->First(); i <= boxes->Last(); ++i)
                states.insert((*boxes)(i).Locked());
        return states;
    };
    EXPECT_EQ(locked(), QSet<bool>{true}) << "as long as nobody says otherwise";
    Configure([](frm_Config& config) {
        dynamic_cast<forms::CheckBox&>(*config.controls.Find(u"ckbLockAddr"_s)).SetValue(false);
    });
    EXPECT_EQ(locked(), QSet<bool>{false});
    Program againProgram{home.disk.Home(), {conduit, doubles.Get()}};
    frm_Main again{againProgram};
    frm_Splash secondSplash{doubles.Get()};
    again.Form_load(options, secondSplash);
    EXPECT_FALSE(again.report.txtComp(1).Locked()) << "and so it is from the start";
}

TEST_F(SetupMenu, AResetOfTheSizeIsAppliedWhenTheScreenHasClosed)
{
    Load();
    int resets = 0;
    QObject::connect(&main, &frm_Main::ResetSizeWanted, [&] { ++resets; });
    doubles.screens.Play([&](forms::Screen& screen) {
        Q_EMIT dynamic_cast<frm_Config&>(screen).cmdResetSize.Clicked();
        EXPECT_EQ(resets, 0);
    });
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 0);
    EXPECT_EQ(resets, 1);
}

TEST_F(SetupMenu, ChangeCurrentDatabaseOpensTheChoice)
{
    Load();
    main.tabSource.SetTab(1);
    bool shown = false;
    doubles.pump.onTurn = [&] {
        if (!main.lblChangingDB.Visible() || shown)
            return;
        shown = true;
        EXPECT_EQ(Rows(), -1) << "the grid is empty meanwhile";
        EXPECT_EQ(main.tabSource.Tab(), 0);
    };
    ChooseDatabase(u"OLD.MDB"_s);
    doubles.pump.onTurn = nullptr;
    EXPECT_EQ(offered, (QStringList{u"DATABOOK.MDB"_s, u"OLD.MDB"_s}));
    EXPECT_TRUE(shown);
    EXPECT_FALSE(main.lblChangingDB.Visible());
    EXPECT_EQ(main.globals.G_DataFile, u"OLD.MDB"_s);
    EXPECT_EQ(main.tabSource.Tab(), 0);
    EXPECT_EQ(main.Caption(), u"Vasclip -  Version 6.2.1  -  Connection = C:\\DATABOOK\\OLD.MDB"_s);
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(main.records.txtcentralkey.Text(), u"1 ASH AVE"_s);
    EXPECT_EQ(Ini(u"DATAFILE"_s), u"(absent)"_s);
}

TEST_F(SetupMenu, CancelAndTheSameDatabaseChangeNothing)
{
    Load();
    int captions = 0;
    QObject::connect(&main, &frm_Main::CaptionChanged, [&] { ++captions; });
    ChooseDatabase({});
    ChooseDatabase(u"DATABOOK.MDB"_s);
    EXPECT_EQ(captions, 0);
    EXPECT_EQ(Rows(), 2);
}

TEST_F(SetupMenu, ADamagedCandidateLeavesThePresentDatabase)
{
    Load();
    onChoice = [this] { home.Put(u"C:\\DATABOOK\\OLD.MDB"_s, "no database any more"); };
    ChooseDatabase(u"OLD.MDB"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"C:\\DATABOOK\\OLD.MDB is missing, damaged, or holds no table COMPS of comps. The database "
              u"C:\\DATABOOK\\DATABOOK.MDB stays open."_s);
    EXPECT_EQ(main.globals.G_DataFile, u"DATABOOK.MDB"_s);
    EXPECT_EQ(Rows(), 2);
    ChooseDatabase({});
    EXPECT_EQ(offered, QStringList{u"DATABOOK.MDB"_s}) << "it is not offered again";
}

TEST_F(SetupMenu, AnAccessDatabaseIsConvertedOnTheWay)
{
    engine::Conversion wanted{.source = u"C:\\DATABOOK\\OLD.MDB"_s,
                              .target = u"C:\\DATABOOK\\BOB.MDB"_s,
                              .to = engine::DatabaseKind::Access};
    ASSERT_TRUE(engine::ConvertDatabase(engine, wanted));
    const QByteArray access = home.disk.ReadWhole(wanted.target);
    Load();
    doubles.prompter.Answer(forms::Answer::Yes);
    ChooseDatabase(u"BOB.MDB"_s);
    EXPECT_EQ(main.globals.G_DataFile, u"BOB.MDB"_s);
    EXPECT_EQ(Rows(), 1);
    EXPECT_TRUE(main.sources.datDatabook.Recordset().Updatable());
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\DATABOOK\\BOB_ACCESS.MDB"_s), access);
}

TEST_F(SetupMenu, ManualEntryIsHiddenAndShownUnderItsThreeCaptions)
{
    Load();
    const auto caption = [this] { return main.mnuSetupItem.Entry(u"mnuSetupItem"_s, 8)->caption; };
    EXPECT_EQ(caption(), u"Hide Manual Comp Entry"_s);
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 8);
    EXPECT_EQ(caption(), u"Show Manual Detail"_s);
    EXPECT_FALSE(main.records.txtcentralkey.Visible() || main.records.cmdAdd.Visible());
    EXPECT_TRUE(main.records.cmdSearch.Visible());
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 8);
    EXPECT_EQ(caption(), u"Hide Manual Detail"_s);
    EXPECT_TRUE(main.records.txtcentralkey.Visible() && main.records.cmdAdd.Visible());
}

TEST_F(SetupMenu, WhatsNewTakesTheFileOfTheProgramDirectoryFirst)
{
    Load();
    QString text;
    QObject::connect(&main, &frm_Main::WhatsNewWanted, [&](const QString& shown) { text = shown; });
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 2);
    EXPECT_TRUE(text.contains(u"What's new in Vasclip"_s));
    home.Put(u"C:\\VAS2000\\changes.txt"_s, "Ours: caf\xc3\xa9");
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 2);
    EXPECT_EQ(text, u"Ours: caf\u00e9"_s);
}

TEST_F(SetupMenu, ProgramHelpOpensTheHelpFileAndElseTheGuide)
{
    VASCLIP_NEEDS_UNIX("a kind of file that nothing opens");
    Load();
    int guides = 0;
    QObject::connect(&main, &frm_Main::GuideWanted, [&] { ++guides; });
    ASSERT_TRUE(main.mnuHelpItem.Entry(u"mnuHelpItem"_s, 0)->enabled);
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 0);
    EXPECT_EQ(guides, 1);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());

    // Another maker's file is not opened, its own is: with nothing to show it, the box tells.
    main.globals.companyName = u"Ostrand Ltd."_s;
    home.Put(u"C:\\VAS2000\\dalmohelp.chm"_s);
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 0);
    EXPECT_EQ(guides, 2);
    home.Put(u"C:\\VAS2000\\vasphelp.chm"_s);
    const QByteArray path = qgetenv("PATH");
    const auto putBack = qScopeGuard([&] { qputenv("PATH", path); });
    qputenv("PATH", ""); // a machine without anything that opens a help file
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 0);
    EXPECT_EQ(guides, 2);
    EXPECT_EQ(doubles.prompter.Last().text, u"No application is associated with this file type."_s);
    main.globals.companyName = u"Somebody"_s;
    home.disk.Kill(u"C:\\VAS2000\\dalmohelp.chm"_s);
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 0);
    EXPECT_EQ(guides, 3);
}

TEST_F(SetupMenu, TutorialsAreThereAsFarAsTheirFilesAre)
{
    VASCLIP_NEEDS_UNIX("a script that is a program");
    Load();
    EXPECT_FALSE(main.mnuHelpItem.Entry(u"mnuHelpItem"_s, 1)->enabled);

    home.Put(u"C:\\VAS2000\\Mapping.exe"_s);
    home.Put(u"C:\\VAS2000\\photos.cls"_s);
    home.Put(u"C:\\VAS2000\\notes.txt"_s);
    Program againProgram{home.disk.Home(), {conduit, doubles.Get()}};
    frm_Main again{againProgram};
    frm_Splash secondSplash{doubles.Get()};
    again.Form_load(options, secondSplash);
    const forms::MenuEntry* tutorials = again.mnuHelpItem.Entry(u"mnuHelpItem"_s, 1);
    EXPECT_TRUE(tutorials->enabled);
    QStringList names;
    for (const auto& entry : tutorials->subEntries)
        names.append(entry.caption);
    EXPECT_EQ(names, (QStringList{u"Mapping.exe"_s, u"photos.cls"_s}));
    const QString noted = home.Native(u"noted"_s);
    home.Put(u"C:\\VAS2000\\Mapping.exe"_s, "#!/bin/sh\n: > " + noted.toUtf8() + "\n");
    ASSERT_TRUE(QFile::setPermissions(home.disk.ToNative(u"C:\\VAS2000\\Mapping.exe"_s),
                                      QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    again.mnuHelpItem.Choose(u"mnuHelpTut_M"_s, 0);
    for (const QDeadlineTimer limit(20'000); !QFile::exists(noted) && !limit.hasExpired();)
        QThread::msleep(10);
    EXPECT_TRUE(QFile::exists(noted)) << "it was started";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    home.disk.Kill(u"C:\\VAS2000\\Mapping.exe"_s);
    again.mnuHelpItem.Choose(u"mnuHelpTut_M"_s, 0);
    EXPECT_EQ(doubles.prompter.Last().text, u"File not found"_s);
}

} // namespace
} // namespace vasclip::shell
