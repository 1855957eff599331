#include "platform/desktop/desktop.h"
#include "platform/desktop/terminal.h"

#include "support/temp_home.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <gtest/gtest.h>

#include <windows.h>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {
namespace {

using tests::TempHome;

TEST(TerminalOutput, TakesUtf8AndCodesWhileItStands)
{
    if (GetConsoleWindow() == nullptr && !AllocConsole())
        GTEST_SKIP() << "no console is to be had";
    const UINT before = GetConsoleOutputCP();
    ASSERT_TRUE(SetConsoleOutputCP(437));
    {
        const TerminalOutput output;
        EXPECT_EQ(GetConsoleOutputCP(), UINT(CP_UTF8));
        const TerminalOutput within; // of which the inner one has nothing to put back
    }
    EXPECT_EQ(GetConsoleOutputCP(), 437U);
    SetConsoleOutputCP(before);
}

TEST(FileVersions, StandInTheFile)
{
    int count = 1;
    char name[] = "test_desktop";
    char* names[] = {name, nullptr};
    const QCoreApplication application(count, names);
    const QString programs = QCoreApplication::applicationDirPath();
    EXPECT_EQ(FileVersion(programs + u"/vasctl.exe"_s), u"" VASCLIP_VERSION ".0"_s);
    EXPECT_EQ(FileVersion(programs + u"/none.exe"_s), QString());
    const TempHome home;
    home.Put(u"C:\\P\\text.exe"_s, "no program");
    EXPECT_EQ(FileVersion(home.disk.ToNative(u"C:\\P\\text.exe"_s)), QString());
}

TEST(Shell, TellsWhatIsMissing)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.nokind"_s);
    EXPECT_EQ(ShellOpen(home.disk, u"open"_s, u"C:\\P\\none.jpg"_s), kShellFileNotFound);
    EXPECT_EQ(ShellOpen(home.disk, u"open"_s, u"Q:\\a.jpg"_s), kShellPathNotFound);
    EXPECT_EQ(ShellOpen(home.disk, u"open"_s, u"C:\\P\\a.nokind"_s), kShellNoAssociation);
}

TEST(SystemColours, AreAskedForOnlyWhileTheApplicationIsMade)
{
    const QByteArray before = qgetenv("QT_QPA_PLATFORM");
    qunsetenv("QT_QPA_PLATFORM");
    {
        const SystemColours colours;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "windows:darkmode=2");
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) << "programs that are started later";
    qputenv("QT_QPA_PLATFORM", "offscreen");
    {
        const SystemColours colours;
        EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "offscreen") << "what the user has chosen";
    }
    EXPECT_EQ(qgetenv("QT_QPA_PLATFORM"), "offscreen");
    qputenv("QT_QPA_PLATFORM", before);
}

TEST(SystemFacts, AreThoseOfTheMachine)
{
    EXPECT_TRUE(QFileInfo(SystemDirectory()).isDir()) << SystemDirectory().toStdString();
    EXPECT_TRUE(QFileInfo(WindowsDirectory()).isDir()) << WindowsDirectory().toStdString();
    EXPECT_GE(ReadSystemVersion().major, 6);
    EXPECT_TRUE(ReadSystemVersion().isNt);
    EXPECT_EQ(FindWindowCaption(u"No such class"_s), QString());
    EXPECT_TRUE(CanShowWindows());
}

TEST(Programs, AreStartedInADirectory)
{
    const TempHome home;
    home.MakeDirs(u"C:\\P"_s);
    EXPECT_FALSE(StartProgram(home.Native(u"drive_c/P/none.exe"_s), {}));
    EXPECT_TRUE(StartProgram(u"cmd.exe"_s, {u"/c"_s, u"exit"_s}, home.disk.ToNative(u"C:\\P"_s)));
}

} // namespace
} // namespace vasclip::desktop
