#include "platform/engine/health.h"
#include "platform/engine/home.h"
#include "platform/files/file_lock.h"
#include "support/lying_disk.h"

namespace vasclip::engine {
namespace {

using tests::Locks;
using tests::LyingDisk;

TEST(NoLocks, AreSeenWhenAFileIsOpened)
{
    Home home;
    const QString path = u"C:\\DATABOOK.MDB"_s;
    MakeComps(home.engine, path, {{u"A1"_s, {}, {}, {}, {}}});
    for (const auto& [kind, hold] : {std::pair{Locks::Kept, true}, {Locks::GivenToAll, false}, {Locks::Refused, false}}) {
        const LyingDisk disk(kind);
        for (const OpenMode mode : {OpenMode::Shared, OpenMode::ReadOnly, OpenMode::Exclusive}) {
            const auto database = home.engine.OpenDatabase(path, mode);
            EXPECT_EQ(LocksHold(*database), hold) << int(kind) << ' ' << int(mode);
            EXPECT_EQ(database->OpenRecordset(u"COMPS"_s, RecordsetType::Table)->RecordCount(), 1) << "it opens all the same";
        }
    }
}

TEST(NoLocks, AreToldFromALockThatIsHeld)
{
    const Home home;
    files::FileLock first, second;
    ASSERT_TRUE(first.Take(home.Native(u"A"_s), 0));
    EXPECT_FALSE(second.Take(home.Native(u"A"_s), 0));
    EXPECT_TRUE(second.HeldByOther());
    EXPECT_FALSE(second.KeptNone());
    const LyingDisk disk(Locks::Refused);
    EXPECT_FALSE(second.Take(home.Native(u"B"_s), 0));
    EXPECT_FALSE(second.HeldByOther());
    EXPECT_TRUE(second.KeptNone());
    EXPECT_FALSE(second.Take(home.Native(u"none/B"_s), 0));
    EXPECT_FALSE(second.KeptNone()) << "there is no file to keep one on";
}

} // namespace
} // namespace vasclip::engine
