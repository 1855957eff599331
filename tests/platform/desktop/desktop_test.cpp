#include "platform/desktop/desktop.h"

#include "support/error_number.h"
#include "support/temp_home.h"

#include <QFile>
#include <QThread>

#include <gtest/gtest.h>

#include <functional>

using namespace Qt::StringLiterals;

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
        home.MakeDirs(u"C:\\Bin"_s);
        home.Put(u"C:\\P\\comp photo.jpg"_s);
        qputenv("PATH", QFile::encodeName(home.Native(u"drive_c/Bin"_s)));
    }
    void TearDown() override { qputenv("PATH", oldPath); }

    void PutProgram(const QString& path, const QByteArray& lines)
    {
        home.Put(path, "#!/bin/sh\n" + lines + "\n");
        QFile::setPermissions(home.disk.ToNative(path),
                              QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }
    [[nodiscard]] QByteArray Noted() const { return QFile::encodeName(home.Native(u"noted"_s)); }
    [[nodiscard]] QByteArray ReadNote() const
    {
        for (int tries = 0; tries < 500; ++tries) {
            QFile file(home.Native(u"noted"_s));
            if (file.open(QIODevice::ReadOnly)) {
                const QByteArray note = file.readAll();
                if (note.endsWith('\n'))
                    return note.trimmed();
            }
            QThread::msleep(10);
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
    EXPECT_EQ(ShellOpen(home.disk, QString(), u"C:\\P\\comp photo.jpg"_s, QString(), u"C:\\none"_s),
              kShellPathNotFound);
}

TEST_F(Shell, AsksTheOpener)
{
    PutProgram(u"C:\\Bin\\xdg-open"_s, "echo \"$1\" > " + Noted());
    EXPECT_EQ(Open(u"", u"c:\\p\\COMP PHOTO.JPG"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(u"drive_c/P/comp photo.jpg"_s)));
    EXPECT_EQ(Open(u"open", u"https://example.org/a?b=c"), kShellDone);
    EXPECT_EQ(ReadNote(), "https://example.org/a?b=c");
    EXPECT_EQ(Open(u"explore", u"C:\\P"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(u"drive_c/P"_s)));

    PutProgram(u"C:\\Bin\\xdg-open"_s, "exit 3");
    EXPECT_EQ(Open(u"open", u"C:\\P\\comp photo.jpg"), kShellNoAssociation);
    PutProgram(u"C:\\Bin\\xdg-open"_s, "exit 2");
    EXPECT_EQ(Open(u"open", u"C:\\P\\comp photo.jpg"), kShellFileNotFound);
}

TEST_F(Shell, StartsPrograms)
{
    PutProgram(u"C:\\P\\tool.exe"_s, "echo \"$1|$2|$PWD\" > " + Noted());
    EXPECT_EQ(ShellOpen(home.disk, u"open"_s, u"C:\\P\\TOOL.EXE"_s, u"/D \"two words\""_s, u"C:\\bin"_s),
              kShellDone);
    EXPECT_EQ(ReadNote(), "/D|two words|" + QFile::encodeName(home.Native(u"drive_c/Bin"_s)));
    EXPECT_FALSE(StartProgram(home.Native(u"drive_c/P/none"_s), {}));
}

TEST_F(Shell, PrintsThroughTheSpooler)
{
    PutProgram(u"C:\\Bin\\lp"_s, "echo \"$2\" > " + Noted());
    EXPECT_EQ(Open(u"print", u"C:\\P\\comp photo.jpg"), kShellDone);
    EXPECT_EQ(ReadNote(), QFile::encodeName(home.Native(u"drive_c/P/comp photo.jpg"_s)));
}

TEST(SystemFacts, AreDrivePaths)
{
    EXPECT_EQ(SystemDirectory(), u"C:\\WINDOWS\\SYSTEM32"_s);
    EXPECT_EQ(WindowsDirectory(), u"C:\\WINDOWS"_s);
    EXPECT_EQ(ReadSystemVersion().major, 6);
    EXPECT_EQ(ReadSystemVersion({5, 1, 2600, true, u"Service Pack 3"_s}).minor, 1);
    EXPECT_EQ(FindWindowCaption(u"ClassKel"_s), QString());
}

} // namespace
} // namespace vasclip::desktop
