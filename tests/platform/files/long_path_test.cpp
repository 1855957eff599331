#include "platform/files/disk.h"
#include "platform/files/file_address.h"
#include "platform/files/file_lock.h"
#include "platform/files/native.h"
#include "platform/files/profile.h"
#include "support/temp_home.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::TempHome;

/// A directory whose path has more characters than Windows takes without more ado.
QString FarDown(const TempHome& home)
{
    const QString far = u"C:\\"_s + QString(120, u'a') + u" über\\"_s + QString(120, u'b') + u"\\"_s + QString(60, u'c');
    home.MakeDirs(far);
    return far;
}

TEST(LongPaths, HoldFilesAsOthersDo)
{
    const TempHome home;
    const QString far = FarDown(home);
    const QString one = far + u"\\One.jpg"_s, other = far + u"\\other.jpg"_s;
    home.disk.WriteWhole(one, "picture");
    EXPECT_GT(home.disk.ToNative(one).size(), 260);
    home.disk.FileCopy(one, other);
    EXPECT_EQ(home.disk.ReadWhole(other), "picture");
    home.disk.Name(other, far + u"\\third.jpg"_s);
    home.disk.SetAttr(far + u"\\third.jpg"_s, ReadOnly);
    EXPECT_EQ(home.disk.GetAttr(far + u"\\third.jpg"_s), ReadOnly);
    home.disk.SetAttr(far + u"\\third.jpg"_s, Normal);
    EXPECT_EQ(home.disk.Dir(far + u"\\*.JPG"_s), (QStringList{u"One.jpg"_s, u"third.jpg"_s}));
    home.disk.Kill(far + u"\\*.jpg"_s);
    EXPECT_TRUE(home.disk.Dir(far + u"\\*.*"_s).isEmpty());
    EXPECT_GT(home.disk.FreeBytes(far), 0);
    home.disk.RmDir(far);
    EXPECT_FALSE(home.disk.DirExists(far));
}

TEST(LongPaths, AreLockedAndHoldSettings)
{
    const TempHome home;
    const QString far = FarDown(home);
    const QString native = home.disk.ToNative(far + u"\\A.LDB~"_s);
    FileLock first, second;
    ASSERT_TRUE(first.Take(native, 0, FileLock::After::Goes));
    EXPECT_FALSE(second.Take(native, 0));
    EXPECT_TRUE(second.HeldByOther());
    EXPECT_FALSE(second.KeptNone());
    first.Release();
    EXPECT_FALSE(QFile::exists(native));
    EXPECT_TRUE(WritePrivateProfileString(home.disk, u"A"_s, u"B"_s, u"C"_s, far + u"\\VAS2000.INI"_s));
    EXPECT_EQ(GetPrivateProfileString(home.disk, u"A"_s, u"B"_s, {}, far + u"\\VAS2000.INI"_s), u"C"_s);
}

TEST(LongPaths, MayBeWrittenOrNot)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.mdb"_s);
    const QString directory = home.Native(u"drive_c/P"_s), file = directory + u"/a.mdb"_s;
    EXPECT_TRUE(native::MayWrite(directory));
    EXPECT_TRUE(native::MayWrite(file));
    EXPECT_EQ(home.disk.Dir(u"C:\\P\\*.*"_s), QStringList{u"a.mdb"_s}) << "what was tried leaves nothing";
    EXPECT_FALSE(native::MayWrite(directory + u"/none"_s));
}

TEST(FileAddresses, HoldAnyNameOfAPath)
{
    const TempHome home;
    home.Put(u"C:\\ü #1%41\\a & b.mdb"_s);
    const QByteArray address = FileAddress(home.Native(u"drive_c/ü #1%41/a & b.mdb"_s));
    EXPECT_TRUE(address.startsWith("file:///")) << address.toStdString();
    EXPECT_TRUE(address.contains("%C3%BC%20%231%2541")) << address.toStdString();
    EXPECT_FALSE(address.contains('?') || address.contains('#'));
}

} // namespace
} // namespace vasclip::files
