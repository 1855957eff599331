#include "platform/files/drives.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace vasclip::files {
namespace {

const QList<Drive> kMachine{{u'C', u"C:/"_s}, {u'E', u"E:/"_s}};

TEST(Drives, AHomeWithoutADriveOfItsOwnHasTheMachines)
{
    const QTemporaryDir home;
    EXPECT_EQ(ReadDrives(home.path(), kMachine), kMachine);
}

TEST(Drives, AHomeWithADriveOfItsOwnNeverReachesTheMachines)
{
    const QTemporaryDir home;
    ASSERT_TRUE(QDir(home.path()).mkdir(u"drive_c"_s));
    const QList<Drive> expected{{u'C', home.filePath(u"drive_c"_s)}, {u'E', u"E:/"_s}};
    EXPECT_EQ(ReadDrives(home.path(), kMachine), expected);

    QFile ini(home.filePath(u"drives.ini"_s));
    ASSERT_TRUE(ini.open(QIODevice::WriteOnly) && ini.write("[DRIVES]\r\nC=C:/\r\n") > 0);
    ini.close();
    EXPECT_EQ(ReadDrives(home.path(), kMachine), expected) << "nor by its own list";
}

TEST(Drives, AMachineWithoutTheLetterLeavesItToTheHome)
{
    const QTemporaryDir home;
    const QList<Drive> expected{{u'C', home.filePath(u"drive_c"_s)}, {u'Z', u"/"_s}};
    EXPECT_EQ(ReadDrives(home.path(), {{u'Z', u"/"_s}}), expected);
}

TEST(Drives, AFileInTheDrivesPlaceIsNoDrive)
{
    const QTemporaryDir home;
    QFile file(home.filePath(u"drive_c"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(ReadDrives(home.path(), kMachine), kMachine);
}

} // namespace
} // namespace vasclip::files
