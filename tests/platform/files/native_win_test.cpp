#include "platform/files/native.h"

#include "platform/files/disk.h"
#include "platform/files/file_address.h"
#include "platform/text/runtime_error.h"
#include "support/error_number.h"
#include "support/temp_home.h"
#include "support/wine_link.h"

#include <QFileInfo>

#include <gtest/gtest.h>

#include <algorithm>

#include <windows.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

using tests::TempHome;

/// Wine takes long names in any form; Windows does not.
TEST(SystemPaths, AreInTheFormThatMayBeLong)
{
    const struct
    {
        QString path, system;
    } rows[] = {
        {u"C:/A b/ü.mdb"_s, u"\\\\?\\C:\\A b\\ü.mdb"_s},
        {u"d:\\x"_s, u"\\\\?\\d:\\x"_s},
        {u"//office/files/a.mdb"_s, u"\\\\?\\UNC\\office\\files\\a.mdb"_s},
        {u"\\\\office\\files"_s, u"\\\\?\\UNC\\office\\files"_s},
        {u"\\\\?\\C:\\a"_s, u"\\\\?\\C:\\a"_s},
        {u"//?/UNC/office/files"_s, u"\\\\?\\UNC\\office\\files"_s},
        {u"\\\\.\\pipe\\kel"_s, u"\\\\.\\pipe\\kel"_s},
        {u"sub/a.txt"_s, u"sub\\a.txt"_s},
        {u"C:a.txt"_s, u"C:a.txt"_s},
        {QString(), QString()},
    };
    for (const auto& row : rows)
        EXPECT_EQ(native::SystemPath(row.path), row.system) << row.path.toStdString();
    EXPECT_EQ(FileAddress(u"//office/files/a.mdb"_s), "file:///%5C%5C%3F%5CUNC%5Coffice%5Cfiles%5Ca.mdb") << "no host";
}

TEST(DrivePaths, OfNativeOnesInAnySpelling)
{
    const TempHome home;
    home.Put(u"C:\\P\\a.jpg"_s);
    const QString native = home.Native(u"drive_c/P/a.jpg"_s);
    EXPECT_EQ(home.disk.ToDrivePath(native.toLower()), u"C:\\p\\a.jpg"_s);
    EXPECT_EQ(home.disk.ToDrivePath(native.toUpper().replace(u'/', u'\\')), u"C:\\P\\A.JPG"_s);
}

TEST(MachineDrives, ComeAndGoWhileAHomeIsOpen)
{
    const TempHome home, card;
    card.Put(u"C:\\DCIM\\a.jpg"_s);
    if (QFileInfo::exists(u"W:/"_s))
        GTEST_SKIP() << "W: is taken";
    const auto has = [&] {
        const auto drives = home.disk.Drives();
        return std::any_of(drives.begin(), drives.end(), [](const auto& drive) { return drive.first == u'W'; });
    };
    EXPECT_FALSE(has());
    EXPECT_FALSE(home.disk.FileExists(u"W:\\DCIM\\a.jpg"_s));
    // What has the letter is told to Windows by the one and to Wine's files by the other.
    const QString root = card.Native(u"drive_c"_s).replace(u'/', u'\\');
    const bool defined = DefineDosDeviceW(0, L"W:", reinterpret_cast<const wchar_t*>(root.utf16()));
    tests::WineLink reader(u"w:"_s, root);
    if (!defined || !tests::WineLink::Comes(u"W:/"_s))
        GTEST_SKIP() << "no letter is to be had";
    EXPECT_TRUE(home.disk.FileExists(u"W:\\dcim\\A.JPG"_s));
    EXPECT_TRUE(has());
    EXPECT_EQ(home.disk.ToDrivePath(u"w:/DCIM/a.jpg"_s), u"W:\\DCIM\\a.jpg"_s);
    const Disk later(home.disk.Home());
    reader.Remove();
    DefineDosDeviceW(DDD_REMOVE_DEFINITION, L"W:", nullptr);
    ASSERT_TRUE(tests::WineLink::Goes(u"W:/"_s));
    EXPECT_FALSE(home.disk.FileExists(u"W:\\DCIM\\a.jpg"_s));
    EXPECT_EQ(tests::NumberOf([&] { static_cast<void>(later.ReadWhole(u"W:\\DCIM\\a.jpg"_s)); }), error::kDiskNotReady);
    EXPECT_EQ(home.disk.Drives().first().second, home.Native(u"drive_c"_s)) << "the home's own stays";
}

} // namespace
} // namespace vasclip::files
