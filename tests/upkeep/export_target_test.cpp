// What lies at the target of an export, and what is said where nothing could be written.

#include "support/unix.h"
#include "transfer_home.h"

#include "support/error_number.h"
#include "support/exclusive_lock.h"
#include "upkeep/export_table.h"
#include "upkeep/target_file.h"

namespace vasclip::upkeep {
namespace {

class ExportTarget : public TransferHome
{
protected:
    const QString journal = target + u"-journal"_s;

    void SetUp() override
    {
        TransferHome::SetUp();
        Fill();
    }
    ExportResult Run(const QString& name, const WorkStep& step, bool access = false)
    {
        return ExportTable(Desk(), {.target = target, .table = name, .search = {}, .pictures = true, .access = access}, step);
    }
    /// Leaves the target as a process does that is killed while it stores.
    void KillWhileStoring(const QString& name)
    {
        sqlite3* handle = nullptr;
        ASSERT_EQ(sqlite3_open(disk.ToNative(target).toUtf8().constData(), &handle), SQLITE_OK);
        const QByteArray change = "BEGIN IMMEDIATE; UPDATE " + name.toUtf8() + " SET CITY = 'HALF'";
        ASSERT_EQ(sqlite3_exec(handle, change.constData(), nullptr, nullptr, nullptr), SQLITE_OK);
        ASSERT_EQ(sqlite3_db_cacheflush(handle), SQLITE_OK);
        const QByteArray half = disk.ReadWhole(target);
        const QByteArray back = disk.ReadWhole(journal);
        sqlite3_close(handle);
        disk.WriteWhole(target, half);
        disk.WriteWhole(journal, back);
        ASSERT_FALSE(back.isEmpty());
        QFile old(disk.ToNative(target)); // an hour ago
        ASSERT_TRUE(old.open(QIODevice::ReadWrite));
        ASSERT_TRUE(old.setFileTime(QDateTime::currentDateTimeUtc().addSecs(-3600), QFileDevice::FileModificationTime));
    }
};

TEST_F(ExportTarget, OfAKilledProgramIsMadeWholeAndTaken)
{
    ASSERT_TRUE(Run(u"FIRST"_s, Step()).written);
    KillWhileStoring(u"FIRST"_s);
    EXPECT_TRUE(Run(u"SECOND"_s, Step()).written);
    EXPECT_EQ(Field(target, u"FIRST"_s, u"9 ELM ST"_s, u"CITY"_s).toString(), u"ALDER"_s);
    EXPECT_EQ(Keys(target, u"SECOND"_s).size(), 3);
}

TEST_F(ExportTarget, AJournalWithoutItsFileSpoilsNoNewOne)
{
    ASSERT_TRUE(Run(u"FIRST"_s, Step()).written);
    KillWhileStoring(u"FIRST"_s);
    disk.Kill(target);
    EXPECT_TRUE(Run(u"SECOND"_s, Step()).written);
    EXPECT_EQ(Keys(target, u"SECOND"_s).size(), 3);
    EXPECT_FALSE(disk.Found(journal));
    disk.Kill(target);
    disk.MkDir(journal); // what can't be taken away might be played back into the new one
    EXPECT_EQ(tests::NumberOf([&] { (void)Run(u"SECOND"_s, Step()); }), error::kPathFileAccess);
    EXPECT_FALSE(disk.Found(target));
}

TEST_F(ExportTarget, IsNamedWhereTheFileThatIsWorkedOnFails)
{
    engine.SetLockWait(20);
    std::unique_ptr<tests::ExclusiveLock> lock;
    const WorkStep locks = [&](qint64, qint64, const QString& words) {
        const QStringList beside = disk.Dir(target + u".new*"_s);
        if (!lock && !words.startsWith(u"Picture"_s) && !beside.isEmpty())
            lock = std::make_unique<tests::ExclusiveLock>(disk.ToNative(u"C:\\EXPORT\\"_s + beside.first()));
        return true;
    };
    const tests::Thrown thrown = tests::ThrownBy([&] { return Run(u"FIRST"_s, locks, true); });
    EXPECT_NE(thrown.number, 0);
    EXPECT_TRUE(thrown.words.contains(target)) << thrown.words.toStdString();
    EXPECT_FALSE(thrown.words.contains(u".new"_s) || thrown.words.contains(u"-access"_s)) << thrown.words.toStdString();
}

TEST(FailWriting, SaysThatTheDiskIsFullOrAsksForRights)
{
    VASCLIP_NEEDS_UNIX("a device that is always full");
    QFile full(u"/dev/full"_s);
    if (!full.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        GTEST_SKIP() << "no device here is always full";
    EXPECT_LT(full.write("x"), 1);
    const tests::Thrown none = tests::ThrownBy([&] { FailWriting(u"E:\\X.CSV"_s, full); return 0; });
    EXPECT_EQ(none.number, error::kDiskFull);
    EXPECT_EQ(none.words, u"The disk that holds E:\\X.CSV is full. Nothing was stored; make room and try again"_s);
    QTemporaryDir home;
    QFile nowhere(home.filePath(u"none/x.csv"_s));
    EXPECT_FALSE(nowhere.open(QIODevice::WriteOnly));
    const tests::Thrown rights = tests::ThrownBy([&] { FailWriting(u"E:\\X.CSV"_s, nowhere); return 0; });
    EXPECT_EQ(rights.number, error::kPathFileAccess);
    EXPECT_TRUE(rights.words.contains(u"Make sure that you have rights"_s)) << rights.words.toStdString();
    EXPECT_FALSE(rights.words.contains(u"Unknown"_s));
}

TEST(TableName, IsNoneOfBlanksOrWithBrackets)
{
    EXPECT_TRUE(IsTableName(u"MY COMPS"_s));
    for (const QString& bad : {u""_s, u"  "_s, u"A]B"_s, u"[A"_s})
        EXPECT_FALSE(IsTableName(bad)) << bad.toStdString();
}

} // namespace
} // namespace vasclip::upkeep
