#include "platform/desktop/desktop.h"
#include "platform/desktop/one_copy.h"
#include "platform/desktop/terminal.h"

#include "support/temp_home.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QThread>

#include <gtest/gtest.h>

#include <memory>

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

/// By the system's name alone: nothing can be written into this home.
TEST(OneCopy, IsOneOnAHomeThatTakesNoMark)
{
    const TempHome home;
    const QString none = home.Native(u"None here"_s);
    auto first = std::make_unique<OneCopy>(none);
    EXPECT_TRUE(first->IsFirst());
    {
        const OneCopy second(home.Native(u"NONE/../none HERE/"_s)); // by another spelling
        EXPECT_FALSE(second.IsFirst());
        EXPECT_EQ(second.OtherProcess(), 0);
    }
    EXPECT_FALSE(OneCopy(none).IsFirst());
    EXPECT_TRUE(OneCopy(home.Native(u"None there"_s)).IsFirst());
    first.reset();
    EXPECT_TRUE(OneCopy(none).IsFirst());
}

/// The resource of a program that says how Windows is to treat it.
QByteArray ManifestOf(const QString& program)
{
    const HMODULE file = LoadLibraryExW(reinterpret_cast<const wchar_t*>(program.utf16()), nullptr, LOAD_LIBRARY_AS_DATAFILE);
    const HRSRC place = file ? FindResourceW(file, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(24)) : nullptr;
    const HGLOBAL loaded = place ? LoadResource(file, place) : nullptr;
    const QByteArray text = loaded ? QByteArray(static_cast<const char*>(LockResource(loaded)), int(SizeofResource(file, place)))
                                   : QByteArray();
    if (file)
        FreeLibrary(file);
    return text;
}

TEST(Programs, TellWindowsWhatTheyTake)
{
    int count = 1;
    char name[] = "test_desktop";
    char* names[] = {name, nullptr};
    const QCoreApplication application(count, names);
    for (const auto& program : {u"vasclip"_s, u"vasctl"_s, u"kelforms"_s, u"vasclip-demo"_s}) {
        const QByteArray manifest = ManifestOf(QCoreApplication::applicationDirPath() + u'/' + program + u".exe"_s);
        for (const char* wanted : {">PerMonitorV2</dpiAwareness>", ">true</longPathAware>", ">UTF-8</activeCodePage>", "level=\"asInvoker\"",
                                   "Microsoft.Windows.Common-Controls"})
            EXPECT_TRUE(manifest.contains(wanted)) << program.toStdString() << ": " << wanted;
        EXPECT_EQ(FileVersion(QCoreApplication::applicationDirPath() + u'/' + program + u".exe"_s), u"" VASCLIP_VERSION ".0"_s);
    }
}

TEST(Shell, OpensAFileByItsKindInADirectory)
{
    const TempHome home;
    const QString directory = u"C:\\Fotos für Łódź"_s;
    home.Put(directory + u"\\comp note.cmd"_s, "@echo %~1> \"%~dp0told.txt\"\r\n");
    ASSERT_EQ(ShellOpen(home.disk, u"open"_s, directory + u"\\comp note.cmd"_s, u"\"two words\""_s, directory), kShellDone);
    constexpr int kLongMs = 20'000;
    QElapsedTimer waiting;
    for (waiting.start(); !home.disk.FileExists(directory + u"\\told.txt"_s) && waiting.elapsed() < kLongMs;)
        QThread::msleep(50);
    EXPECT_EQ(home.disk.ReadWhole(directory + u"\\told.txt"_s).trimmed(), "two words");
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
