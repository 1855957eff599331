#include "platform/files/disk.h"

#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/temp_home.h"
#include "support/unix.h"
#include "support/wine.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

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
    home.Put(u"C:\\VasSnap\\Photo One.JPG"_s);
    EXPECT_TRUE(home.disk.FileExists(u"c:/VASSNAP/photo one.jpg"_s));
    EXPECT_EQ(home.disk.ToNative(u"C:\\VASSNAP\\PHOTO ONE.jpg"_s),
              home.Native(u"drive_c/VasSnap/Photo One.JPG"_s));
    EXPECT_EQ(home.disk.ToNative(u"C:\\VASSNAP\\New\\b.JPG"_s), home.Native(u"drive_c/VasSnap/New/b.JPG"_s))
        << "parts that are not there stay as given";
    home.disk.WriteWhole(u"C:\\vassnap\\PHOTO ONE.JPG"_s, QByteArrayLiteral("new"));
    EXPECT_EQ(home.disk.Dir(u"c:\\vassnap\\*"_s), QStringList{u"Photo One.JPG"_s})
        << "a write under another spelling replaces, it makes no second file";
}

TEST(Disk, PrefersTheExactSpelling)
{
    VASCLIP_NEEDS_UNIX("names that differ in case alone");
    const TempHome home;
    home.MakeDirs(u"C:\\P"_s);
    for (const char* name : {"b.jpg", "B.JPG", "B.jpg"})
        WriteNative(home.Native(u"drive_c/P/"_s + QString::fromLatin1(name)), QByteArray(name));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\b.jpg"_s), "b.jpg");
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\p\\B.jpg"_s), "B.jpg");
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\b.JPG"_s), "B.JPG") << "first in sorted order";
}

TEST(Disk, SeesWhatOthersDoMeanwhile)
{
    const TempHome home;
    home.MakeDirs(u"C:\\P"_s);
    const QString native = home.Native(u"drive_c/P/"_s);
    for (int round = 0; round < 200; ++round) {
        const QString name = u"Photo%1.jpg"_s.arg(round);
        EXPECT_FALSE(home.disk.Found(u"C:\\P\\"_s + name.toUpper()));
        WriteNative(native + name);
        ASSERT_TRUE(home.disk.Found(u"C:\\P\\"_s + name.toUpper())) << round;
        ASSERT_EQ(home.disk.Dir(u"C:\\P\\*"_s).size(), 1) << round;
        QFile::remove(native + name);
        ASSERT_FALSE(home.disk.Found(u"C:\\P\\"_s + name.toUpper())) << round;
    }
}

TEST(Disk, SeesItsOwnChanges)
{
    const TempHome home;
    home.MakeDirs(u"C:\\P"_s);
    QStringList wanted;
    for (int at = 0; at < 30; ++at) {
        const QString name = u"File%1.txt"_s.arg(at, 2, 10, QChar(u'0'));
        EXPECT_FALSE(home.disk.FileExists(u"C:\\P\\"_s + name.toUpper()));
        home.disk.WriteWhole(u"C:\\P\\"_s + name, QByteArrayLiteral("1"));
        EXPECT_TRUE(home.disk.FileExists(u"C:\\P\\"_s + name.toUpper()));
        wanted.append(name);
    }
    EXPECT_EQ(home.disk.Dir(u"C:\\p\\*.TXT"_s), wanted);
    home.disk.Kill(u"C:\\P\\FILE0?.TXT"_s);
    EXPECT_EQ(home.disk.Dir(u"C:\\p\\*"_s), wanted.mid(10));
    EXPECT_FALSE(home.disk.Found(u"C:\\P\\file05.txt"_s));
    home.disk.Name(u"C:\\P\\file10.txt"_s, u"C:\\P\\Other.txt"_s);
    EXPECT_TRUE(home.disk.FileExists(u"C:\\P\\OTHER.TXT"_s));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\P\\FILE10.TXT"_s));
}

TEST(Disk, MapsDrives)
{
    TempHome home;
    QDir(home.disk.Home()).mkpath(u"card"_s);
    WriteNative(
        home.Native(u"drives.ini"_s),
        "[Drives]\r\nd=card\r\nE:=/nowhere/at all\r\nC=/tmp\r\nZ=/tmp\r\n9=/tmp\r\nlong=/tmp\r\nF=\r\n");
    const Disk disk(home.disk.Home());
    const auto drives = disk.Drives();
    ASSERT_EQ(drives.size(), 4);
    const QString root = QFileInfo(u"/"_s).absoluteFilePath(); // of a drive, where there are some
    EXPECT_EQ(drives[0], std::pair(QChar(u'C'), home.Native(u"drive_c"_s)));
    EXPECT_EQ(drives[1], std::pair(QChar(u'D'), home.Native(u"card"_s)));
    EXPECT_EQ(drives[2], std::pair(QChar(u'E'), root + u"nowhere/at all"_s));
    EXPECT_EQ(drives[3], std::pair(QChar(u'Z'), root));

    disk.WriteWhole(u"D:\\a.jpg"_s, QByteArrayLiteral("x"));
    EXPECT_TRUE(QFile::exists(home.Native(u"card/a.jpg"_s)));
    EXPECT_TRUE(disk.DirExists(u"Z:\\"_s));

    EXPECT_EQ(disk.ToDrivePath(home.Native(u"card/a.jpg"_s)), u"D:\\a.jpg"_s);
    EXPECT_EQ(disk.ToDrivePath(home.Native(u"drive_c"_s)), u"C:\\"_s);
    EXPECT_EQ(disk.ToDrivePath(root + u"etc/hosts"_s), u"Z:\\etc\\hosts"_s);
    EXPECT_EQ(disk.ToDrivePath(home.Native(u"card/../x"_s)),
              u"Z:\\"_s + home.Native(u"x"_s).mid(root.size()).replace(u'/', u'\\'));
    EXPECT_EQ(disk.ToDrivePath(u"relative"_s), std::nullopt);
    EXPECT_EQ(disk.ToDrivePath(root + u"tmp/a:b"_s), std::nullopt) << "a name that no drive path can hold";

    const auto unmapped = ThrownBy([&] { return disk.Dir(u"A:\\*"_s).size(); });
    EXPECT_EQ(unmapped.number, error::kDeviceUnavailable);
    EXPECT_EQ(unmapped.words, u"Device unavailable: \"A:\\\" lies on a drive that drives.ini does not map"_s);
    const auto gone = ThrownBy([&] { return disk.FileLen(u"E:\\a.jpg"_s); });
    EXPECT_EQ(gone.number, error::kDiskNotReady);
    EXPECT_EQ(gone.words, u"Disk not ready: \"E:\\a.jpg\" cannot be reached: the directory of its drive, "
                          "\"%1nowhere/at all\", is not there"_s.arg(root));
    EXPECT_FALSE(disk.FileExists(u"A:\\a.jpg"_s));
    EXPECT_FALSE(disk.DirExists(u"E:\\"_s));
}

TEST(Disk, LetsNothingLeaveItsDrive)
{
    const TempHome home;
    WriteNative(home.Native(u"secret.txt"_s));
    for (const char16_t* path : {u"C:\\..\\secret.txt", u"C:\\a\\..\\..\\secret.txt", u"C:/../secret.txt"}) {
        const QString given = QString::fromUtf16(path);
        EXPECT_FALSE(home.disk.FileExists(given));
        EXPECT_EQ(NumberOf([&] { (void)home.disk.ReadWhole(given); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(given, "x"); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { home.disk.Kill(given); }), error::kPathNotFound);
        EXPECT_EQ(NumberOf([&] { (void)home.disk.Dir(given); }), error::kPathNotFound);
    }
    EXPECT_TRUE(QFile::exists(home.Native(u"secret.txt"_s)));
}

TEST(Disk, ListsByPattern)
{
    const TempHome home;
    for (const char* name : {"b.JPG", "A.jpg", "c.txt", "README", "O'Neil's.jpg"})
        home.Put(u"C:\\P\\"_s + QString::fromLatin1(name));
    home.Put(u"C:\\P\\\u00C9t\u00E9.jpg"_s);
    home.MakeDirs(u"C:\\P\\Sub"_s);
    const auto list = [&](const char16_t* pattern, unsigned attributes = Normal) {
        return home.disk.Dir(QString::fromUtf16(pattern), attributes).join(u'|');
    };
    EXPECT_EQ(list(u"C:\\p\\*.jpg"), u"A.jpg|b.JPG|O'Neil's.jpg|\u00C9t\u00E9.jpg"_s);
    EXPECT_EQ(list(u"C:\\P\\*.*"), list(u"C:\\P\\"));
    EXPECT_EQ(list(u"C:\\P\\*", Directory), u"A.jpg|b.JPG|c.txt|O'Neil's.jpg|README|Sub|\u00C9t\u00E9.jpg"_s);
    EXPECT_EQ(list(u"C:\\P\\\u00E9T\u00C9.JPG"), u"\u00C9t\u00E9.jpg"_s);
    EXPECT_EQ(list(u"C:\\p"), QString()) << "a directory is no file";
    EXPECT_EQ(list(u"C:\\p", Directory), u"P"_s);
    EXPECT_EQ(list(u"C:\\none\\*.*"), QString());
    EXPECT_EQ(list(u"C:\\P\\A.jpg\\*"), QString()) << "a file in a directory's place";
    EXPECT_EQ(NumberOf([&] { (void)list(u"C:\\*\\a"); }), error::kBadFileName);
}

TEST(Disk, FindsOrNot)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.jpg"_s);
    home.Put(u"C:\\P\\empty.jpg"_s, QByteArray());
    home.MakeDirs(u"C:\\Bare"_s);
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

    EXPECT_TRUE(home.disk.FileExists(u"C:\\P\\A.jpg"_s));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\P\\empty.jpg"_s)) << "length 0 does not exist here";
    EXPECT_FALSE(home.disk.FileExists(u"C:\\P"_s));
    EXPECT_FALSE(home.disk.FileExists(QString()));
    EXPECT_FALSE(home.disk.FileExists(u"C:\\*.jpg"_s));
    EXPECT_TRUE(home.disk.DirExists(u"C:\\p\\"_s));
    EXPECT_TRUE(home.disk.DirExists(u"C:\\p"_s));
    EXPECT_TRUE(home.disk.DirExists(u"C:"_s));
    EXPECT_FALSE(home.disk.DirExists(u"C:\\p\\a.jpg"_s));
    EXPECT_FALSE(home.disk.DirExists(u"p"_s));
}

TEST(Disk, HidesItsOwnFilesAndNamesThatNobodyCanSay)
{
    VASCLIP_NEEDS_UNIX("names that no drive takes");
    const TempHome home;
    home.Put(u"C:\\P\\a.jpg"_s);
    const QString native = home.Native(u"drive_c/P/"_s);
    for (const char* name : {".vasclip-1.tmp", "back\\slash", "co:lon", "quest?ion", "trail.", "nul"})
        WriteNative(native + QString::fromLatin1(name));
    WriteNative(native + u".dot"_s);
    EXPECT_EQ(home.disk.Dir(u"C:\\P\\*"_s), (QStringList{u".dot"_s, u"a.jpg"_s}));
}

TEST(Disk, TellsAFilesMarks)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.jpg"_s, QByteArrayLiteral("12345"));
    const QString path = u"C:\\p\\A.jpg"_s;
    EXPECT_EQ(home.disk.FileLen(path), 5);
    EXPECT_LT(std::abs(home.disk.FileDateTime(path).secsTo(QDateTime::currentDateTime())), 5);
    EXPECT_EQ(home.disk.FileDateTime(path).timeSpec(), Qt::LocalTime);
    EXPECT_EQ(home.disk.GetAttr(path), Normal);
    EXPECT_EQ(home.disk.GetAttr(u"C:\\P"_s), Directory);
    home.disk.SetAttr(path, ReadOnly);
    EXPECT_EQ(home.disk.GetAttr(path), ReadOnly);
    EXPECT_FALSE(QFile::permissions(home.Native(u"drive_c/P/a.jpg"_s)) & QFile::WriteOwner);
    home.disk.SetAttr(path, Normal);
    EXPECT_EQ(home.disk.GetAttr(path), Normal);
    EXPECT_TRUE(QFile::permissions(home.Native(u"drive_c/P/a.jpg"_s)) & QFile::WriteOwner);
    home.disk.SetAttr(path, Hidden | ReadOnly);
    EXPECT_EQ(home.disk.GetAttr(path) & ~unsigned(Hidden), ReadOnly) << "the hidden mark depends on the disk";

    const QString none = u"C:\\P\\none.jpg"_s;
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileLen(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileLen(u"C:\\P"_s); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FileDateTime(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.GetAttr(none); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.SetAttr(none, ReadOnly); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.ReadWhole(none); }), error::kFileNotFound);
}

TEST(Disk, KeepsReadOnlyFiles)
{
    const TempHome home;
    const QString locked = u"C:\\P\\locked.jpg"_s;
    const QString other = u"C:\\P\\other.jpg"_s;
    home.Put(locked, QByteArrayLiteral("old"));
    home.Put(other, QByteArrayLiteral("new"));
    home.disk.SetAttr(locked, ReadOnly);

    const auto written = ThrownBy([&] {
        home.disk.WriteWhole(locked, QByteArrayLiteral("new"));
        return 0;
    });
    EXPECT_EQ(written.number, error::kPathFileAccess);
    EXPECT_EQ(written.words, u"Path/File access error: \"C:\\P\\locked.jpg\" is read-only"_s);
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(other, locked); }), error::kPathFileAccess);
    EXPECT_EQ(NumberOf([&] { home.disk.Kill(locked); }), error::kPathFileAccess);
    EXPECT_EQ(NumberOf([&] { home.disk.Kill(u"C:\\P\\*.jpg"_s); }), error::kPathFileAccess);
    EXPECT_EQ(home.disk.ReadWhole(locked), "old");
    EXPECT_EQ(home.disk.ReadWhole(other), "new") << "nothing goes when one of them may not";

    home.disk.Name(locked, u"C:\\P\\moved.jpg"_s);
    EXPECT_EQ(home.disk.GetAttr(u"C:\\P\\moved.jpg"_s), ReadOnly) << "a rename is allowed";
    home.disk.SetAttr(u"C:\\P\\moved.jpg"_s, Normal);
    home.disk.Kill(u"C:\\P\\moved.jpg"_s);
}

TEST(Disk, Copies)
{
    const TempHome home;
    const QString source = u"C:\\P\\a.jpg"_s;
    const QByteArray content(3 * 1024 * 1024 + 17, 'j');
    home.Put(source, content);
    home.Put(u"C:\\P\\Old.jpg"_s, QByteArrayLiteral("old"));
    {
        QFile file(home.Native(u"drive_c/P/a.jpg"_s));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.setFileTime(QDateTime(QDate(2004, 3, 7), QTime(1, 2, 3)), QFileDevice::FileModificationTime);
    }
    home.disk.FileCopy(source, u"C:\\P\\OLD.JPG"_s);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\Old.jpg"_s), content);
    EXPECT_EQ(home.disk.FileDateTime(u"C:\\P\\Old.jpg"_s), QDateTime(QDate(2004, 3, 7), QTime(1, 2, 3)))
        << "a copy keeps the time";
    home.disk.SetAttr(source, ReadOnly);
    home.disk.FileCopy(source, u"C:\\P\\new.jpg"_s);
    EXPECT_EQ(home.disk.GetAttr(u"C:\\P\\new.jpg"_s), ReadOnly) << "and the read-only mark";

    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(u"C:\\P\\none"_s, source); }), error::kFileNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(source, u"C:\\none\\a.jpg"_s); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(source, u"C:\\P"_s); }), error::kPathFileAccess);
    const QString open = u"C:\\P\\Old.jpg"_s;
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopy(open, u"c:\\p\\old.JPG"_s); }), error::kPermissionDenied);
    EXPECT_EQ(home.disk.ReadWhole(open), content) << "a copy onto itself leaves it whole";
}

TEST(Disk, Renames)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.jpg"_s, QByteArrayLiteral("a"));
    home.Put(u"C:\\P\\b.jpg"_s, QByteArrayLiteral("b"));
    home.MakeDirs(u"C:\\Q"_s);
    const auto rename = [&](const char16_t* from, const char16_t* to) {
        return NumberOf([&] { home.disk.Name(QString::fromUtf16(from), QString::fromUtf16(to)); });
    };
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\P\\B.JPG"), error::kFileExists);
    EXPECT_EQ(rename(u"C:\\P\\none.jpg", u"C:\\P\\c.jpg"), error::kFileNotFound);
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\none\\c.jpg"), error::kPathNotFound);
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\P\\A.JPG"), 0) << "only the spelling changes";
    if (!tests::UnderWine()) { // which keeps the old spelling
        EXPECT_EQ(home.disk.Dir(u"C:\\P\\a.*"_s), QStringList{u"A.JPG"_s});
    }
    EXPECT_EQ(rename(u"C:\\P\\a.jpg", u"C:\\Q\\moved.jpg"), 0);
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\Q\\moved.jpg"_s), "a");
    EXPECT_EQ(rename(u"C:\\Q", u"C:\\R"), 0) << "a directory";
    EXPECT_TRUE(home.disk.FileExists(u"C:\\r\\moved.jpg"_s));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\b.jpg"_s), "b");
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
    home.Put(u"C:\\A\\file"_s);
    EXPECT_EQ(make(u"C:\\A\\file\\B"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\A"), error::kPathFileAccess) << "not empty";
    EXPECT_EQ(remove(u"C:\\A\\file"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\none"), error::kPathNotFound);
    EXPECT_EQ(remove(u"C:\\"), error::kPathFileAccess);
    EXPECT_EQ(remove(u"C:\\A\\b"), 0);
    EXPECT_FALSE(home.disk.DirExists(u"C:\\A\\B"_s));
}

TEST(Disk, WritesWhole)
{
    const TempHome home;
    const QString path = u"C:\\P\\a.ini"_s;
    home.Put(path, QByteArrayLiteral("old"));
    home.disk.WriteWhole(path, QByteArrayLiteral("new"));
    EXPECT_EQ(home.disk.ReadWhole(path), "new");
    home.disk.WriteWhole(path, QByteArray());
    EXPECT_EQ(home.disk.FileLen(path), 0);
    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(u"C:\\none\\a"_s, "x"); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(u"C:\\P"_s, "x"); }), error::kPathFileAccess);
    EXPECT_EQ(QDir(home.Native(u"drive_c/P"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "no new file is left behind";
}

TEST(Disk, WritesWholeThroughLinksAndKeepsRights)
{
    VASCLIP_NEEDS_UNIX("rights and links");
    const TempHome home;
    const QString path = u"C:\\P\\a.ini"_s;
    home.Put(path, QByteArrayLiteral("old"));
    QFile::setPermissions(home.Native(u"drive_c/P/a.ini"_s),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    home.disk.WriteWhole(path, QByteArrayLiteral("new"));
    EXPECT_TRUE(QFile::permissions(home.Native(u"drive_c/P/a.ini"_s)) & QFile::ExeOwner);
    const QString linked = home.Native(u"drive_c/P/link.ini"_s);
    ASSERT_TRUE(QFile::link(home.Native(u"drive_c/P/a.ini"_s), linked));
    home.disk.WriteWhole(u"C:\\P\\link.ini"_s, QByteArrayLiteral("through"));
    EXPECT_EQ(home.disk.ReadWhole(path), "through");
    EXPECT_TRUE(QFileInfo(linked).isSymLink());
    EXPECT_EQ(QDir(home.Native(u"drive_c/P"_s)).entryList(QDir::Files | QDir::Hidden).size(), 2)
        << "no new file is left behind";
}

TEST(Disk, RefusesLongNamesInWords)
{
    const TempHome home;
    const QString longName = u"C:\\"_s + QString(300, u'n') + u".jpg"_s;
    EXPECT_FALSE(home.disk.FileExists(longName));
    EXPECT_EQ(NumberOf([&] { home.disk.WriteWhole(longName, "x"); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { home.disk.MkDir(longName); }), error::kPathNotFound);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.Dir(longName); }), error::kPathNotFound);
#ifdef Q_OS_UNIX // which counts bytes
    const auto accents = ThrownBy([&] {
        home.disk.WriteWhole(u"C:\\"_s + QString(200, u'\u00E9'), "x");
        return 0;
    });
    EXPECT_EQ(accents.number, error::kPathNotFound) << "200 accents are 400 bytes";
    EXPECT_TRUE(accents.words.endsWith(u"is too long a name for this disk"_s));
#endif
    home.disk.WriteWhole(u"C:\\"_s + QString(255, u'x'), "x");
    EXPECT_TRUE(home.disk.FileExists(u"C:\\"_s + QString(255, u'X')));
    QString deep = u"C:"_s;
    for (int level = 0; level < 30; ++level)
        deep += u'\\' + QString(200, u'd');
    EXPECT_FALSE(home.disk.FileExists(deep));
    EXPECT_EQ(NumberOf([&] { home.disk.MkDir(deep); }), error::kPathNotFound);
}

TEST(Disk, RefusesAHomeThatCannotBe)
{
    const TempHome home;
    home.Put(u"C:\\file"_s);
    const auto thrown = ThrownBy([&] { return Disk(home.Native(u"drive_c/file/home"_s)).Drives().size(); });
    EXPECT_EQ(thrown.number, error::kPathFileAccess);
    EXPECT_TRUE(thrown.words.contains(u"drive_c/file/home\" cannot be made"_s));
}

TEST(Disk, ACheckedCopyIsReadBackAndCanBeStopped)
{
    const TempHome home;
    QByteArray content(3 * 1024 * 1024 + 17, 'x');
    content[1234567] = 'y';
    home.Put(u"C:\\CARD\\A.JPG"_s, content);
    home.Put(u"C:\\P\\A.JPG"_s, "older");
    QList<qint64> told;
    EXPECT_FALSE(home.disk.FileCopyChecked(u"C:\\CARD\\A.JPG"_s, u"C:\\P\\A.JPG"_s, [&told](qint64 bytes) {
        told.append(bytes);
        return told.size() < 2;
    }));
    EXPECT_EQ(told, (QList<qint64>{1024 * 1024, 2 * 1024 * 1024}));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\A.JPG"_s), "older") << "stopped, the target stays";
    EXPECT_EQ(QDir(home.Native(u"drive_c/P"_s)).entryList(QDir::Files | QDir::Hidden).size(), 1)
        << "and nothing half written stays beside it";
    EXPECT_TRUE(home.disk.FileCopyChecked(u"C:\\CARD\\A.JPG"_s, u"C:\\P\\A.JPG"_s));
    EXPECT_EQ(home.disk.ReadWhole(u"C:\\P\\A.JPG"_s), content);
    EXPECT_EQ(home.disk.FileDateTime(u"C:\\P\\A.JPG"_s), home.disk.FileDateTime(u"C:\\CARD\\A.JPG"_s));
    EXPECT_EQ(NumberOf([&] { home.disk.FileCopyChecked(u"C:\\CARD\\NO.JPG"_s, u"C:\\P\\A.JPG"_s); }),
              error::kFileNotFound);
}

TEST(Disk, ReadsAFilePieceByPiece)
{
    const TempHome home;
    const QByteArray content(2 * 1024 * 1024 + 5, 'z');
    home.Put(u"C:\\A.JPG"_s, content);
    QByteArray read;
    EXPECT_TRUE(home.disk.ReadPieces(u"C:\\A.JPG"_s, [&read](QByteArrayView piece) {
        read.append(piece);
        return true;
    }));
    EXPECT_EQ(read, content);
    int pieces = 0;
    EXPECT_FALSE(home.disk.ReadPieces(u"C:\\A.JPG"_s, [&pieces](QByteArrayView) { return ++pieces < 2; }));
    EXPECT_EQ(pieces, 2);
    EXPECT_EQ(NumberOf([&] { home.disk.ReadPieces(u"C:\\NO.JPG"_s, [](QByteArrayView) { return true; }); }),
              error::kFileNotFound);
}

TEST(Disk, KnowsTheRoomThatIsLeft)
{
    const TempHome home;
    EXPECT_GT(home.disk.FreeBytes(u"C:\\"_s), 0);
    EXPECT_EQ(NumberOf([&] { (void)home.disk.FreeBytes(u"C:\\NO\\"_s); }), error::kPathNotFound);
}

} // namespace
} // namespace vasclip::files
