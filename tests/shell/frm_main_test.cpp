#include "common/error_block.h"
#include "databook/layouts.h"
#include "drops/drag.h"
#include "link/refresh.h"
#include "photos/frm_gen_view.h"
#include "platform/engine/database.h"
#include "platform/engine/process.h"
#include "platform/files/profile.h"
#include "platform/text/text.h"
#include "shell/main_home.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
const QString kMapping = u"C:\\VAS2000\\Comp2Kel.mdb"_s;
const QString kApplicationIni = u"C:\\APPRAISE\\VAS2000.INI"_s;
const QString kKelIni = u"C:\\APPRAISE\\KEL.INI"_s;
const QString kUserLayouts = u"C:\\VAS2000\\VAS2000.grx"_s;

/// A whole home with two comps, of which one has a front view, and nobody at the other end of the link.
class MainScreen : public shell::MainHome
{
protected:
    void SetUp() override
    {
        for (const QString& directory : {u"C:\\WINDOWS"_s, u"C:\\APPRAISE"_s, u"C:\\DATABOOK"_s,
                                         u"C:\\VAS2000"_s, u"C:\\JPG"_s, u"C:\\KEL"_s, u"C:\\SNAP"_s})
            home.MakeDirs(directory);
        home.Put(kApplicationIni, "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nUSERDIR=C:\\VAS2000\r\n"
                                  "PHOTODIR=C:\\JPG\r\nDATADIR=C:\\DATABOOK\r\nCAPTUREDIR=C:\\SNAP\r\n"
                                  "[PREFERENCES]\r\nSORTGRID=0\r\n");
        home.Put(kKelIni, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n[VENDOR]\r\nApplicationName=Made Up Forms\r\n");
        store::MakeDatabase(engine, kDatabook);
        store::MakeDatabase(engine, kMapping);
        AddComp(u"12 OAK ST"_s, u"FRONT VIEW|OAK\r\n"_s);
        AddComp(u"14 ELM ST"_s, {});
        Picture(u"C:\\JPG\\OAK.jpg"_s);
        conduit.running = false;
    }
    void AddComp(const QString& key, const QString& photos)
    {
        Add(kDatabook, u"COMPS"_s,
            {{u"CENTRALKEY"_s, key.leftJustified(35)},
             {u"ADDRESS"_s, key},
             {u"APPRSLTYPE"_s, u"C"_s},
             {u"PHOTOS"_s, photos}});
    }
    /// The exit code with which the start ended the program; -1 if it came up.
    int EndedWith()
    {
        try {
            Load();
        } catch (const forms::EndOfProgram& end) {
            return end.exitCode;
        }
        return -1;
    }
    [[nodiscard]] QStringList SplashTexts() const
    {
        QStringList texts;
        for (int i = 0; i < splash.lstSplash.ListCount(); ++i) {
            const QString line = splash.lstSplash.List(i);
            texts << line.mid(line.indexOf(u" - "_s) + 3); // behind the time
        }
        return texts;
    }
    [[nodiscard]] QString Setting(const QString& section, const QString& key) const
    {
        return files::GetPrivateProfileString(home.disk, section, key, u"(none)"_s, kApplicationIni);
    }
    [[nodiscard]] qint64 Rows() const
    {
        const forms::GridSource* source = main.records.grddatabook.Source();
        return source ? source->RowCount() : -1;
    }
    void StandOnRow(const QString& key)
    {
        for (int row = 0; row < 2; ++row) {
            main.records.grddatabook.SetRow(row);
            if (text::Trim(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s)) == key)
                return;
        }
        FAIL() << "no row of " << key.toStdString();
    }
};

TEST_F(MainScreen, AnErrorWhileTheRowChangesTellsTheStep)
{
    QImage photo(40, 30, QImage::Format_RGB32);
    photo.fill(Qt::red);
    home.Put(u"C:\\JPG\\OAK.jpg"_s);
    ASSERT_TRUE(photo.save(home.disk.ToNative(u"C:\\JPG\\OAK.jpg"_s), "JPG"));
    Load();
    ASSERT_NO_FATAL_FAILURE(StandOnRow(u"14 ELM ST"_s));
    QStringList steps;
    const auto note = [&steps] { steps << text::Trim(common::RoutineScope::Current()); };
    const auto watch = [&note](forms::Control& control) {
        QObject::connect(&control, &forms::Control::Changed, &control, note);
    };
    QObject::connect(&main.photoLists.lstViews, &forms::ListBox::ItemsChanged, &main, note);
    QObject::connect(&main.records.cboapprslType, &forms::ComboBox::TextChanged, &main, note);
    watch(main.records.txtcentralkey);
    watch(main.photoLists.CmdDeletePhoto);
    watch(main.photoLists.txtimage);
    watch(main.slots.geamaintain);
    main.records.SetAppraisalType(u"F"_s);
    main.slots.geamaintain.SetVisible(false);
    ASSERT_NO_FATAL_FAILURE(StandOnRow(u"12 OAK ST"_s));
    for (const char* step : {"Address Combo", "Determine Comp Type", "List Photos", "Checking Front View",
                             "Handling Photo Butto", "Photo Box View"})
        EXPECT_TRUE(steps.contains(QLatin1StringView(step))) << step << " of " << steps.join(u", "_s).toStdString();
}

TEST_F(MainScreen, TheSplashTellsTheStepsInTheirOrder)
{
    Load();
    EXPECT_EQ(SplashTexts(), (QStringList{u"Application INI  - C:\\APPRAISE\\VAS2000.INI"_s,
                                          u"Appraisal INI - C:\\APPRAISE\\KEL.INI"_s,
                                          u"Loading Configuration Settings"_s,
                                          u"Checking for Integrated Mapping Application"_s,
                                          u"Reading User Defined Settings"_s,
                                          u"Adding Pop-up Menus"_s,
                                          u"Checking data - C:\\DATABOOK\\"_s,
                                          u"Connecting to Comp2Kel.mdb"_s,
                                          u"Verifying Capture Directory"_s,
                                          u"Displaying Capture Pictures"_s,
                                          u"Setting GEAR image controls"_s,
                                          u"Formatting Grid text"_s,
                                          u"Setting Formtypes for Search menu"_s,
                                          u"Refreshing program from KEL"_s,
                                          u"Adding Saved General Views"_s,
                                          u"Configuring Tabbed background colors"_s,
                                          u"Checking for Update Program Changes"_s,
                                          u"Verifying Default Grid Settings"_s,
                                          u"Loading Saved Grid Layout"_s,
                                          u"Loading grid interface"_s,
                                          u"Displaying Comp Records"_s,
                                          u"Finalizing Start-up"_s}));
    EXPECT_EQ(splash.lstSplash.ListIndex(), 21);
    EXPECT_EQ(splash.gauProgress.Value(), 44);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_FALSE(doubles.window.hourglass);
    EXPECT_EQ(doubles.window.activations, 2);
}

TEST_F(MainScreen, TheCaptionNamesProgramVersionAndDatabook)
{
    Load();
    EXPECT_EQ(main.Caption(), u"Vasclip -  Version 6.2.1  -  Connection = C:\\DATABOOK\\DATABOOK.MDB"_s);
    EXPECT_EQ(main.tabSource.TabCaption(1), u"Atlas"_s);
    EXPECT_EQ(main.globals.formsProgram, u"Made Up Forms"_s);
    EXPECT_EQ(splash.lblCompany.Caption(), u"Ostrand Ltd."_s);
    EXPECT_EQ(main.globals.mapDetail, 3);
}

TEST_F(MainScreen, AliasesOfTheApplicationIniNameProgramAndMap)
{
    ASSERT_TRUE(files::WritePrivateProfileString(home.disk, u"PROGRAM ALIAS"_s, u"Vasclip"_s, u"Clipper"_s,
                                                 kApplicationIni));
    ASSERT_TRUE(files::WritePrivateProfileString(home.disk, u"PROGRAM ALIAS"_s, u"Korvat Pointer"_s,
                                                 u"Street Map"_s, kApplicationIni));
    Load();
    EXPECT_TRUE(main.Caption().startsWith(u"Clipper -  Version"_s)) << main.Caption().toStdString();
    EXPECT_EQ(main.tabSource.TabCaption(1), u"Street Map"_s);
}

TEST_F(MainScreen, ASecondCopyIsRefused)
{
    options.previousInstance = [] { return true; };
    EXPECT_EQ(EndedWith(), 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().title, u"Program Already Running in Memory"_s);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The current application is already running in memory. If the application is not visible, "
              u"please end the existing process in the Windows Task Manager."_s);
    EXPECT_EQ(splash.lstSplash.ListCount(), 0);
    EXPECT_FALSE(main.sources.datDatabook.Bound());
}

TEST_F(MainScreen, AMissingDatabookIsNamedAndCancelEndsTheProgram)
{
    home.disk.Kill(kDatabook);
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(EndedWith(), 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 2U);
    EXPECT_EQ(doubles.prompter.Boxes()[0].text,
              u"The file "_s + kDatabook +
                  u" was not found.  This file must be present for this program to work "
                  u"properly.  Please correct and try again."_s);
    EXPECT_FALSE(home.disk.FileExists(kDatabook));
    EXPECT_EQ(SplashTexts().last(), u"Checking data - C:\\DATABOOK\\"_s);
}

TEST_F(MainScreen, AMissingMappingEndsTheProgramAndNamesIt)
{
    home.disk.Kill(kMapping);
    EXPECT_EQ(EndedWith(), 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    EXPECT_EQ(doubles.prompter.Last().text,
              u"The file "_s + kMapping +
                  u" was not found.  This file must be present for this program to work "
                  u"properly.  Please correct and try again."_s);
    EXPECT_EQ(SplashTexts().last(), u"Connecting to Comp2Kel.mdb"_s);
}

TEST_F(MainScreen, WhatIsNoDatabookIsToldAndStaysAsItIs)
{
    home.Put(kDatabook, QByteArray(5000, 'x'));
    doubles.prompter.Answer(forms::Answer::Cancel);
    EXPECT_EQ(EndedWith(), 1);
    ASSERT_EQ(doubles.prompter.Boxes().size(), 1U);
    const QString told = doubles.prompter.Last().text;
    EXPECT_TRUE(told.startsWith(u"C:\\DATABOOK\\DATABOOK.MDB can't be opened. "_s))
        << told.toStdString();
    EXPECT_EQ(home.disk.ReadWhole(kDatabook), QByteArray(5000, 'x'));
}

TEST_F(MainScreen, WithoutTheAppraisalIniYesGoesOn)
{
    home.disk.Kill(kKelIni);
    doubles.prompter.Answer(forms::Answer::Yes);
    Load();
    EXPECT_TRUE(doubles.prompter.AllAnswered());
    EXPECT_EQ(doubles.prompter.Boxes()[0].title, u"Configuration File Missing"_s);
    EXPECT_EQ(main.globals.kelIni, kKelIni);
    EXPECT_EQ(main.globals.kelAppDir, QString());
    EXPECT_EQ(main.globals.formsProgram, u"Korvat Forms"_s);
    EXPECT_EQ(Rows(), 2);
    EXPECT_FALSE(home.disk.FileExists(kKelIni));
}

TEST_F(MainScreen, WithoutTheAppraisalIniNoEndsTheProgram)
{
    home.disk.Kill(kKelIni);
    doubles.prompter.Answer(forms::Answer::No);
    EXPECT_GE(EndedWith(), 0);
    EXPECT_EQ(splash.lstSplash.ListCount(), 0);
}

TEST_F(MainScreen, WithNobodyOnTheLinkEveryTabStandsOpenAndNothingIsSaid)
{
    Load();
    for (int page = 0; page < main.report.TabComp.Tabs(); ++page)
        EXPECT_NE(main.report.TabComp.TabCaption(page), u"N/A"_s);
    EXPECT_FALSE(main.linkState.linkActive);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(MainScreen, ThePhotoButtonsRenameAndDeleteTheSelectedPhoto)
{
    Load();
    main.ShowRecordPhoto();
    main.ShowCapture();
    forms::Button& remove = main.photoLists.CmdDeletePhoto;
    forms::Button& rename = main.photoLists.CmdRenamePhotoView;
    StandOnRow(u"14 ELM ST"_s);
    EXPECT_FALSE(remove.Enabled());
    EXPECT_FALSE(rename.Enabled()) << "the record has no photo";
    EXPECT_EQ(main.photoLists.txtView.Text() + main.photoLists.txtimage.Text(), QString());
    Q_EMIT remove.Clicked();
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    StandOnRow(u"12 OAK ST"_s);
    EXPECT_TRUE(remove.Enabled());
    EXPECT_TRUE(rename.Enabled());
    EXPECT_EQ(main.MenuOver(main.slots.geamaintain), &main.popPhoto_M);
    EXPECT_EQ(main.MenuOver(main.photoLists.lstViews), &main.popPhoto_M);
    doubles.screens.Play([](forms::Screen& shown) {
        auto& screen = dynamic_cast<photos::frm_GenView&>(shown);
        EXPECT_EQ(screen.txtView.Text(), u"FRONT VIEW"_s);
        screen.txtView.SetText(u"pool"_s);
        screen.cmdAddView_Click();
        screen.cmdOK_Click();
    });
    Q_EMIT rename.Clicked();
    EXPECT_TRUE(main.report.cboGeneral(1).Items().contains(u"POOL"_s)) << "a view that joins the list is offered at once";
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"PHOTOS"_s), u"POOL|OAK\r\n"_s);
    EXPECT_EQ(text::Trim(main.records.grddatabook.CurrentText(u"FRONT"_s)), QString());
    EXPECT_EQ(main.photoLists.txtView.Text(), u"POOL"_s);
    EXPECT_EQ(main.photoLists.lblPhotomsg.Caption(), u"A 'FRONT VIEW' for '12 OAK ST' is not available."_s);
    EXPECT_FALSE(main.slots.geamaintain.Picture().isNull()) << "the photo stays on show";
    EXPECT_EQ(main.status.lblmsg.Caption(), u"The FRONT VIEW is the POOL now."_s);
    // A look-up of another record lies between.
    main.records.txtcentralkey.SetText(u"14 ELM ST"_s);
    doubles.prompter.Answer(forms::Answer::Yes);
    main.MenuOver(main.slots.geamaintain);
    main.popPhoto_M.Choose(u"popPhoto_M"_s, 1);
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete this photo?  Are you sure?"_s);
    EXPECT_EQ(main.records.grddatabook.CurrentText(u"PHOTOS"_s), u" "_s);
    EXPECT_TRUE(main.slots.geamaintain.Picture().isNull());
    EXPECT_FALSE(remove.Enabled());
    EXPECT_FALSE(home.disk.FileExists(u"C:\\JPG\\OAK.jpg"_s));
    EXPECT_EQ(main.capture.filCapture.ListCount(), 1) << "its picture waits to be filed again";
    EXPECT_EQ(main.status.lblmsg.Caption(), u"The POOL is deleted; its picture is back in C:\\SNAP\\."_s);
    main.MenuOver(main.slots.geamaintain);
    EXPECT_FALSE(main.popPhoto_M.Entry(u"popPhoto_M"_s, 1)->enabled);
}

TEST_F(MainScreen, TheMenuOfThePhotoOnShowHoldsThatPhoto)
{
    Load();
    main.ShowRecordPhoto();
    StandOnRow(u"12 OAK ST"_s);
    ASSERT_EQ(main.MenuOver(main.slots.geamaintain), &main.popPhoto_M);
    StandOnRow(u"14 ELM ST"_s); // a quick find came to its end while the menu was open
    for (const int entry : {0, 1}) {
        main.popPhoto_M.Choose(u"popPhoto_M"_s, entry);
        EXPECT_EQ(main.status.lblmsg.Caption(),
                  u"Another photo is on show now than when the menu opened. Nothing was done."_s);
    }
    StandOnRow(u"12 OAK ST"_s);
    ASSERT_EQ(main.MenuOver(main.photoLists.lstViews), &main.popPhoto_M);
    home.Put(u"C:\\JPG\\OAK.jpg"_s, "another");
    main.popPhoto_M.Choose(u"popPhoto_M"_s, 1);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"OAK.JPG is another picture now than the one you chose. Nothing was done."_s);
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
    EXPECT_TRUE(home.disk.FileExists(u"C:\\JPG\\OAK.jpg"_s));
}

TEST_F(MainScreen, APhotoThatAnotherUserHasTakenAwayIsTold)
{
    Load();
    main.ShowRecordPhoto();
    StandOnRow(u"12 OAK ST"_s);
    {
        const auto database = engine.OpenDatabase(kDatabook);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        rows->SetIndex(u"CENTRALKEY"_s);
        rows->Seek(u"="_s, u"12 OAK ST"_s);
        ASSERT_FALSE(rows->NoMatch());
        rows->Edit();
        rows->SetValue(u"PHOTOS"_s, u"POOL|ELM\r\n"_s);
        rows->Update();
    }
    Q_EMIT main.photoLists.CmdDeletePhoto.Clicked();
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << "nothing is asked about what is gone";
    EXPECT_EQ(main.status.lblmsg.Caption(), u"12 OAK ST has no FRONT VIEW any more."_s);
    EXPECT_EQ(main.photoLists.lstViews.Items(), QStringList{u"POOL"_s});
    EXPECT_TRUE(home.disk.FileExists(u"C:\\JPG\\OAK.jpg"_s));
}

TEST_F(MainScreen, TheRowShowsItsPhotoAndItsStatus)
{
    Load();
    ASSERT_EQ(Rows(), 2);
    EXPECT_TRUE(main.slots.geamaintain.Picture().isNull()) << "the start leaves the photo to the window";
    main.ShowRecordPhoto();
    StandOnRow(u"12 OAK ST"_s);
    EXPECT_EQ(main.records.txtcentralkey.Text(), u"12 OAK ST"_s);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"12 OAK ST was found in the comp file."_s);
    EXPECT_EQ(main.records.cboapprslType.Text(), u"C=Condo"_s);
    EXPECT_FALSE(main.slots.geamaintain.Picture().isNull());
    EXPECT_EQ(main.photoLists.lblPhotomsg.Caption(), QString());
    StandOnRow(u"14 ELM ST"_s);
    EXPECT_EQ(main.records.txtcentralkey.Text(), u"14 ELM ST"_s);
    EXPECT_TRUE(main.slots.geamaintain.Picture().isNull());
    EXPECT_EQ(main.photoLists.lblPhotomsg.Caption(), u"A 'FRONT VIEW' for '14 ELM ST' is not available."_s);
}

TEST_F(MainScreen, TheRefreshMenuReadsTheReportOrTheGrid)
{
    Load();
    conduit.log.clear();
    Q_EMIT main.mnuRefreshItem.Chosen(u"mnuRefreshItem"_s, 0);
    EXPECT_TRUE(conduit.log.contains(u"item ActiveReports"_s) || conduit.log.contains(u"mode 2"_s));
    AddComp(u"16 ASH ST"_s, {});
    conduit.log.clear();
    Q_EMIT main.mnuRefreshItem.Chosen(u"mnuRefreshItem"_s, 2);
    EXPECT_EQ(Rows(), 3);
    EXPECT_TRUE(conduit.log.isEmpty());
}

TEST_F(MainScreen, TheHouseRefreshesTheReport)
{
    Load();
    conduit.running = true;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,"_s);
    Q_EMIT main.report.imaKel.Clicked();
    EXPECT_TRUE(main.linkState.linkActive);
    EXPECT_EQ(main.addr.txtKelReport.Text(), u"SMITH"_s);
    EXPECT_EQ(main.addr.txtFormType.Text(), u"UA5"_s);
}

TEST_F(MainScreen, TheLineOfTheReportIsTrueWhoeverReadsTheReport)
{
    Load();
    const QString program = main.globals.formsProgram;
    EXPECT_EQ(main.report.lblReport.Caption(), u"No report"_s);
    EXPECT_EQ(main.report.lblLink.Caption(), program + u" is not running"_s);
    EXPECT_EQ(main.report.cmdLink.Caption(), u"Start it"_s);
    conduit.running = true;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,"_s);
    EXPECT_EQ(link::RefreshAppraisal(main.Link()), QString()); // as the question before a drop does
    EXPECT_EQ(main.report.lblReport.Caption(), u"SMITH"_s);
    Q_EMIT main.report.imaKel.Clicked();
    EXPECT_EQ(main.report.lblLink.Caption(), u"Linked to "_s + program);
    EXPECT_FALSE(main.report.cmdLink.Visible());
    conduit.running = false;
    Q_EMIT main.report.imaKel.Clicked();
    EXPECT_EQ(main.report.lblReport.Caption(), u"No report"_s);
    EXPECT_EQ(main.report.lblLink.Caption(), program + u" is not running"_s);
    EXPECT_TRUE(main.report.cmdLink.Visible());
    EXPECT_EQ(main.status.lblmsg.Caption(), program + u" is not running, so the tabs show no report."_s);
    conduit.running = true;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"none"_s);
    Q_EMIT main.report.imaKel.Clicked();
    EXPECT_EQ(main.report.lblLink.Caption(), u"No report is open in "_s + program);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"No report is open in "_s + program + u", so the tabs show none."_s);
}

TEST_F(MainScreen, TheButtonBesideTheLinkDoesWhatItSays)
{
    Load();
    const QString program = main.globals.formsProgram;
    ASSERT_EQ(main.report.cmdLink.Caption(), u"Start it"_s);
    Q_EMIT main.report.cmdLink.Clicked();
    EXPECT_EQ(doubles.prompter.Last().title, u"Unable to Open Program"_s) << "there is none to start";
    conduit.running = true;
    conduit.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
    conduit.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,"_s);
    conduit.FailOnce(u"item ActiveReports"_s, error::kLinkTimeOut, u"No answer in time"_s);
    Q_EMIT main.report.imaKel.Clicked();
    EXPECT_EQ(main.status.lblmsg.Caption(),
              u"The forms program could not be asked for its report, so the tabs show none."_s);
    EXPECT_EQ(main.report.lblLink.Caption(), program + u" does not answer"_s);
    ASSERT_EQ(main.report.cmdLink.Caption(), u"Try again"_s);
    Q_EMIT main.report.cmdLink.Clicked();
    EXPECT_EQ(main.report.lblLink.Caption(), u"Linked to "_s + program);
    EXPECT_EQ(main.report.lblReport.Caption(), u"SMITH"_s);
}

TEST_F(MainScreen, FileExitAndHelpAboutAreHandedToTheWindow)
{
    int exits = 0;
    int abouts = 0;
    QObject::connect(&main, &shell::frm_Main::UnloadWanted, &main, [&] { ++exits; });
    QObject::connect(&main, &shell::frm_Main::AboutWanted, &main, [&] { ++abouts; });
    Q_EMIT main.mnuFileItem.Chosen(u"mnuFileItem"_s, 11);
    Q_EMIT main.mnuHelpItem.Chosen(u"mnuHelpItem"_s, 12);
    EXPECT_EQ(exits, 1);
    EXPECT_EQ(abouts, 1);
}

TEST_F(MainScreen, TheHintLineFollowsADragAndClears)
{
    Load();
    main.drags.Router().DragOver(u"grddatabook"_s, u"txtComp"_s);
    EXPECT_EQ(main.status.lblmsg.Caption(), u"Drop here to paste the comp data in the appraisal"_s);
    main.drags.Router().DragOver(u"grddatabook"_s, u"lstViews"_s);
    EXPECT_EQ(main.status.lblmsg.Caption(), QString());
    main.drags.Router().DragOver(u"grddatabook"_s, u"geaRental"_s);
    EXPECT_EQ(main.status.lblmsg.Caption(),
              u"Drop here to place both the photo and the comp data into the appraisal"_s);
    main.drags.Router().DragOver(u"grddatabook"_s, {});
    EXPECT_EQ(main.status.lblmsg.Caption(), QString());
}

TEST_F(MainScreen, TheDragOfARowCarriesItsKey)
{
    Load();
    StandOnRow(u"14 ELM ST"_s);
    const drops::Drag drag = main.drags.Router().Start(main.records.grddatabook);
    EXPECT_EQ(drag.source, u"grddatabook"_s);
    EXPECT_EQ(drag.key, u"14 ELM ST"_s);
    EXPECT_EQ(drag.index, -1);
}

TEST_F(MainScreen, TheEndSavesSettingsAndLayoutAndClosesTheSources)
{
    Load();
    main.globals.sortGrid = 3;
    home.Put(u"C:\\VAS2000\\tempdat_1.mdb"_s);
    const QString mine = u"C:\\VAS2000\\Report_May.pdf"_s;
    const QString used = u"C:\\VAS2000\\Report_1.mdb"_s;
    const QString left = u"C:\\VAS2000\\Report_999999999.mdb"_s;
    for (const QString& report : {mine, used, left})
        home.Put(report);
    home.Put(u"C:\\VAS2000\\Reports.txt"_s);
    doubles.clock.waits.clear();
    main.Form_Unload();
    EXPECT_EQ(doubles.clock.waits, (std::vector<double>{0.5, 0.2, 0.2, 0.2, 0.2}));
    EXPECT_EQ(Setting(u"PREFERENCES"_s, u"SORTGRID"_s), u"3"_s);
    EXPECT_EQ(Setting(u"DIRECTORIES"_s, u"CAPTUREDIR"_s), u"C:\\SNAP\\"_s);
    const auto layouts = databook::LayoutFile::Read(home.disk, kUserLayouts);
    EXPECT_TRUE(layouts.Find(databook::kCurrentLayout));
    EXPECT_FALSE(main.sources.datDatabook.Bound());
    EXPECT_FALSE(main.sources.datsql.Bound());
    EXPECT_FALSE(main.sources.datComp2Kel_CURRENT.Bound());
    EXPECT_FALSE(home.disk.FileExists(u"C:\\VAS2000\\tempdat_1.mdb"_s));
    EXPECT_TRUE(home.disk.FileExists(mine)) << "no report's database";
    EXPECT_EQ(home.disk.FileExists(used), engine::IsAlive(1, {})) << "of a process that runs";
    EXPECT_FALSE(home.disk.FileExists(left));
    EXPECT_TRUE(home.disk.FileExists(u"C:\\VAS2000\\Reports.txt"_s));
    EXPECT_TRUE(doubles.prompter.Boxes().empty());
}

TEST_F(MainScreen, ASecondEndDoesNothing)
{
    Load();
    main.Form_Unload();
    doubles.clock.waits.clear();
    home.disk.Kill(kUserLayouts);
    main.globals.sortGrid = 4;
    main.Form_Unload();
    EXPECT_TRUE(doubles.clock.waits.empty());
    EXPECT_FALSE(home.disk.FileExists(kUserLayouts));
    EXPECT_EQ(Setting(u"PREFERENCES"_s, u"SORTGRID"_s), u"0"_s);
}

TEST_F(MainScreen, NoLoadKeepsTheUsersLayoutUntilTheEndSavesItAllTheSame)
{
    Load();
    QList<forms::GridColumn> columns = main.records.grddatabook.Columns();
    columns[0].width = 333;
    main.records.grddatabook.SetColumns(columns);
    main.Form_Unload();
    shell::Program secondProgram{home.disk.Home(), {conduit, doubles.Get()}};
    shell::frm_Main second{secondProgram};
    shell::frm_Splash again{doubles.Get()};
    second.Form_load(options, again);
    EXPECT_EQ(second.records.grddatabook.Columns()[0].width, 333);
    second.Form_Unload();

    options.commandLine = u"/NOLOAD"_s;
    shell::Program thirdProgram{home.disk.Home(), {conduit, doubles.Get()}};
    shell::frm_Main third{thirdProgram};
    shell::frm_Splash quiet{doubles.Get()};
    third.Form_load(options, quiet);
    EXPECT_NE(third.records.grddatabook.Columns()[0].width, 333);
    for (int i = 0; i < quiet.lstSplash.ListCount(); ++i)
        EXPECT_FALSE(quiet.lstSplash.List(i).contains(u"Loading Saved Grid Layout"_s));
    third.Form_Unload();
    EXPECT_TRUE(databook::LayoutFile::Read(home.disk, kUserLayouts).Find(databook::kCurrentLayout));
}

class RecordButtons : public MainScreen
{
protected:
    void SetUp() override
    {
        MainScreen::SetUp();
        AddComp(u"16 FIR CT"_s, {});
        for (const QString& pattern :
             {u"NEWDATA.MDB"_s, u"NEWCMTS.MDB"_s}) // the entry screens look phrases up
            store::MakeDatabase(engine, u"C:\\VAS2000\\"_s + pattern);
        Load();
    }
    [[nodiscard]] QString Key() const { return main.records.txtcentralkey.Text(); }
    [[nodiscard]] QString GridKey() const
    {
        return text::Trim(main.records.grddatabook.CurrentText(u"CENTRALKEY"_s));
    }
    [[nodiscard]] QString Said() const { return main.status.lblmsg.Caption(); }
};

TEST_F(RecordButtons, FollowTheAddressThatIsTyped)
{
    auto& desk = main.records;
    EXPECT_TRUE(desk.cmdDelete.Enabled() && desk.cmdCopy.Enabled() && desk.cmdRename.Enabled());
    EXPECT_FALSE(desk.cmdAdd.Enabled());
    desk.cboapprslType.SetText(u"L=Land"_s);
    desk.txtcentralkey.SetText(u"99 New Rd"_s);
    EXPECT_TRUE(desk.cmdAdd.Enabled());
    EXPECT_FALSE(desk.cmdDelete.Enabled() || desk.cmdCopy.Enabled() || desk.cmdRename.Enabled());
    Q_EMIT desk.txtcentralkey.LostFocus();
    EXPECT_EQ(desk.cboapprslType.Text(), u"L=Land"_s) << "the type chosen for a new comp stays";
    desk.txtcentralkey.SetText(u"16 fir ct"_s);
    EXPECT_FALSE(desk.cmdAdd.Enabled());
    EXPECT_TRUE(desk.cmdDelete.Enabled());
    Q_EMIT desk.txtcentralkey.LostFocus();
    EXPECT_EQ(desk.cboapprslType.Text(), u"C=Condo"_s);
}

TEST_F(RecordButtons, AddStandsOnTheNewRow)
{
    main.records.txtcentralkey.SetText(u"15 Pine Rd"_s);
    main.records.cboapprslType.SetText(u"L=Land"_s);
    doubles.prompter.Forget();
    doubles.screens.Play([](forms::Screen&) {});
    Q_EMIT main.records.cmdAdd.Clicked();
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_CompMntL"_s});
    EXPECT_EQ(Rows(), 4);
    EXPECT_EQ(GridKey(), u"15 PINE RD"_s);
    EXPECT_EQ(Key(), u"15 PINE RD"_s);
    EXPECT_EQ(main.records.cboapprslType.Text(), u"L=Land"_s);
    EXPECT_EQ(Said(), u"15 PINE RD was added."_s);
    for (const tests::ShownBox& box : doubles.prompter.Boxes())
        EXPECT_EQ(box.buttons, forms::Buttons::Ok)
            << box.text.toStdString(); // the comment file tells its steps
}

TEST_F(RecordButtons, EditOpensTheScreenOfTheRecordsType)
{
    ASSERT_TRUE(main.records.cmdEdit.Enabled());
    doubles.screens.Play([](forms::Screen&) {});
    Q_EMIT main.records.cmdEdit.Clicked();
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_CompMntC"_s});
}

TEST_F(RecordButtons, DeleteKeepsThePlaceInTheGrid)
{
    StandOnRow(u"14 ELM ST"_s);
    const qint64 row = main.records.grddatabook.Row();
    ASSERT_EQ(row, 1);
    doubles.prompter.Answer(forms::Answer::Yes);
    Q_EMIT main.records.cmdDelete.Clicked();
    EXPECT_EQ(doubles.prompter.Last().text, u"Delete '14 ELM ST'?"_s);
    EXPECT_EQ(Rows(), 2);
    EXPECT_EQ(main.records.grddatabook.Row(), row);
    EXPECT_EQ(Key(), GridKey());
    EXPECT_EQ(Said(), u"14 ELM ST was deleted."_s);
}

TEST_F(RecordButtons, TheLastRecordLeavesAnEmptyGrid)
{
    doubles.prompter.AnswerAlways(forms::Answer::Yes);
    for (int i = 0; i < 3; ++i)
        Q_EMIT main.records.cmdDelete.Clicked();
    EXPECT_EQ(Rows(), 0);
    EXPECT_EQ(main.records.grddatabook.Row(), -1);
    EXPECT_FALSE(home.disk.FileExists(u"C:\\JPG\\OAK.jpg"_s)) << "its picture went too";
}

TEST_F(RecordButtons, CopyAndRenameStandOnTheirRecord)
{
    StandOnRow(u"14 ELM ST"_s);
    for (const auto& [button, name] :
         {std::pair{&main.records.cmdCopy, u"18 Ash St"_s}, {&main.records.cmdRename, u"20 Yew St"_s}}) {
        doubles.screens.Play([name](forms::Screen& screen) {
            auto* box = dynamic_cast<forms::ComboBox*>(screen.controls.Find(u"cboNewName"_s));
            ASSERT_NE(box, nullptr);
            box->SetText(name);
            Q_EMIT screen.controls.Find(u"cmdRename"_s)->Clicked();
        });
        Q_EMIT button->Clicked();
        EXPECT_EQ(GridKey(), name.toUpper());
        EXPECT_EQ(Key(), name.toUpper());
    }
    EXPECT_EQ(Rows(), 4);
}

TEST_F(RecordButtons, CopyAndRenameOfferTheAddressesOfTheReport)
{
    StandOnRow(u"14 ELM ST"_s);
    main.report.txtComp(1).SetText(u"1 Comp St"_s);
    main.report.txtComp(9).SetText(u"14 Elm St"_s); // its own
    main.report.txtAltComp(6).SetText(u"6 Alt St"_s);
    main.report.txtListing(2).SetText(u" 2 List St "_s);
    main.report.txtRental(9).SetText(u"9 Rent St"_s);
    for (forms::Button* button : {&main.records.cmdCopy, &main.records.cmdRename}) {
        bool shown = false;
        doubles.screens.Play([&shown](forms::Screen& screen) {
            shown = true;
            const auto* box = dynamic_cast<forms::ComboBox*>(screen.controls.Find(u"cboNewName"_s));
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->Items(),
                      (QStringList{u"1 Comp St"_s, u"6 Alt St"_s, u"2 List St"_s, u"9 Rent St"_s}));
        });
        Q_EMIT button->Clicked();
        EXPECT_TRUE(shown);
    }
}

TEST_F(RecordButtons, ARecordOutsideTheSearchOnDisplayStaysInTheEntryArea)
{
    auto& state = main.records.state;
    state.sqlText = u"SELECT COMPS.CENTRALKEY FROM COMPS WHERE COMPS.CENTRALKEY LIKE '14*'"_s;
    state.searchOnDisplay = true;
    main.DisplayAllRecords();
    ASSERT_EQ(Rows(), 1);
    main.records.txtcentralkey.SetText(u"15 Pine Rd"_s);
    main.records.cboapprslType.SetText(u"L=Land"_s);
    doubles.screens.Play([](forms::Screen&) {});
    Q_EMIT main.records.cmdAdd.Clicked();
    EXPECT_EQ(Rows(), 1);
    EXPECT_EQ(Key(), u"15 PINE RD"_s);
    EXPECT_TRUE(main.records.cmdDelete.Enabled());
}

TEST_F(RecordButtons, PendingSalesThatSearchesLeaveOutAreShownWithoutASearch)
{
    main.globals.ignorePending = 1;
    main.records.txtcentralkey.SetText(u"15 Pine Rd"_s);
    main.records.cboapprslType.SetText(u"L=Land"_s);
    doubles.screens.Play([](forms::Screen&) {});
    Q_EMIT main.records.cmdAdd.Clicked();
    ASSERT_EQ(store::GetFieldData(main.sources.datDatabook, u"SALEDATE"_s), u"01/01/1900"_s);
    main.records.state.searchOnDisplay = false;
    main.DisplayAllRecords();
    EXPECT_EQ(Rows(), 4);
}

TEST_F(RecordButtons, CityEditingShowsWhatItChanged)
{
    StandOnRow(u"14 ELM ST"_s);
    doubles.screens.Play([](forms::Screen& screen) {
        EXPECT_EQ(screen.Name(), u"frm_MassCity"_s);
        while (dynamic_cast<forms::Label*>(screen.controls.Find(u"lblCentralKey"_s))->Caption() !=
               u"14 ELM ST"_s)
            Q_EMIT screen.controls.Find(u"cmdnext"_s)->Clicked();
        dynamic_cast<forms::TextBox*>(screen.controls.Find(u"txtCity"_s))->SetText(u"Marlow"_s);
        Q_EMIT screen.controls.Find(u"cmdOk"_s)->Clicked();
    });
    main.mnuMaintItem.Choose(u"mnuMaintItem"_s, 3);
    EXPECT_EQ(doubles.screens.Shown(), QStringList{u"frm_MassCity"_s});
    EXPECT_EQ(GridKey(), u"14 ELM ST"_s);
    EXPECT_EQ(text::Trim(main.records.grddatabook.CurrentText(u"CITY"_s)), u"Marlow"_s);
}

} // namespace
