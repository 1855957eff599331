#include "start_home.h"

#include "support/exclusive_lock.h"
#include "support/lying_disk.h"
#include "support/unix.h"

#include <QDir>
#include <QFile>

#include <functional>
#include <optional>

// The steps of the start and of the stop beyond what the main screen shows of them.

namespace vasclip::shell {
namespace {

const QString kFloppyTitle = u"Place a floppy in the Drive"_s;

QString FloppyText(const QString& directory)
{
    return u"Drive is empty or unreadable.  It may be due to the "_s + directory +
           u" drive not being inserted or available.  Please insert a floppy disk (or sandisk card) to "
           u"correct this problem.  Hit cancel to set the directory to C:\\."_s;
}

/// Something happens while a box stands.
class Asking : public tests::ScriptedPrompter
{
public:
    std::function<void(std::size_t before)> meanwhile; ///< with the number of boxes before it
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon icon, const QString& title, const QString& text) override
    {
        if (meanwhile)
            meanwhile(Boxes().size());
        return ScriptedPrompter::MsgBox(buttons, icon, title, text);
    }
};

TEST_F(StartSequence, TheTraceNamesEachStepWithItsDetail)
{
    options.commandLine = u"/d"_s;
    Load();
    EXPECT_EQ(doubles.prompter.Texts().join(u'\n'),
              (QStringList{u"1:CKPreviousInstance,"_s,
                           u"2:FindWindow,"_s,
                           u"3:Command,/d"_s,
                           u"4:AppActivate,"_s,
                           u"5:CKPreviousInstance,"_s,
                           u"6:GetIniDir,"_s,
                           u"7:LocateIni,Application INI - C:\\APPRAISE\\VAS2000.INI"_s,
                           u"8:LocateKelIni,Appraisal INI - C:\\APPRAISE\\KEL.INI"_s,
                           u"9:ReadNames,"_s,
                           u"10:frm_Splash,"_s,
                           u"11:ReadGlobals,"_s,
                           u"12:TurnOnMaps,"_s,
                           u"13:ReadCaption,"_s,
                           u"14:ReadiniSettings,"_s,
                           u"15:LoadMenu,"_s,
                           u"16:tabSource,"_s,
                           u"17:CheckCompDBF2,C:\\DATABOOK\\DATABOOK.MDB"_s,
                           u"18:Connect2Databook,C:\\DATABOOK\\DATABOOK.MDB"_s,
                           u"19:Connect2mdb,"_s,
                           u"20:DisplayCamera,"_s,
                           u"21:ViewFilCapture,"_s,
                           u"22:SetGearImages,"_s,
                           u"23:SetFormatText,"_s,
                           u"24:LoadCompType,"_s,
                           u"25:RefreshAppraisal,"_s,
                           u"26:AddGenViews2CBO,"_s,
                           u"27:CreatePatternBrush,"_s,
                           u"28:checkUpdate,"_s,
                           u"29:SetGridSettings,"_s,
                           u"30:DisplayAllRecords,"_s,
                           u"31:Finalize,"_s})
                  .join(u'\n'));
}

TEST_F(StartSequence, TheQueueTurnsBetweenStepsUnlessTheLineForbidsIt)
{
    options.commandLine = u"/S"_s;
    Load();
    const int quiet = doubles.pump.turns;
    Program againProgram{home.disk.Home(), {conduit, ports}};
    frm_Main again{againProgram};
    options.commandLine.clear();
    doubles.pump.turns = 0;
    again.Form_load(options, splash);
    EXPECT_GE(doubles.pump.turns, quiet + 18) << "one before each step behind the splash";
}

TEST_F(StartSequence, TheCaptionOfTheFormsProgramIsKeptAt255Characters)
{
    QString asked;
    options.findWindowCaption = [&](const QString& windowClass) {
        asked = windowClass;
        return QString(300, u'x');
    };
    Load();
    EXPECT_EQ(asked, u"ClassKel"_s);
    EXPECT_EQ(main.globals.formsCaption, QString(255, u'x'));
}

TEST_F(StartSequence, ACopyThatCameMeanwhileIsRefusedBeforeAnIniIsLookedFor)
{
    int asked = 0;
    options.previousInstance = [&] { return ++asked == 2; };
    EXPECT_THROW(Load(), forms::EndOfProgram);
    EXPECT_EQ(doubles.prompter.Texts(),
              QStringList{u"You are already running this application.  Click OK and Press Ctrl Escape."_s});
    EXPECT_TRUE(main.globals.applicationIni.isEmpty());
    EXPECT_EQ(doubles.window.activations, 1);
}

TEST_F(StartSequence, PwstreetIniIsCopiedToTheProgramDirectoryAndReadThere)
{
    home.Put(u"C:\\WINDOWS\\pwstreet.ini"_s, "[V2BETA]\r\nCellData=C:\\CELLS\r\n");
    home.Put(u"C:\\APPRAISE\\mappoint.ini"_s, "[COMPANY NAME]\r\n");
    Load();
    EXPECT_EQ(main.globals.mapPointIni, u"C:\\APPRAISE\\MAPPOINT.INI"_s);
    EXPECT_EQ(main.globals.pwStreetIni, u"C:\\VAS2000\\PWSTREET.INI"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\pwstreet.ini"_s), "[V2BETA]\r\nCellData=C:\\CELLS\r\n");
    EXPECT_EQ(main.globals.cellData, u"C:\\CELLS"_s);
    EXPECT_EQ(main.globals.basePath, u"C:\\VAS2000\\maps"_s);

    // A copy that stands is not replaced.
    home.Put(u"C:\\VAS2000\\pwstreet.ini"_s, "[V2BETA]\r\nCellData=D:\\OWN\r\n");
    Program againProgram{home.disk.Home(), {conduit, ports}};
    frm_Main again{againProgram};
    again.Form_load(options, splash);
    EXPECT_EQ(again.globals.cellData, u"D:\\OWN"_s);
}

TEST_F(StartSequence, WithoutMapInisTheStartIsSilentAndTheirPathsHaveDefaults)
{
    Load();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(main.globals.mapPointIni, u"C:\\APPRAISE\\MAPPOINT.INI"_s);
    EXPECT_EQ(main.globals.cellData, u"C:\\VAS2000\\maps"_s);
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\pwstreet.ini"_s));
}

TEST_F(StartSequence, WithoutTheApplicationIniYesGoesOnWithTheDefaults)
{
    home.disk.Kill(kIni);
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    EXPECT_EQ(doubles.prompter.Last().text,
              u"VAS2000.INI configuration file is missing from C:\\APPRAISE\\ (primary location) and "
              u"C:\\WINDOWS (secondary location). DO you wish to coninue? (Program may not function "
              u"correctly)"_s);
    EXPECT_EQ(main.globals.G_ProgramDir, u"C:\\VAS2000\\"_s);
    EXPECT_TRUE(main.sources.datDatabook.Bound());
}

TEST_F(StartSequence, SavedGeneralViewsAreOfferedInEveryBoxAndShownTextsStay)
{
    Set(u"GENERAL VIEWS"_s, u"GENERALVIEW1"_s, u"KITCHEN"_s);
    Set(u"GENERAL VIEWS"_s, u"GENERALVIEW2"_s, u"GARAGE"_s);
    Set(u"GENERAL VIEWS"_s, u"GENERALVIEW4"_s, u"behind a gap"_s);
    Load();
    EXPECT_EQ(main.lstGenViews.Items(), (QStringList{u"KITCHEN"_s, u"GARAGE"_s}));
    for (int slot = 1; slot <= 36; ++slot)
        EXPECT_EQ(main.report.cboGeneral(slot).Items(), main.lstGenViews.Items()) << slot;
    EXPECT_TRUE(main.report.cboGeneral(1).Text().isEmpty());
}

TEST_F(StartSequence, AWaitingUpdaterTakesThePlaceOfTheOldOne)
{
    home.Put(u"C:\\VAS2000\\update.exe"_s, "old");
    home.Put(u"C:\\VAS2000\\Update\\update.exe"_s, "new");
    Load();
    EXPECT_TRUE(Told(u"Checking for Update Program Changes"_s));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\update.exe"_s), "new");
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\Update\\update.exe"_s));
}

TEST_F(StartSequence, WithoutAnUpdaterNothingIsSaid)
{
    home.Put(u"C:\\VAS2000\\update.exe"_s, "old");
    Load();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\VAS2000\\update.exe"_s), "old");
}

TEST_F(StartSequence, AnEmptyCaptureDriveAsksAndCancelRunsOnC)
{
    Set(u"DIRECTORIES"_s, u"CAPTUREDIR"_s, u"Q:\\DCIM"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Boxes()[0], (tests::ShownBox{forms::Buttons::OkCancel, forms::Icon::None,
                                                            kFloppyTitle, FloppyText(u"Q:\\DCIM\\"_s)}));
    EXPECT_EQ(main.globals.G_CaptureDir, u"C:\\"_s);
    EXPECT_TRUE(Told(u"Finalizing Start-up"_s));
}

TEST_F(StartSequence, ADiskPutIntoTheDriveIsTakenOnOk)
{
    Set(u"DIRECTORIES"_s, u"CAPTUREDIR"_s, u"Q:\\DCIM"_s);
    QFile drives(home.Native(u"drives.ini"_s));
    ASSERT_TRUE(drives.open(QIODevice::WriteOnly));
    drives.write(QString(u"[DRIVES]\r\nQ="_s + home.Native(u"drive_c/CARD"_s) + u"\r\n"_s).toUtf8());
    drives.close();
    Asking prompter;
    prompter.meanwhile = [this](std::size_t before) {
        if (before == 1)
            home.MakeDirs(u"C:\\CARD\\DCIM"_s);
    };
    prompter.AnswerAlways(forms::Answer::Ok);
    const forms::Ports asking{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, screens};
    Program startedProgram{home.disk.Home(), {conduit, asking}};
    frm_Main started{startedProgram};
    started.Form_load(options, splash);
    EXPECT_EQ(prompter.Texts(), (QStringList{FloppyText(u"Q:\\DCIM\\"_s), FloppyText(u"Q:\\DCIM\\"_s)}))
        << "OK without a disk asks anew, with one it goes on";
    EXPECT_EQ(started.globals.G_CaptureDir, u"Q:\\DCIM\\"_s);
    EXPECT_EQ(started.capture.lblTab.Caption(), u"Q:\\DCIM"_s);
}

TEST_F(StartSequence, WhereNoOtherDirectoryIsThereEitherNoDiskIsAskedForAgain)
{
    Set(u"DIRECTORIES"_s, u"CAPTUREDIR"_s, u"Q:\\DCIM"_s);
    const QString drive = home.Native(u"drive_c"_s);
    const QString away = home.Native(u"away"_s);
    Asking prompter;
    prompter.meanwhile = [&](std::size_t before) { // the network goes, and comes back with the second question
        if (before < 2) {
            EXPECT_TRUE(before == 0 ? QDir().rename(drive, away) : QDir().rename(away, drive));
        }
    };
    prompter.AnswerAlways(forms::Answer::Cancel);
    const forms::Ports asking{prompter, doubles.pump, doubles.clock, doubles.random, doubles.window, screens};
    Program startedProgram{home.disk.Home(), {conduit, asking}};
    frm_Main started{startedProgram};
    EXPECT_THROW(started.Form_load(options, splash), RuntimeError);
    EXPECT_EQ(prompter.Texts(), QStringList{FloppyText(u"Q:\\DCIM\\"_s)});
    EXPECT_TRUE(QDir().rename(away, drive));
}

TEST_F(StartSequence, WhatAnotherUserHoldsAndNobodyWaitsForTheStartGoesWithout)
{
    program.Engine().SetLockWait(50);
    std::optional<tests::ExclusiveLock> other;
    doubles.pump.onTurn = [&] { // the Databook is open already
        if (!other && Told(u"Checking for Update Program Changes"_s))
            other.emplace(home.Native(u"drive_c/DATABOOK/DATABOOK.MDB"_s));
    };
    doubles.prompter.Answer(forms::Answer::Retry);
    doubles.prompter.Answer(forms::Answer::Cancel);
    Load();
    ASSERT_TRUE(other);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_EQ(doubles.prompter.Last().buttons, forms::Buttons::RetryCancel);
    EXPECT_TRUE(doubles.prompter.Last().text.startsWith(u"Could not read; currently locked by another user"_s))
        << doubles.prompter.Last().text.toStdString();
    EXPECT_TRUE(Told(u"Finalizing Start-up"_s));
    EXPECT_EQ(main.globals.mapDetail, 3);
    other.reset();
    Q_EMIT main.records.cmdRefresh.Clicked();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 2U) << "and nothing is left of it";
}

TEST_F(StartSequence, ADatabookWhoseDriveIsAwayAsksForNoDiskAndAnotherOneIsTaken)
{
    store::MakeDatabase(engine, u"C:\\VAS2000\\OTHER.MDB"_s);
    for (const QString& directory : {u"Q:\\DATABOOK"_s, u"C:\\DATA:BOOK"_s, u"C:\\NOT\\THERE"_s}) {
        Set(u"DIRECTORIES"_s, u"DATADIR"_s, directory);
        doubles.prompter.Forget();
        doubles.prompter.Answer(forms::Answer::Yes); // tried again, in vain
        doubles.prompter.Answer(forms::Answer::No);
        doubles.prompter.AnswerDialog(u"C:\\VAS2000\\OTHER.MDB"_s);
        Program againProgram{home.disk.Home(), {conduit, ports}};
        frm_Main again{againProgram};
        again.Form_load(options, splash);
        for (const tests::ShownBox& box : doubles.prompter.Boxes())
            EXPECT_NE(box.title, kFloppyTitle) << directory.toStdString();
        EXPECT_EQ(doubles.prompter.Last().title, u"Databook Not Opened"_s);
        EXPECT_TRUE(doubles.prompter.Last().text.contains(directory + u"\\DATABOOK.MDB"_s))
            << doubles.prompter.Last().text.toStdString();
        EXPECT_TRUE(doubles.prompter.AllAnswered());
        EXPECT_TRUE(again.sources.datDatabook.Bound());
        EXPECT_EQ(again.sources.datsql.DatabaseName(), u"C:\\VAS2000\\OTHER.MDB"_s);
        EXPECT_TRUE(again.Caption().endsWith(u"Connection = C:\\VAS2000\\OTHER.MDB"_s))
            << again.Caption().toStdString();
        EXPECT_EQ(again.globals.mapDetail, 3) << "the start went on to its end";
        EXPECT_EQ(Stored(u"DATADIR"_s, u"DIRECTORIES"_s), directory) << "the drive may be back tomorrow";
    }
}

TEST_F(StartSequence, AMissingDatabookHasItsBoxAndCancelEndsTheProgram)
{
    home.disk.Kill(u"C:\\DATABOOK\\DATABOOK.MDB"_s);
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.AnswerDialog({}); // the dialogue is left: the question comes again
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_THROW(Load(), forms::EndOfProgram);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 4U);
    EXPECT_EQ(doubles.prompter.Boxes()[0].text,
              u"The file C:\\DATABOOK\\DATABOOK.MDB was not found.  This file must be present for this program to "
              u"work properly.  Please correct and try again."_s);
    EXPECT_EQ(doubles.prompter.Dialogs().size(), 1U);
}

TEST_F(StartSequence, AFileThatHoldsNoCompsIsNotTaken)
{
    home.Put(u"C:\\DATABOOK\\DATABOOK.MDB"_s, "Dear diary, today I sold a house.\r\n");
    doubles.prompter.Answer(forms::Answer::No);
    doubles.prompter.AnswerDialog(u"C:\\VAS2000\\Comp2Kel.mdb"_s);
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_THROW(Load(), forms::EndOfProgram);
    EXPECT_TRUE(doubles.prompter.Boxes()[0].text.contains(u"is a text file and not a database"_s));
    EXPECT_TRUE(doubles.prompter.Boxes()[1].text.contains(u"Comp2Kel.mdb can't be opened. "_s));
    EXPECT_TRUE(doubles.prompter.Boxes()[1].text.contains(u"COMPS"_s));
}

TEST_F(StartSequence, AHomeThatCanNotBeWrittenIsOpenedAndTold)
{
    options.homeIsReadOnly = true;
    home.Put(u"C:\\VAS2000\\Update\\update.exe"_s, "new");
    const QByteArray ini = home.disk.ReadWhole(kIni);
    Load();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    main.ShowRecordPhoto();
    main.CheckDatabook(engine::CheckDepth::Quiet); // as the window does when it stands
    EXPECT_TRUE(main.status.lblmsg.Caption().startsWith(u"This home can't be written"_s));
    const QString scratch = main.globals.G_UserDir + u"tempdat_1"_s;
    home.Put(scratch, "x");
    main.Form_Unload();
    EXPECT_TRUE(home.disk.FileExists(scratch)) << "nothing is taken away either";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(home.disk.ReadWhole(kIni), ini);
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\VAS2000.grx"_s));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAS2000\\Update\\update.exe"_s));
}

TEST_F(StartSequence, ADiskThatKeepsNoLocksIsToldOnce)
{
    VASCLIP_NEEDS_UNIX("a system's call that a test can stand in for");
    const tests::LyingDisk disk(tests::Locks::GivenToAll);
    Load();
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Boxes()[0].title, u"Databook Without Locks"_s);
    EXPECT_EQ(doubles.prompter.Boxes()[0].text,
              u"The disk of C:\\DATABOOK\\DATABOOK.MDB keeps no locks: two users who store at the same time can spoil it for each "
              u"other. Let one user at a time work on it, or put it on a disk that keeps locks."_s);
    program.TellLocks();
    EXPECT_EQ(doubles.prompter.Boxes().size(), 1U);
}

TEST_F(StartSequence, ACaptureDirectoryThatIsMissingOnItsDriveAsksForNoDisk)
{
    Set(u"DIRECTORIES"_s, u"CAPTUREDIR"_s, u"C:\\NOT\\THERE"_s);
    doubles.prompter.AnswerAlways(forms::Answer::Cancel);
    Load();
    for (const tests::ShownBox& box : doubles.prompter.Boxes())
        EXPECT_NE(box.title, kFloppyTitle);
}

TEST_F(StartSequence, TheTicksOfTheSetupMenuFollowTheSettingsAndFlipThem)
{
    Set(u"PREFERENCES"_s, u"IMAGEFILENAMES"_s, u"off"_s);
    Set(u"PREFERENCES"_s, u"IMAGELISTBOX"_s, u"on"_s);
    Load();
    const auto ticked = [this](int index) {
        return main.mnuSetupItem.Entry(u"mnuSetupItem"_s, index)->checked;
    };
    EXPECT_FALSE(ticked(5));
    EXPECT_TRUE(ticked(6));
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 5);
    main.mnuSetupItem.Choose(u"mnuSetupItem"_s, 6);
    EXPECT_TRUE(ticked(5));
    EXPECT_FALSE(ticked(6));
    EXPECT_EQ(main.globals.imageFileNames, u"ON"_s);
    EXPECT_EQ(main.globals.imageListBox, u"OFF"_s);
    main.Form_Unload();
    EXPECT_EQ(Stored(u"IMAGEFILENAMES"_s), u"ON"_s);
    EXPECT_EQ(Stored(u"IMAGELISTBOX"_s), u"OFF"_s);
}

TEST_F(StartSequence, TheWebsiteEntryIsThereWhenTheDeploymentNamesAPage)
{
    Load();
    EXPECT_FALSE(main.mnuHelpItem.Entry(u"mnuHelpItem"_s, 9)->enabled);
    Set(u"PRODUCT INFO"_s, u"WEBSITE"_s, u"C:\\VAS2000\\update.exe"_s);
    Program againProgram{home.disk.Home(), {conduit, ports}};
    frm_Main again{againProgram};
    again.Form_load(options, splash);
    EXPECT_TRUE(again.mnuHelpItem.Entry(u"mnuHelpItem"_s, 9)->enabled);
    again.mnuHelpItem.Choose(u"mnuHelpItem"_s, 9);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"'C:\\VAS2000\\update.exe' is not the address of a web page. Correct WEBSITE in the section "
              u"PRODUCT INFO of C:\\APPRAISE\\VAS2000.INI; an address begins with https:// or http://."_s)
        << "a setting starts no programs";
}

TEST_F(StartSequence, TheWebsiteIsOpenedByTheDesktop)
{
    VASCLIP_NEEDS_UNIX("a script that is a program");
    const QString noted = home.Native(u"noted"_s);
    home.Put(u"C:\\Bin\\xdg-open"_s, "#!/bin/sh\necho \"$1\" > " + noted.toUtf8() + "\n");
    const QString opener = home.disk.ToNative(u"C:\\Bin\\xdg-open"_s);
    QFile::setPermissions(opener, QFile::ReadOwner | QFile::ExeOwner | QFile::WriteOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", home.disk.ToNative(u"C:\\Bin"_s).toUtf8() + ":" + path);
    Set(u"PRODUCT INFO"_s, u"WEBSITE"_s, u"https://vasclip.example/help"_s);
    Load();
    main.mnuHelpItem.Choose(u"mnuHelpItem"_s, 9);
    qputenv("PATH", path);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    QFile file(noted);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll().trimmed(), "https://vasclip.example/help");
}

TEST_F(StartSequence, TheGroundBehindTheTabsFollowsItsSetting)
{
    QList<bool> themed;
    QObject::connect(&main, &frm_Main::TabColoursChanged, [&](bool own) { themed.append(own); });
    Set(u"PREFERENCES"_s, u"TABMASK"_s, u"0"_s);
    Load();
    EXPECT_EQ(themed, QList<bool>{false});
    EXPECT_TRUE(Told(u"Configuring Tabbed background colors"_s));
}

TEST_F(StartSequence, TheStopClosesTheOtherScreensClearsFilesAndArmsTheLastResort)
{
    home.Put(u"C:\\VAS2000\\tempdat_1.mdb"_s);
    home.Put(u"C:\\VAS2000\\tempdata.txt"_s);
    home.Put(u"C:\\VAS2000\\Report_Brief.mdb"_s);
    int ends = 0;
    QObject::connect(&main, &frm_Main::EndWanted, [&] { ++ends; });
    Load();
    main.Form_Unload();
    EXPECT_EQ(screens.unloads, 1);
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\tempdat_1.mdb"_s));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\Report_Brief.mdb"_s));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAS2000\\tempdata.txt"_s));
    auto* timer = main.findChild<QTimer*>(u"Timer1"_s);
    ASSERT_NE(timer, nullptr);
    EXPECT_TRUE(timer->isActive());
    EXPECT_EQ(ends, 0);
    QMetaObject::invokeMethod(timer, "timeout");
    EXPECT_EQ(ends, 1);
}

TEST_F(StartSequence, AStopBeforeTheSettingsWereReadWritesNoneOfThem)
{
    const QByteArray before = home.disk.ReadWhole(kIni);
    main.globals.applicationIni = kIni;
    main.Form_Unload();
    EXPECT_EQ(home.disk.ReadWhole(kIni), before);
}

TEST_F(StartSequence, AnEntryScreenOpensWithoutTheTemplatesAndSaysWhatIsMissing)
{
    {
        const auto database = engine.OpenDatabase(u"C:\\DATABOOK\\DATABOOK.MDB"_s);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(u"CENTRALKEY"_s, u"12 OAK ST"_s.leftJustified(35));
        rows->SetValue(u"APPRSLTYPE"_s, u"C"_s);
        rows->Update();
        rows->Close();
    }
    store::MakeDatabase(engine, u"C:\\VAS2000\\NEWCMTS.MDB"_s);
    Load();
    screens.Play([](forms::Screen&) {});
    EXPECT_NO_THROW(main.LoadCompForm(u"12 OAK ST"_s));
    EXPECT_EQ(screens.Shown(), QStringList{u"frm_CompMntC"_s});
    ASSERT_FALSE(doubles.prompter.Boxes().empty());
    EXPECT_EQ(doubles.prompter.Last().text,
              u"Unable to detect field count in databook.mdb (reference *new* files are missing or corrupt). "
              u"Reinstall the program and retry"_s);
    EXPECT_TRUE(main.sources.datDatabook.Bound()) << "the program goes on";
}

TEST_F(StartSequence, ADiskThatTakesItsTimeIsNamedOnTheSplashWhileTheWindowLives)
{
    VASCLIP_NEEDS_UNIX("a file that keeps who opens it standing");
    const QString mapping = home.disk.ToNative(u"C:\\VAS2000\\Comp2Kel.mdb"_s);
    ASSERT_TRUE(QFile::rename(mapping, mapping + u".away"_s));
    // Without a writer it keeps who opens it standing.
    ASSERT_EQ(mkfifo(mapping.toLocal8Bit().constData(), 0600), 0);
    const QString wanted = u"Waiting for C:\\VAS2000\\Comp2Kel.mdb"_s;
    bool waited = false;
    doubles.pump.onTurn = [&] {
        const int last = splash.lstSplash.ListCount() - 1;
        if (waited || last < 0 || !splash.lstSplash.List(last).endsWith(wanted))
            return;
        waited = true;
        const int writer = open(mapping.toLocal8Bit().constData(), O_WRONLY | O_NONBLOCK);
        ASSERT_TRUE(QFile::remove(mapping));
        ASSERT_TRUE(QFile::rename(mapping + u".away"_s, mapping));
        close(writer);
    };
    Load();
    EXPECT_TRUE(waited);
    EXPECT_TRUE(program.sources.datComp2Kel_CURRENT.Bound()) << "the start goes on where it stood";
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(StartSequence, AStartAfterAKillFindsEverythingAsItWas)
{
    Load(); // and never unloads: its locks and sources go with it, as a killed process's do
    main.sources.datDatabook.Close();
    main.sources.datsql.Close();
    main.sources.datComp2Kel_CURRENT.Close();
    const QByteArray ini = home.disk.ReadWhole(kIni);
    Program againProgram{home.disk.Home(), {conduit, ports}};
    frm_Main again{againProgram};
    again.Form_load(options, splash);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(again.sources.datDatabook.Bound());
    EXPECT_EQ(home.disk.ReadWhole(kIni), ini);
}

} // namespace
} // namespace vasclip::shell
