#include "shell/frm_splash.h"
#include "shell/g_shell.h"
#include "shell/ini_location.h"
#include "shell/start_up.h"
#include "shell/tracer.h"
#include "support/scripted_ports.h"
#include "support/temp_home.h"

#include <gtest/gtest.h>

#include <QMap>

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;
using shell::IniKind;
using shell::Silence;

namespace {

struct SwitchRow
{
    const char* name;
    QString line;
    bool debug, trace, silent, pumpAlways, noLoad;
};

class SwitchesTest : public testing::TestWithParam<SwitchRow>
{};

TEST_P(SwitchesTest, ReadFromTheWholeLine)
{
    const SwitchRow& row = GetParam();
    const shell::Switches switches(row.line);
    EXPECT_EQ(switches.debug, row.debug);
    EXPECT_EQ(switches.trace, row.trace);
    EXPECT_EQ(switches.silent, row.silent);
    EXPECT_EQ(switches.pumpAlways, row.pumpAlways);
    EXPECT_EQ(switches.noLoad, row.noLoad);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, SwitchesTest,
    testing::Values(SwitchRow{"empty", u""_s, false, false, false, false, false},
                    SwitchRow{"debug_alone", u"/d"_s, true, true, false, false, false},
                    SwitchRow{"debug_with_more", u"/D /S"_s, false, true, true, false, false},
                    SwitchRow{"noload", u"/NoLoad"_s, false, false, false, false, true},
                    SwitchRow{"no_load", u"x /no load"_s, false, false, false, false, true},
                    SwitchRow{"pump", u"/2"_s, false, false, false, true, false}),
    [](const auto& row) { return std::string(row.param.name); });

struct Start : testing::Test
{
    tests::TempHome home;
    tests::TestPorts ports;
    shell::SystemPlaces places{u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VASCLIP\\"_s, false};

    void Dir(const QString& path) { home.disk.MkDir(path); }
    void File(const QString& path) { home.disk.WriteWhole(path, "[X]\r\n"); }
};

TEST_F(Start, TheAppraiseDirectoryOfTheSystemDriveIsPreferred)
{
    Dir(u"C:\\Appraise"_s);
    const auto found = shell::GetIniDir(home.disk, ports.prompter, places);
    EXPECT_EQ(found.directory, u"C:\\APPRAISE\\"_s);
    EXPECT_EQ(found.preferred, u"C:\\APPRAISE\\"_s);
}

TEST_F(Start, WithoutItTheWindowsDirectoryStandsSilently)
{
    const auto found = shell::GetIniDir(home.disk, ports.prompter, places);
    EXPECT_EQ(found.directory, u"C:\\WINDOWS\\"_s);
    EXPECT_EQ(found.preferred, QString());
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST_F(Start, OnVistaThePlacementIsNoticedOnceAndTheStartGoesOn)
{
    places.isVista = true;
    const auto found = shell::GetIniDir(home.disk, ports.prompter, places);
    EXPECT_EQ(found.directory, u"C:\\WINDOWS\\"_s);
    ASSERT_EQ(ports.prompter.Boxes().size(), 1u);
    EXPECT_EQ(ports.prompter.Boxes()[0].title, u"NON-STANDARD INI FILE PLACEMENT"_s);
    EXPECT_EQ(ports.prompter.Boxes()[0].text,
              u"Reinstall this program to correct INI placement and avoid potential configuration errors."_s);
}

TEST_F(Start, WithNoDirectoryAtAllTheExecutablesStands)
{
    places.windowsDirectory.clear();
    EXPECT_EQ(shell::GetIniDir(home.disk, ports.prompter, places).directory, u"C:\\VASCLIP\\"_s);
}

TEST_F(Start, AnIniFoundOnlyInTheWindowsDirectoryIsTaken)
{
    Dir(u"C:\\APPRAISE"_s);
    Dir(u"C:\\WINDOWS"_s);
    File(u"C:\\WINDOWS\\kel.ini"_s);
    EXPECT_EQ(shell::LocateIni(home.disk, ports.prompter, u"KEL.INI"_s, IniKind::Appraisal,
                               u"C:\\APPRAISE\\"_s, u"C:\\WINDOWS"_s, Silence::Ask),
              u"C:\\WINDOWS\\KEL.INI"_s);
}

TEST_F(Start, AMissingAppraisalIniAsksAndYesGoesOnWithThePrimaryPath)
{
    ports.prompter.Answer(forms::Answer::Yes);
    EXPECT_EQ(shell::LocateIni(home.disk, ports.prompter, u"KEL.INI"_s, IniKind::Appraisal,
                               u"C:\\APPRAISE\\"_s, u"C:\\WINDOWS\\"_s, Silence::Ask),
              u"C:\\APPRAISE\\KEL.INI"_s);
    ASSERT_EQ(ports.prompter.Boxes().size(), 1u);
    EXPECT_EQ(ports.prompter.Boxes()[0].title, u"Configuration File Missing"_s);
    EXPECT_EQ(ports.prompter.Boxes()[0].buttons, forms::Buttons::YesNoCancel);
    EXPECT_EQ(
        ports.prompter.Boxes()[0].text,
        u"Appraisal KEL.INI configuration file is missing from C:\\APPRAISE\\ (primary location) and "
        u"C:\\WINDOWS\\ (secondary location). DO you wish to coninue? (You will not be able to transfer "
        u"pictures into the appraisal program)"_s);
}

TEST_F(Start, AMissingApplicationIniInOnePlaceHasItsOwnText)
{
    ports.prompter.Answer(forms::Answer::Yes);
    (void)shell::LocateIni(home.disk, ports.prompter, u"VAS2000.INI"_s, IniKind::Application,
                           u"C:\\WINDOWS\\"_s, u"C:\\WINDOWS\\"_s, Silence::Ask);
    ASSERT_EQ(ports.prompter.Boxes().size(), 1u);
    EXPECT_EQ(ports.prompter.Boxes()[0].text, u"VAS2000.INI configuration file is missing from C:\\WINDOWS\\ "
                                              u". DO you wish to coninue? (Program may "
                                              u"not function correctly)"_s);
}

TEST_F(Start, OneDirectoryIsOneHoweverItIsSpelled)
{
    Dir(u"C:\\WINDOWS"_s);
    const QString wanted = u"KEL.INI configuration file is missing from C:\\WINDOWS\\ . DO you wish to coninue? "_s;
    const QString native = home.disk.ToNative(u"C:\\WINDOWS"_s);
    for (const QString& windows : {u"C:\\WINDOWS"_s, u"c:\\windows\\"_s, *home.disk.ToDrivePath(native)}) {
        ports.prompter.Answer(forms::Answer::Yes);
        (void)shell::LocateIni(home.disk, ports.prompter, u"KEL.INI"_s, IniKind::Appraisal, u"C:\\WINDOWS\\"_s,
                               windows, Silence::Ask);
        EXPECT_TRUE(ports.prompter.Last().text.contains(wanted)) << ports.prompter.Last().text.toStdString();
    }
    ports.prompter.Answer(forms::Answer::Yes);
    (void)shell::LocateIni(home.disk, ports.prompter, u"KEL.INI"_s, IniKind::Appraisal, u"C:\\WINDOWS\\"_s,
                           u"Q:\\WINDOWS"_s, Silence::Ask);
    EXPECT_TRUE(ports.prompter.Last().text.contains(u"(secondary location)"_s)) << "its drive is not there";
}

TEST(TakeSwitches, FindsThemInAnyPlaceAndLeavesOptionsTheirValues)
{
    struct Row
    {
        QStringList given, taken, kept;
    };
    const Row rows[] = {
        {{u"p"_s, u"/NO"_s, u"LOAD"_s}, {u"/NO LOAD"_s}, {u"p"_s}},
        {{u"p"_s, u"/NO"_s, u"LOAD"_s, u"/D"_s}, {u"/NO LOAD"_s, u"/D"_s}, {u"p"_s}},
        {{u"p"_s, u"/d"_s, u"/no"_s, u"load"_s, u"/S"_s}, {u"/d"_s, u"/no load"_s, u"/S"_s}, {u"p"_s}},
        {{u"p"_s, u"/NO LOAD"_s, u"/2"_s}, {u"/NO LOAD"_s, u"/2"_s}, {u"p"_s}},
        {{u"p"_s, u"/noload"_s}, {u"/noload"_s}, {u"p"_s}},
        {{u"p"_s, u"--home"_s, u"/D"_s, u"/NO"_s, u"LOAD"_s, u"--today"_s, u"x"_s},
         {u"/NO LOAD"_s},
         {u"p"_s, u"--home"_s, u"/D"_s, u"--today"_s, u"x"_s}},
        {{u"p"_s, u"--home=x"_s, u"/S"_s}, {u"/S"_s}, {u"p"_s, u"--home=x"_s}},
    };
    for (const Row& row : rows) {
        QStringList arguments = row.given;
        EXPECT_EQ(shell::TakeSwitches(arguments), row.taken) << row.given.join(u' ').toStdString();
        EXPECT_EQ(arguments, row.kept) << row.given.join(u' ').toStdString();
        EXPECT_EQ(shell::Switches(row.taken.join(u' ')).noLoad, row.taken.join(u' ').contains(u"load"_s, Qt::CaseInsensitive));
    }
}

TEST_F(Start, AnyAnswerButYesEndsTheProgram)
{
    for (const auto answer : {forms::Answer::No, forms::Answer::Cancel}) {
        ports.prompter.Answer(answer);
        EXPECT_THROW((void)shell::LocateIni(home.disk, ports.prompter, u"KEL.INI"_s, IniKind::Appraisal,
                                            u"C:\\APPRAISE\\"_s, u"C:\\WINDOWS\\"_s, Silence::Ask),
                     forms::EndOfProgram);
    }
}

TEST_F(Start, ASilentSearchAsksNothing)
{
    EXPECT_EQ(shell::LocateIni(home.disk, ports.prompter, u"mappoint.ini"_s, IniKind::Application,
                               u"C:\\APPRAISE\\"_s, u"C:\\WINDOWS\\"_s, Silence::Silent),
              u"C:\\APPRAISE\\MAPPOINT.INI"_s);
    EXPECT_TRUE(ports.prompter.Boxes().empty());
}

TEST_F(Start, TheTraceShowsItsCounterTextAndDetail)
{
    shell::Tracer tracer(shell::Switches(u"/D"_s), ports.Get());
    tracer.TraceStep(u"ReadGlobals"_s, u"x.jpg"_s);
    tracer.TraceStep(u"LoadMenu"_s);
    ASSERT_EQ(ports.prompter.Boxes().size(), 2u);
    EXPECT_EQ(ports.prompter.Boxes()[0].text, u"1:ReadGlobals,x.jpg"_s);
    EXPECT_EQ(ports.prompter.Boxes()[1].text, u"2:LoadMenu,"_s);
}

TEST_F(Start, ASilentTraceLeavesOutPicturesAndPumpsNothing)
{
    shell::Tracer tracer(shell::Switches(u"/D /S"_s), ports.Get());
    tracer.TraceStep(u"Show"_s, u"C:\\A.JPG"_s);
    tracer.TraceStep(u"Show"_s, u"C:\\A.TXT"_s);
    EXPECT_EQ(ports.prompter.Boxes().size(), 1u);
    tracer.Pump();
    EXPECT_EQ(ports.pump.turns, 0);
    EXPECT_EQ(tracer.Steps(), 2);
}

TEST_F(Start, TheSplashAppendsTimedLinesAndMovesItsGaugeByTwo)
{
    ports.clock.now = QDateTime(QDate(2026, 6, 30), QTime(9, 5, 7));
    shell::frm_Splash splash(ports.Get());
    splash.ShowSplashStatus(u"Loading Configuration Settings"_s);
    splash.ShowSplashStatus(u"Finalizing Start-up"_s);
    EXPECT_EQ(splash.lstSplash.List(0), u"9:05:07 AM - Loading Configuration Settings"_s);
    EXPECT_EQ(splash.lstSplash.ListIndex(), 1);
    EXPECT_EQ(splash.gauProgress.Value(), 4);
}

TEST(ShellErrors, EachResultHasItsSentence)
{
    const QMap<int, QString> own{
        {0, u"Out of memory"_s},
        {2, u"File not found"_s},
        {3, u"Path not found"_s},
        {5, u"Path/file access error"_s},
        {8, u"Out of memory"_s},
        {11, u"The executable file is invalid or corrupt"_s},
        {26, u"A sharing violation occurred."_s},
        {27, u"This file type does not have a valid file association."_s},
        {28, u"The file could not be opened due to time out. Please try again in a moment."_s},
        {29, u"The file could not be opened because the DDE transaction failed. Please try again in a moment."_s},
        {30,
         u"The file could not be opened because the target application is busy. Please try again in a moment."_s},
        {31, u"No application is associated with this file type."_s},
        {32, u"The specified dynamic-link library was not found."_s},
    };
    const QString other = u"An error occurred occurred whilst trying to open or print the selected file."_s;
    for (int result = 0; result <= 32; ++result)
        EXPECT_EQ(shell::ShellErrorText(result), own.value(result, other)) << result;
}

} // namespace
