#include "platform/files/disk.h"

#include "platform/files/profile.h"
#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/temp_home.h"

#include <QDateTime>
#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include <functional>

#include <csignal>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::NumberOf;
using tests::TempHome;

/// Runs a step in a process of its own. @return its answer; 250 and up when it could not run
int InChild(const std::function<int()>& step)
{
    const pid_t child = fork();
    if (child == 0)
        _exit(step());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 255;
}

/// Rights bind only users that are not root.
int AsUser(const std::function<int()>& step)
{
    return InChild([&] {
        constexpr uid_t kNobody = 65534;
        if (geteuid() == 0 && (setegid(kNobody) != 0 || seteuid(kNobody) != 0))
            return 254;
        return step();
    });
}

class Rights : public testing::Test
{
protected:
    TempHome home;

    void SetUp() override
    {
        home.Put(u"C:\\P\\a.jpg"_s, QByteArrayLiteral("old"));
        home.Put(u"C:\\Open\\b.jpg"_s, QByteArrayLiteral("new"));
        // The way to the home must be open to all, the directory under test to nobody.
        chmod(QFile::encodeName(QDir(home.disk.Home() + u"/.."_s).canonicalPath()).constData(), 0755);
        chmod(Native(u"drive_c/Open").constData(), 0777);
        chmod(Native(u"drive_c/P").constData(), 0555);
    }
    void TearDown() override { chmod(Native(u"drive_c/P").constData(), 0755); }

    [[nodiscard]] QByteArray Native(const char16_t* below) const
    {
        return QFile::encodeName(home.Native(QString::fromUtf16(below)));
    }
};

TEST_F(Rights, AClosedDirectoryRefusesChanges)
{
    const QString inside = u"C:\\P\\a.jpg"_s;
    const QString open = u"C:\\Open\\b.jpg"_s;
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.WriteWhole(inside, "x"); }); }),
              error::kPermissionDenied);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.FileCopy(open, inside); }); }),
              error::kPermissionDenied);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.Kill(inside); }); }), error::kPathFileAccess);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.Name(inside, u"C:\\P\\c.jpg"_s); }); }),
              error::kPathFileAccess);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.MkDir(u"C:\\P\\sub"_s); }); }),
              error::kPathFileAccess);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { home.disk.FileCopy(inside, u"C:\\Open\\c.jpg"_s); }); }), 0)
        << "reading is allowed";
    EXPECT_EQ(AsUser([&] {
                  return int(WritePrivateProfileString(home.disk, u"S"_s, u"K"_s, u"V"_s, u"C:\\P\\x.ini"_s));
              }),
              0);
    EXPECT_EQ(home.disk.ReadWhole(inside), "old");
    EXPECT_EQ(home.disk.Dir(u"C:\\P\\*"_s, Directory), QStringList{u"a.jpg"_s});
}

TEST_F(Rights, ADirectoryThatCannotBeReadSaysSo)
{
    chmod(Native(u"drive_c/P").constData(), 0000);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { (void)home.disk.Dir(u"C:\\P\\*"_s); }); }),
              error::kPathFileAccess);
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { (void)home.disk.ReadWhole(u"C:\\P\\a.jpg"_s); }); }),
              error::kPathFileAccess);
    EXPECT_EQ(AsUser([&] { return int(home.disk.FileExists(u"C:\\P\\a.jpg"_s)); }), 0);
}

TEST_F(Rights, AHomeWithoutRightsIsRefusedInWords)
{
    EXPECT_EQ(AsUser([&] { return NumberOf([&] { const Disk disk(home.Native(u"drive_c/P/newhome"_s)); }); }),
              error::kPathFileAccess);
}

/// A disk of 64 KB where the system lets a test mount one, else a limit on the length of files.
bool MakeSmallDisk(const QByteArray& directory)
{
    if (unshare(CLONE_NEWNS) == 0 && mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
        mount("small", directory.constData(), "tmpfs", 0, "size=64k") == 0)
        return true;
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{16 * 1024, 16 * 1024};
    return setrlimit(RLIMIT_FSIZE, &limit) == 0;
}

TEST(FullDisk, LeavesTheOldFileWhole)
{
    const TempHome home;
    const QByteArray small(8 * 1024, 's');
    const QByteArray large(200 * 1024, 'l');
    home.Put(u"C:\\P\\large.jpg"_s, large);
    home.MakeDirs(u"C:\\Small"_s);
    const QByteArray directory = QFile::encodeName(home.Native(u"drive_c/Small"_s));
    const auto onSmallDisk = [&](const std::function<void(const QString& file)>& step) {
        return InChild([&] {
            if (!MakeSmallDisk(directory))
                return 253;
            const QString file = u"C:\\Small\\a.jpg"_s;
            home.disk.WriteWhole(file, small);
            const int number = NumberOf([&] { step(file); });
            if (home.disk.ReadWhole(file) != small)
                return 252;
            if (QDir(QFile::decodeName(directory)).entryList(QDir::Files | QDir::Hidden).size() != 1)
                return 251;
            return number;
        });
    };
    EXPECT_EQ(onSmallDisk([&](const QString& file) { home.disk.WriteWhole(file, large); }), error::kDiskFull);
    EXPECT_EQ(onSmallDisk([&](const QString& file) { home.disk.FileCopy(u"C:\\P\\large.jpg"_s, file); }),
              error::kDiskFull);
}

TEST(KilledWriter, LeavesTheOldFileOrTheNew)
{
    const TempHome home;
    const QString file = u"C:\\P\\a.ini"_s;
    const QByteArray old(300'000, 'o');
    const QByteArray fresh(500'000, 'n');
    home.Put(file, old);
    for (int round = 0; round < 40; ++round) {
        const pid_t child = fork();
        if (child == 0) {
            for (;;) {
                home.disk.WriteWhole(file, fresh);
                home.disk.WriteWhole(file, old);
            }
        }
        usleep(useconds_t(500 + 700 * round));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        const QByteArray left = home.disk.ReadWhole(file);
        ASSERT_TRUE(left == old || left == fresh) << left.size() << " bytes in round " << round;
    }
    EXPECT_EQ(home.disk.Dir(u"C:\\P\\*"_s), QStringList{u"a.ini"_s});
}

TEST(KilledWriter, ItsLeftoversGoAfterADay)
{
    const TempHome home;
    home.MakeDirs(u"C:\\P"_s);
    const QString native = home.Native(u"drive_c/P/"_s);
    for (const char* name : {".vasclip-old.tmp", ".vasclip-young.tmp", ".vasclip-old.lock"}) {
        QFile file(native + QString::fromLatin1(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        if (QByteArray(name).contains("old"))
            file.setFileTime(QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime);
    }
    EXPECT_TRUE(home.disk.Dir(u"C:\\P\\*"_s).isEmpty());
    EXPECT_FALSE(QFile::exists(native + u".vasclip-old.tmp"_s));
    EXPECT_TRUE(QFile::exists(native + u".vasclip-young.tmp"_s));
    EXPECT_TRUE(QFile::exists(native + u".vasclip-old.lock"_s));
}

TEST(ReadOnlyDisk, RefusesChanges)
{
    const TempHome home;
    home.MakeDirs(u"C:\\Fixed"_s);
    const QByteArray directory = QFile::encodeName(home.Native(u"drive_c/Fixed"_s));
    const int number = InChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("fixed", directory.constData(), "tmpfs", MS_RDONLY, "size=64k") != 0)
            return 253;
        return NumberOf([&] { home.disk.WriteWhole(u"C:\\Fixed\\a"_s, "x"); });
    });
    if (number == 253)
        GTEST_SKIP() << "this system lets no test mount a disk";
    EXPECT_EQ(number, error::kPathFileAccess);
}

} // namespace
} // namespace vasclip::files
