#include "platform/files/disk.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/temp_home.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

namespace vasclip::files {
namespace {

using tests::NumberOf;
using tests::TempHome;
using tests::ThrownBy;

void WriteNative(const QString& path, const QByteArray& content = QByteArrayLiteral("x"))
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(content);
}

TEST(Disk, FindsNamesWithoutRegardToCase)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\VasSnap\\Photo One.JPG"));
    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("c:/VASSNAP/photo one.jpg")));
    EXPECT_EQ(home.disk.ToNative(QStringLiteral("C:\\VASSNAP\\PHOTO ONE.jpg")),
              home.Native(QStringLiteral("drive_c/VasSnap/Photo One.JPG")));
    EXPECT_EQ(home.disk.ToNative(QStringLiteral("C:\\VASSNAP\\New\\b.JPG")),
              home.Native(QStringLiteral("drive_c/VasSnap/New/b.JPG")))
        << "parts that are not there stay as given";
    home.disk.WriteWhole(QStringLiteral("C:\\vassnap\\PHOTO ONE.JPG"), QByteArrayLiteral("new"));
    EXPECT_EQ(home.disk.Dir(QStringLiteral("c:\\vassnap\\*")), QStringList{QStringLiteral("Photo One.JPG")})
        << "a write under another spelling replaces, it makes no second file";
}

TEST(Disk, PrefersTheExactSpelling)
{
    const TempHome home;
    home.MakeDirs(QStringLiteral("C:\\P"));
    for (const char* name : {"b.jpg", "B.JPG", "B.jpg"})
        WriteNative(home.Native(QStringLiteral("drive_c/P/") + QString::fromLatin1(name)), QByteArray(name));
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\b.jpg")), "b.jpg");
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\p\\B.jpg")), "B.jpg");
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\b.JPG")), "B.JPG") << "first in sorted order";
}

TEST(Disk, SeesWhatOthersDoMeanwhile)
{
    const TempHome home;
    home.MakeDirs(QStringLiteral("C:\\P"));
    const QString native = home.Native(QStringLiteral("drive_c/P/"));
    for (int round = 0; round < 200; ++round) {
        const QString name = QStringLiteral("Photo%1.jpg").arg(round);
        EXPECT_FALSE(home.disk.Found(QStringLiteral("C:\\P\\") + name.toUpper()));
        WriteNative(native + name);
        ASSERT_TRUE(home.disk.Found(QStringLiteral("C:\\P\\") + name.toUpper())) << round;
        ASSERT_EQ(home.disk.Dir(QStringLiteral("C:\\P\\*")).size(), 1) << round;
        QFile::remove(native + name);
        ASSERT_FALSE(home.disk.Found(QStringLiteral("C:\\P\\") + name.toUpper())) << round;
    }
}

TEST(Disk, SeesItsOwnChanges)
{
    const TempHome home;
    home.MakeDirs(QStringLiteral("C:\\P"));
    QStringList wanted;
    for (int at = 0; at < 30; ++at) {
        const QString name = QStringLiteral("File%1.txt").arg(at, 2, 10, QChar(u'0'));
        EXPECT_FALSE(home.disk.FileExists(QStringLiteral("C:\\P\\") + name.toUpper()));
        home.disk.WriteWhole(QStringLiteral("C:\\P\\") + name, QByteArrayLiteral("1"));
        EXPECT_TRUE(home.disk.FileExists(QStringLiteral("C:\\P\\") + name.toUpper()));
        wanted.append(name);
    }
    EXPECT_EQ(home.disk.Dir(QStringLiteral("C:\\p\\*.TXT")), wanted);
    home.disk.Kill(QStringLiteral("C:\\P\\FILE0?.TXT"));
    EXPECT_EQ(home.disk.Dir(QStringLiteral("C:\\p\\*")), wanted.mid(10));
    EXPECT_FALSE(home.disk.Found(QStringLiteral("C:\\P\\file05.txt")));
    home.disk.Name(QStringLiteral("C:\\P\\file10.txt"), QStringLiteral("C:\\P\\Other.txt"));
    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("C:\\P\\OTHER.TXT")));
    EXPECT_FALSE(home.disk.FileExists(QStringLiteral("C:\\P\\FILE10.TXT")));
}

TEST(Disk, MapsDrives)
{
    TempHome home;
    QDir(home.disk.Home()).mkpath(QStringLiteral("card"));
    WriteNative(
        home.Native(QStringLiteral("drives.ini")),
        "[Drives]\r\nd=card\r\nE:=/nowhere/at all\r\nC=/tmp\r\nZ=/tmp\r\n9=/tmp\r\nlong=/tmp\r\nF=\r\n");
    const Disk disk(home.disk.Home());
    const auto drives = disk.Drives();
    ASSERT_EQ(drives.size(), 4);
    EXPECT_EQ(drives[0], std::pair(QChar(u'C'), home.Native(QStringLiteral("drive_c"))));
    EXPECT_EQ(drives[1], std::pair(QChar(u'D'), home.Native(QStringLiteral("card"))));
    EXPECT_EQ(drives[2], std::pair(QChar(u'E'), QStringLiteral("/nowhere/at all")));
    EXPECT_EQ(drives[3], std::pair(QChar(u'Z'), QStringLiteral("/")));

    disk.WriteWhole(QStringLiteral("D:\\a.jpg"), QByteArrayLiteral("x"));
    EXPECT_TRUE(QFile::exists(home.Native(QStringLiteral("card/a.jpg"))));
    EXPECT_TRUE(disk.DirExists(QStringLiteral("Z:\\")));

    EXPECT_EQ(disk.ToDrivePath(home.Native(QStringLiteral("card/a.jpg"))), QStringLiteral("D:\\a.jpg"));
    EXPECT_EQ(disk.ToDrivePath(home.Native(QStringLiteral("drive_c"))), QStringLiteral("C:\\"));
    EXPECT_EQ(disk.ToDrivePath(QStringLiteral("/etc/hosts")), QStringLiteral("Z:\\etc\\hosts"));
    EXPECT_EQ(disk.ToDrivePath(home.Native(QStringLiteral("card/../x"))),
              QStringLiteral("Z:") + home.Native(QStringLiteral("x")).replace(u'/', u'\\'));
    EXPECT_EQ(disk.ToDrivePath(QStringLiteral("relative")), std::nullopt);
    EXPECT_EQ(disk.ToDrivePath(QStringLiteral("/tmp/a:b")), std::nullopt)
        << "a name that no drive path can hold";

    const auto unmapped = ThrownBy([&] { return disk.Dir(QStringLiteral("A:\\*")).size(); });
    EXPECT_EQ(unmapped.number, error::kDeviceUnavailable);
    EXPECT_EQ(unmapped.words,
              QStringLiteral("Device unavailable: \"A:\\\" lies on a drive that drives.ini does not map"));
    const auto gone = ThrownBy([&] { return disk.FileLen(QStringLiteral("E:\\a.jpg")); });
    EXPECT_EQ(gone.number, error::kDiskNotReady);
    EXPECT_EQ(gone.words,
              QStringLiteral("Disk not ready: \"E:\\a.jpg\" cannot be reached: the directory of its drive, "
                             "\"/nowhere/at all\", is not there"));
    EXPECT_FALSE(disk.FileExists(QStringLiteral("A:\\a.jpg")));
    EXPECT_FALSE(disk.DirExists(QStringLiteral("E:\\")));
}

TEST(Disk, LetsNothingLeaveItsDrive)
{
    const TempHome home;
    WriteNative(home.Native(QStringLiteral("secret.txt")));
    for (const char16_t* path : {u"C:\\..\\secret.txt", u"C:\\a\\..\\..\\secret.txt", u"C:/../secret.txt"}) {
        const QString given = QString::fromUtf16(path);
        EXPECT_FALSE(home.disk.FileExists(given));
        EXPECT_EQ(NumberOf([&] { (void)home.disk.ReadWhole(given); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(given, "x"); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { home.disk.Kill(given); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { (void)home.disk.Dir(given); }), error::kPathNotFound);
    }
    EXPECT_TRUE(QFile::exists(home.Native(QStringLiteral("secret.txt"))));
}

TEST(Disk, ListsByPattern)
{
    const TempHome home;
    for (const char* name : {"b.JPG", "A.jpg", "c.txt", "README", "O'Neil's.jpg"})
        home.Put(QStringLiteral("C:\\P\\") + QString::fromLatin1(name));
    home.Put(QStringLiteral("C:\\P\\\u00C9t\u00E9.jpg"));
    home.MakeDirs(QStringLiteral("C:\\P\\Sub"));
    const auto list = [&](const char16_t* pattern, unsigned attributes = Normal) {
        return home.disk.Dir(QString::fromUtf16(pattern), attributes).join(u'|');
    };
    EXPECT_EQ(list(u"C:\\p\\*.jpg"), QStringLiteral("A.jpg|b.JPG|O'Neil's.jpg|\u00C9t\u00E9.jpg"));
    EXPECT_EQ(list(u"C:\\P\\*.*"), list(u"C:\\P\\"));
    EXPECT_EQ(list(u"C:\\P\\*", Directory),
              QStringLiteral("A.jpg|b.JPG|c.txt|O'Neil's.jpg|README|Sub|\u00C9t\u00E9.jpg"));
    EXPECT_EQ(list(u"C:\\P\\\u00E9T\u00C9.JPG"), QStringLiteral("\u00C9t\u00E9.jpg"));
    EXPECT_EQ(list(u"C:\\p"), QString()) << "a directory is no file";
    EXPECT_EQ(list(u"C:\\p", Directory), QStringLiteral("P"));
    EXPECT_EQ(list(u"C:\\none\\*.*"), QString());
    EXPECT_EQ(list(u"C:\\P\\A.jpg\\*"), QString()) << "a file in a directory's place";
    EXPECT_EQ(NumberOf([&] { (void)list(u"C:\\*\\a"); }), error::kBadFileName);
}

TEST(Disk, FindsOrNot)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\P\\a.jpg"));
    home.Put(QStringLiteral("C:\\P\\empty.jpg"), QByteArray());
    home.MakeDirs(QStringLiteral("C:\\Bare"));
    const auto found = [&](const char16_t* pattern, unsigned attributes = Normal) {
        return home.disk.Found(QString::fromUtf16(pattern), attributes);
    };
    EXPECT_TRUE(found(u"C:\\p\\A.JPG"));
    EXPECT_TRUE(found(u"C:\\p\\*.jpg"));
    EXPECT_FALSE(found(u"C:\\p\\*.bmp"));
    EXPECT_FALSE(found(u"C:\\P"));
    EXPECT_TRUE(found(u"C:\\P", Directory));
    EXPECT_TRUE(found(u"C:\\Bare\\", Directory)) << "an empty directory is there";
    EXPECT_FALSE(found(u"C:\\Bare\\"));
    EXPECT_TRUE(found(u"C:\\", Directory));
    EXPECT_FALSE(found(u"C:\\none\\", Directory));

    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("C:\\P\\A.jpg")));
    EXPECT_FALSE(home.disk.FileExists(QStringLiteral("C:\\P\\empty.jpg"))) << "length 0 does not exist here";
    EXPECT_FALSE(home.disk.FileExists(QStringLiteral("C:\\P")));
    EXPECT_FALSE(home.disk.FileExists(QString()));
    EXPECT_FALSE(home.disk.FileExists(QStringLiteral("C:\\*.jpg")));
    EXPECT_TRUE(home.disk.DirExists(QStringLiteral("C:\\p\\")));
    EXPECT_TRUE(home.disk.DirExists(QStringLiteral("C:\\p")));
    EXPECT_TRUE(home.disk.DirExists(QStringLiteral("C:")));
    EXPECT_FALSE(home.disk.DirExists(QStringLiteral("C:\\p\\a.jpg")));
    EXPECT_FALSE(home.disk.DirExists(QStringLiteral("p")));
}

TEST(Disk, HidesItsOwnFilesAndNamesThatNobodyCanSay)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\P\\a.jpg"));
    const QString native = home.Native(QStringLiteral("drive_c/P/"));
    for (const char* name : {".vasclip-1.tmp", "back\\slash", "co:lon", "quest?ion", "trail.", "nul"})
        WriteNative(native + QString::fromLatin1(name));
    WriteNative(native + QStringLiteral(".dot"));
    EXPECT_EQ(home.disk.Dir(QStringLiteral("C:\\P\\*")),
              (QStringList{QStringLiteral(".dot"), QStringLiteral("a.jpg")}));
}

TEST(Disk, TellsAFilesMarks)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\P\\a.jpg"), QByteArrayLiteral("12345"));
    const QString path = QStringLiteral("C:\\p\\A.jpg");
    EXPECT_EQ(home.disk.FileLen(path), 5);
    EXPECT_LT(std::abs(home.disk.FileDateTime(path).secsTo(QDateTime::currentDateTime())), 5);
    EXPECT_EQ(home.disk.FileDateTime(path).timeSpec(), Qt::LocalTime);
    EXPECT_EQ(home.disk.GetAttr(path), Normal);
    EXPECT_EQ(home.disk.GetAttr(QStringLiteral("C:\\P")), Directory);
    home.disk.SetAttr(path, ReadOnly);
    EXPECT_EQ(home.disk.GetAttr(path), ReadOnly);
    EXPECT_FALSE(QFile::permissions(home.Native(QStringLiteral("drive_c/P/a.jpg"))) & QFile::WriteOwner);
    home.disk.SetAttr(path, Normal);
    EXPECT_EQ(home.disk.GetAttr(path), Normal);
    EXPECT_TRUE(QFile::permissions(home.Native(QStringLiteral("drive_c/P/a.jpg"))) & QFile::WriteOwner);
    home.disk.SetAttr(path, Hidden | ReadOnly);
    EXPECT_EQ(home.disk.GetAttr(path) & ~unsigned(Hidden), ReadOnly) << "the hidden mark depends on the disk";

    const QString none = QStringLiteral("C:\\P\\none.jpg");
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileLen(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileLen(QStringLiteral("C:\\P")); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileDateTime(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.GetAttr(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.SetAttr(none, ReadOnly); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.ReadWhole(none); }), error::kFileNotFound);
}

TEST(Disk, KeepsReadOnlyFiles)
{
    const TempHome home;
    const QString locked = QStringLiteral("C:\\P\\locked.jpg");
    const QString other = QStringLiteral("C:\\P\\other.jpg");
    home.Put(locked, QByteArrayLiteral("old"));
    home.Put(other, QByteArrayLiteral("new"));
    home.disk.SetAttr(locked, ReadOnly);

    const auto written = ThrownBy([&] {
        home.disk.WriteWhole(locked, QByteArrayLiteral("new"));
        return 0;
    });
    EXPECT_EQ(written.number, error::kPathFileAccess);
    EXPECT_EQ(written.words, QStringLiteral("Path/File access error: \"C:\\P\\locked.jpg\" is read-only"));
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(other, locked); }), error::kPathFileAccess);
    EXPECT_EQ(NumberOf([&] { home.disk.Kill(locked); }), error::kPathFileAccess);
    EXPECT_EQ(NumberOf([&] { home.disk.Kill(QStringLiteral("C:\\P\\*.jpg")); }), error::kPathFileAccess);
    EXPECT_EQ(home.disk.ReadWhole(locked), "old");
    EXPECT_EQ(home.disk.ReadWhole(other), "new") << "nothing goes when one of them may not";

    home.disk.Name(locked, QStringLiteral("C:\\P\\moved.jpg"));
    EXPECT_EQ(home.disk.GetAttr(QStringLiteral("C:\\P\\moved.jpg")), ReadOnly) << "a rename is allowed";
    home.disk.SetAttr(QStringLiteral("C:\\P\\moved.jpg"), Normal);
    home.disk.Kill(QStringLiteral("C:\\P\\moved.jpg"));
}

TEST(Disk, Copies)
{
    const TempHome home;
    const QString source = QStringLiteral("C:\\P\\a.jpg");
    const QByteArray content(3 * 1024 * 1024 + 17, 'j');
    home.Put(source, content);
    home.Put(QStringLiteral("C:\\P\\Old.jpg"), QByteArrayLiteral("old"));
    {
        QFile file(home.Native(QStringLiteral("drive_c/P/a.jpg")));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime(QDate(2004, 3, 7), QTime(1, 2, 3)), QFileDevice::FileModificationTime);
    }
    home.disk.FileCopy(source, QStringLiteral("C:\\P\\OLD.JPG"));
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\Old.jpg")), content);
    EXPECT_EQ(home.disk.FileDateTime(QStringLiteral("C:\\P\\Old.jpg")),
              QDateTime(QDate(2004, 3, 7), QTime(1, 2, 3)))
        << "a copy keeps the time";
    home.disk.SetAttr(source, ReadOnly);
    home.disk.FileCopy(source, QStringLiteral("C:\\P\\new.jpg"));
    EXPECT_EQ(home.disk.GetAttr(QStringLiteral("C:\\P\\new.jpg")), ReadOnly) << "and the read-only mark";

    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(QStringLiteral("C:\\P\\none"), source); }),
              error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(source, QStringLiteral("C:\\none\\a.jpg")); }),
              error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(source, QStringLiteral("C:\\P")); }), error::kPathFileAccess);
    const QString open = QStringLiteral("C:\\P\\Old.jpg");
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(open, QStringLiteral("c:\\p\\old.JPG")); }),
              error::kPermissionDenied);
    EXPECT_EQ(home.disk.ReadWhole(open), content) << "a copy onto itself leaves it whole";
}

TEST(Disk, Renames)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\P\\a.jpg"), QByteArrayLiteral("a"));
    home.Put(QStringLiteral("C:\\P\\b.jpg"), QByteArrayLiteral("b"));
    home.MakeDirs(QStringLiteral("C:\\Q"));
    const auto rename = [&](const char16_t* from, const char16_t* to) {
        return NumberOf([&] { home.disk.Name(QString::fromUtf16(from), QString::fromUtf16(to)); });
    };
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\P\\B.JPG"), error::kFileExists);
    EXPECT_EQ(rename(u"C:\\P\\none.jpg", u"C:\\P\\c.jpg"), error::kFileNotFound);
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\none\\c.jpg"), error::kPathNotFound);
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\P\\A.JPG"), 0) << "only the spelling changes";
    EXPECT_EQ(home.disk.Dir(QStringLiteral("C:\\P\\a.*")), QStringList{QStringLiteral("A.JPG")});
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\Q\\moved.jpg"), 0);
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\Q\\moved.jpg")), "a");
    EXPECT_EQ(rename(u"C:\\Q", u"C:\\R"), 0) << "a directory";
    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("C:\\r\\moved.jpg")));
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\b.jpg")), "b");
}

TEST(Disk, MakesAndRemovesDirectories)
{
    const TempHome home;
    const auto make = [&](const char16_t* path) {
        return NumberOf([&] { home.disk.MkDir(QString::fromUtf16(path)); });
    };
    const auto remove = [&](const char16_t* path) {
        return NumberOf([&] { home.disk.RmDir(QString::fromUtf16(path)); });
    };
    EXPECT_EQ(make(u"C:\\A"), 0);
    EXPECT_EQ(make(u"C:\\a\\"), error::kPathFileAccess) << "there already, under another spelling";
    EXPECT_EQ(make(u"C:\\X\\Y"), error::kPathNotFound) << "one level";
    EXPECT_EQ(make(u"C:\\a\\B"), 0);
    home.Put(QStringLiteral("C:\\A\\file"));
    EXPECT_EQ(make(u"C:\\A\\file\\B"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\A"), error::kPathFileAccess) << "not empty";
    EXPECT_EQ(remove(u"C:\\A\\file"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\none"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\"), error::kPathFileAccess);
    EXPECT_EQ(remove(u"C:\\A\\b"), 0);
    EXPECT_FALSE(home.disk.DirExists(QStringLiteral("C:\\A\\B")));
}

TEST(Disk, WritesWhole)
{
    const TempHome home;
    const QString path = QStringLiteral("C:\\P\\a.ini");
    home.Put(path, QByteArrayLiteral("old"));
    QFile::setPermissions(home.Native(QStringLiteral("drive_c/P/a.ini")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    home.disk.WriteWhole(path, QByteArrayLiteral("new"));
    EXPECT_EQ(home.disk.ReadWhole(path), "new");
    EXPECT_TRUE(QFile::permissions(home.Native(QStringLiteral("drive_c/P/a.ini"))) & QFile::ExeOwner);
    home.disk.WriteWhole(path, QByteArray());
    EXPECT_EQ(home.disk.FileLen(path), 0);

    const QString linked = home.Native(QStringLiteral("drive_c/P/link.ini"));
    ASSERT_TRUE(QFile::link(home.Native(QStringLiteral("drive_c/P/a.ini")), linked));
    home.disk.WriteWhole(QStringLiteral("C:\\P\\link.ini"), QByteArrayLiteral("through"));
    EXPECT_EQ(home.disk.ReadWhole(path), "through");
    EXPECT_TRUE(QFileInfo(linked).isSymLink());

    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(QStringLiteral("C:\\none\\a"), "x"); }),
              error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(QStringLiteral("C:\\P"), "x"); }), error::kPathFileAccess);
    EXPECT_EQ(QDir(home.Native(QStringLiteral("drive_c/P"))).entryList(QDir::Files | QDir::Hidden).size(), 2)
        << "no new file is left behind";
}

TEST(Disk, RefusesLongNamesInWords)
{
    const TempHome home;
    const QString longName = QStringLiteral("C:\\") + QString(300, u'n') + QStringLiteral(".jpg");
    EXPECT_FALSE(home.disk.FileExists(longName));
    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(longName, "x"); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.MkDir(longName); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.Dir(longName); }), error::kPathNotFound);
    const auto accents = ThrownBy([&] {
        home.disk.WriteWhole(QStringLiteral("C:\\") + QString(200, u'\u00E9'), "x");
        return 0;
    });
    EXPECT_EQ(accents.number, error::kPathNotFound) << "200 accents are 400 bytes";
    EXPECT_TRUE(accents.words.endsWith(QStringLiteral("is too long a name for this disk")));
    home.disk.WriteWhole(QStringLiteral("C:\\") + QString(255, u'x'), "x");
    EXPECT_TRUE(home.disk.FileExists(QStringLiteral("C:\\") + QString(255, u'X')));
    QString deep = QStringLiteral("C:");
    for (int level = 0; level < 30; ++level)
        deep += u'\\' + QString(200, u'd');
    EXPECT_FALSE(home.disk.FileExists(deep));
    EXPECT_EQ(NumberOf([&] { home.disk.MkDir(deep); }), error::kPathNotFound);
}

TEST(Disk, RefusesAHomeThatCannotBe)
{
    const TempHome home;
    home.Put(QStringLiteral("C:\\file"));
    const auto thrown =
        ThrownBy([&] { return Disk(home.Native(QStringLiteral("drive_c/file/home"))).Drives().size(); });
    EXPECT_EQ(thrown.number, error::kPathFileAccess);
    EXPECT_TRUE(thrown.words.contains(QStringLiteral("drive_c/file/home\" cannot be made")));
}

TEST(Disk, ACheckedCopyIsReadBackAndCanBeStopped)
{
    const TempHome home;
    QByteArray content(3 * 1024 * 1024 + 17, 'x');
    content[1234567] = 'y';
    home.Put(QStringLiteral("C:\\CARD\\A.JPG"), content);
    home.Put(QStringLiteral("C:\\P\\A.JPG"), "older");
    QList<qint64> told;
    EXPECT_FALSE(home.disk.FileCopyChecked(QStringLiteral("C:\\CARD\\A.JPG"), QStringLiteral("C:\\P\\A.JPG"),
                                           [&told](qint64 bytes) {
                                               told.append(bytes);
                                               return told.size() < 2;
                                           }));
    EXPECT_EQ(told, (QList<qint64>{1024 * 1024, 2 * 1024 * 1024}));
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\A.JPG")), "older") << "stopped, the target stays";
    EXPECT_EQ(QDir(home.Native(QStringLiteral("drive_c/P"))).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "and nothing half written stays beside it";
    EXPECT_TRUE(
        home.disk.FileCopyChecked(QStringLiteral("C:\\CARD\\A.JPG"), QStringLiteral("C:\\P\\A.JPG")));
    EXPECT_EQ(home.disk.ReadWhole(QStringLiteral("C:\\P\\A.JPG")), content);
    EXPECT_EQ(home.disk.FileDateTime(QStringLiteral("C:\\P\\A.JPG")),
              home.disk.FileDateTime(QStringLiteral("C:\\CARD\\A.JPG")));
    EXPECT_EQ(NumberOf([&] {
                  home.disk.FileCopyChecked(QStringLiteral("C:\\CARD\\NO.JPG"), QStringLiteral("C:\\P\\A.JPG"));
              }),
              error::kFileNotFound);
}

TEST(Disk, ReadsAFilePieceByPiece)
{
    const TempHome home;
    const QByteArray content(2 * 1024 * 1024 + 5, 'z');
    home.Put(QStringLiteral("C:\\A.JPG"), content);
    QByteArray read;
    EXPECT_TRUE(home.disk.ReadPieces(QStringLiteral("C:\\A.JPG"), [&read](QByteArrayView piece) {
        read.append(piece);
        return true;
    }));
    EXPECT_EQ(read, content);
    int pieces = 0;
    EXPECT_FALSE(home.disk.ReadPieces(QStringLiteral("C:\\A.JPG"), [&pieces](QByteArrayView) {
        return ++pieces < 2;
    }));
    EXPECT_EQ(pieces, 2);
    EXPECT_EQ(NumberOf([&] {
                  home.disk.ReadPieces(QStringLiteral("C:\\NO.JPG"), [](QByteArrayView) { return true; });
              }),
              error::kFileNotFound);
}

TEST(Disk, KnowsTheRoomThatIsLeft)
{
    const TempHome home;
    EXPECT_GT(home.disk.FreeBytes(QStringLiteral("C:\\")), 0);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FreeBytes(QStringLiteral("C:\\NO\\")); }), error::kPathNotFound);
}

} // namespace
} // namespace vasclip::files
