#include "platform/engine/health.h"
#include "platform/engine/home.h"
#include "support/wine_link.h"

#include <QFile>

namespace vasclip::engine {
namespace {

using namespace Qt::Literals::StringLiterals;

/// By its own name a share is a letter that drives.ini gives it.
TEST(Shares, HoldDatabasesAsDisksDo)
{
    const QTemporaryDir server;
    const tests::WineLink link(u"unc/vasclip-test/files"_s, server.path());
    if (!tests::WineLink::Comes(u"//vasclip-test/files"_s))
        GTEST_SKIP() << "no share is to be had";
    const QTemporaryDir place;
    QFile drives(tests::WithOwnDrive(place.path()) + u"/drives.ini"_s);
    ASSERT_TRUE(drives.open(QIODevice::WriteOnly) && drives.write("[DRIVES]\r\nS=\\\\vasclip-test\\files\r\n") > 0);
    drives.close();

    const files::Disk disk(place.path());
    const tests::StandingTime time;
    Engine engine(disk, time);
    EXPECT_EQ(disk.ToNative(u"S:\\A.MDB"_s), u"//vasclip-test/files/A.MDB"_s);
    EXPECT_EQ(disk.ToDrivePath(u"\\\\VASCLIP-TEST\\Files\\A.MDB"_s), u"S:\\A.MDB"_s) << "as a dialogue gives it";
    EXPECT_GT(disk.FreeBytes(u"S:\\"_s), 0);
    const auto database = MakeComps(engine, u"S:\\A.MDB"_s, {{u"A1"_s, {}, {}, {}, {}}});
    EXPECT_TRUE(QFile::exists(server.filePath(u"A.MDB"_s)));
    EXPECT_TRUE(LocksHold(*database));
    engine.CopyDatabase(u"S:\\A.MDB"_s, u"S:\\B.MDB"_s);
    Transaction together(*database);
    EXPECT_EQ(database->Execute(u"INSERT INTO [S:\\B.MDB].[COMPS] (CENTRALKEY) VALUES ('B2')"_s), 1);
    EXPECT_EQ(database->Execute(u"INSERT INTO COMPS (CENTRALKEY) VALUES ('B2')"_s), 1);
    together.Commit();
    EXPECT_EQ(engine.OpenDatabase(u"S:\\B.MDB"_s)->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 2);
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(engine.OpenDatabase(u"S:\\A.MDB"_s, OpenMode::Exclusive)); }), error::kInUseByOthers);
}

TEST(Shares, ThatAreNotThereAreSaid)
{
    const QTemporaryDir place;
    QFile drives(tests::WithOwnDrive(place.path()) + u"/drives.ini"_s);
    ASSERT_TRUE(drives.open(QIODevice::WriteOnly) && drives.write("[DRIVES]\r\nS=\\\\vasclip-none\\files\r\n") > 0);
    drives.close();
    const files::Disk disk(place.path());
    const tests::StandingTime time;
    Engine engine(disk, time);
    EXPECT_FALSE(disk.FileExists(u"S:\\A.MDB"_s));
    QString words;
    EXPECT_EQ(ErrorOf([&] { static_cast<void>(engine.OpenDatabase(u"S:\\A.MDB"_s)); }, &words), error::kDiskNotReady);
    EXPECT_TRUE(words.contains(u"//vasclip-none/files"_s)) << words.toStdString();
}

} // namespace
} // namespace vasclip::engine
