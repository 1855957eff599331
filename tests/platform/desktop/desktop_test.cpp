#include "platform/desktop/desktop.h"

#include "support/error_number.h"
#include "support/temp_home.h"

#include <QFile>

#include <gtest/gtest.h>

#include <functional>

#include <unistd.h>

namespace vasclip::desktop {
namespace {

using tests::TempHome;

/// A search path with openers of our own, which note what they were given and answer as told.
class Shell : public testing::Test
{
protected:
    TempHome home;
    QByteArray oldPath;

    void SetUp() override
    {
        oldPath = qgetenv("PATH");
        home.MakeDirs(QStringLiteral("C:\\Bin"));
        home.Put(QStringLiteral("C:\\P\\comp photo.jpg"));
        qputenv("PATH", QFile::encodeName(home.Native(QStringLiteral("drive_c/Bin"))));
    }
    void TearDown() override { qputenv("PATH", oldPath); }

    void PutProgram(const QString& path, const QByteArray& lines)
    {
        home.Put(path, "#!/bin/sh\n" + lines + "\n");
        QFile::setPermissions(home.disk.ToNative(path),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QByteArray Noted() const { return QFile::encodeName(home.Native(QStringLiteral("noted"))); }
    [[nodiscard]] QByteArray ReadNote() const
    {
        for (int tries = 0; tries < 500; ++tries) {
            QFile file(home.Native(QStringLiteral("noted")));
            if (file.open(QIODevice::ReadOnly)) {
                const QByteArray note = file.readAll();
                if (note.endsWith('\n'))
                    return note.trimmed();
            }
            usleep(10'000);
        }
        return {};
    }
    [[nodiscard]] int Open(const char16_t* verb, const char16_t* file) const
    {
        return ShellOpen(home.disk, QString::fromUtf16(verb), QString::fromUtf16(file));
    }
};

TEST_F(Shell, TellsWhatIsMissing)
{
    EXPECT_EQ(Open(u"open", u"C:\\P\\none.jpg"), kShellFileNotFound);
    EXPECT_EQ(Open(u"open", u"C:\\none\\a.jpg"), kShellPathNotFound);
    EXPECT_EQ(Open(u"open", u"Q:\\a.jpg"), kShellPathNotFound);
    EXPECT_EQ(Open(u"open", u"a.jpg"), kShellFileNotFound);
    EXPECT_EQ(Open(u"open", u""), kShellFileNotFound);
    EXPECT_EQ(Open(u"open", u"C:\\P\\comp photo.jpg"), kShellNoAssociation) << "no opener on this system";
    EXPECT_EQ(Open(u"print", u"C:\\P\\comp photo.jpg"), kShellNoAssociation);
    EXPECT_EQ(Open(u"dance", u"C:\\P\\comp photo.jpg"), kShellNoAssociation);
    EXPECT_EQ(ShellOpen(home.disk, QString(), QStringLiteral("C:\\P\\comp photo.jpg"), QString(),
                        QStringLiteral("C:\\none")),
              kShellPathNotFound);
}

TEST_F(Shell, AsksTheOpener)
{
    PutProgram(QStringLiteral("C:\\Bin\\xdg-open"), "echo \"$1\" > " + Noted());
    EXPECT_EQ(Open(u"", u"c:\\p\\COMP PHOTO.JPG"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(QStringLiteral("drive_c/P/comp photo.jpg"))));
    EXPECT_EQ(Open(u"open", u"https://example.org/a?b=c"), kShellDone);
    EXPECT_EQ(ReadNote(), "https://example.org/a?b=c");
    EXPECT_EQ(Open(u"explore", u"C:\\P"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(QStringLiteral("drive_c/P"))));

    PutProgram(QStringLiteral("C:\\Bin\\xdg-open"), "exit 3");
    EXPECT_EQ(Open(u"open", u"C:\\P\\comp photo.jpg"), kShellNoAssociation);
    PutProgram(QStringLiteral("C:\\Bin\\xdg-open"), "exit 2");
    EXPECT_EQ(Open(u"open", u"C:\\P\\comp photo.jpg"), kShellFileNotFound);
}

TEST_F(Shell, StartsPrograms)
{
    PutProgram(QStringLiteral("C:\\P\\tool.exe"), "echo \"$1|$2|$PWD\" > " + Noted());
    EXPECT_EQ(ShellOpen(home.disk, QStringLiteral("open"), QStringLiteral("C:\\P\\TOOL.EXE"),
                        QStringLiteral("/D \"two words\""), QStringLiteral("C:\\bin")),
              kShellDone);
    EXPECT_EQ(ReadNote(), "/D|two words|" + QFile::encodeName(home.Native(QStringLiteral("drive_c/Bin"))));
    EXPECT_FALSE(StartProgram(home.Native(QStringLiteral("drive_c/P/none")), {}));
}

TEST_F(Shell, PrintsThroughTheSpooler)
{
    PutProgram(QStringLiteral("C:\\Bin\\lp"), "echo \"$2\" > " + Noted());
    EXPECT_EQ(Open(u"print", u"C:\\P\\comp photo.jpg"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(QStringLiteral("drive_c/P/comp photo.jpg"))));
}

TEST(FileVersions, StandBesideTheFile)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\KEL\\Kel.exe"));
    const QString native = home.disk.ToNative(QStringLiteral("C:\\KEL\\KEL.EXE"));
    EXPECT_EQ(FileVersion(native), QString());
    home.Put(QStringLiteral("C:\\KEL\\Kel.exe.version"), "7.1.0.3\r\nmore\n");
    EXPECT_EQ(FileVersion(native), QStringLiteral("7.1.0.3"));
    home.disk.Kill(QStringLiteral("C:\\KEL\\Kel.exe"));
    EXPECT_EQ(FileVersion(native), QString()) << "without the file there is no version";
}

TEST(SystemFacts, AreDrivePaths)
{
    EXPECT_EQ(SystemDirectory(), QStringLiteral("C:\\WINDOWS\\SYSTEM32"));
    EXPECT_EQ(WindowsDirectory(), QStringLiteral("C:\\WINDOWS"));
    EXPECT_EQ(ReadSystemVersion().major, 6);
    EXPECT_EQ(ReadSystemVersion({5, 1, 2600, true, QStringLiteral("Service Pack 3")}).minor, 1);
    EXPECT_EQ(FindWindowCaption(QStringLiteral("ClassKel")), QString());
}

} // namespace
} // namespace vasclip::desktop
