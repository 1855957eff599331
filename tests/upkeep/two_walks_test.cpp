// Two programs at work in one Databook, and locks that are let go after a while.

#include "support/exclusive_lock.h"
#include "upkeep/archive_home.h"
#include "upkeep/repairs.h"

#include <chrono>
#include <thread>

namespace vasclip::upkeep {
namespace {

class TwoWalks : public ArchiveHome
{
protected:
    static constexpr int kComps = 40;
    engine::Engine theirEngine{disk, tests::SomeTime()};
    store::DataSource theirs{theirEngine, u"datDatabook"_s};
    Account account;

    void SetUp() override
    {
        ArchiveHome::SetUp();
        QList<Values> rows;
        for (int i = 10; i < 10 + kComps; ++i)
            rows.append({{key, u"%1 OAK ST"_s.arg(i).leftJustified(35)},
                         {u"SALEDATE"_s, i % 2 ? u"05/05/1995"_s : u"05/05/2015"_s},
                         {u"ANCHORED"_s, u"1"_s},
                         {u"NOTES"_s, u"1"_s}});
        AddRows(rows);
        engine.SetLockWait(50);
        theirEngine.SetLockWait(50);
        Bind(source);
        theirs.Open(path, table, store::SourceKind::Table);
    }
    RepairResult ClearAnchors(store::DataSource& databook, const RepairStep& step)
    {
        return RunRepair({ports, databook, globals, disk}, Repair::ClearAnchors, {}, account, step);
    }
    static RepairStep GoOn()
    {
        return [](const QString&, qint64, qint64) { return true; };
    }
    [[nodiscard]] QStringList Anchors(const QString& file)
    {
        QStringList anchors;
        const auto rows = engine.OpenDatabase(file)->OpenRecordset(table, engine::RecordsetType::Table);
        for (; !rows->Eof(); rows->MoveNext())
            anchors.append(rows->Value(u"ANCHORED"_s).toString().trimmed());
        anchors.removeDuplicates();
        return anchors;
    }
    /// Somebody who keeps everybody out for a moment.
    [[nodiscard]] std::thread HoldFor(int milliseconds)
    {
        auto held = std::make_shared<tests::ExclusiveLock>(disk.ToNative(path));
        return std::thread([held = std::move(held), milliseconds]() mutable {
            std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
            held.reset();
        });
    }
};

TEST_F(TwoWalks, ARepairBetweenTwoRecordsOfAnArchiveReachesBothAndLosesNone)
{
    qint64 repaired = 0;
    const Archived done = CopyArchiveData(Work(), [&](qint64 at, qint64, const Archived&) {
        if (at == kComps / 2) {
            EXPECT_EQ(ClearAnchors(theirs, GoOn()).end, RepairEnd::Done);
            repaired = account.Records();
        }
        return true;
    });
    EXPECT_EQ(done.moved, kComps / 2);
    EXPECT_FALSE(done.failure);
    EXPECT_TRUE(done.left.isEmpty()) << done.left.join(u'|').toStdString();
    EXPECT_EQ(repaired, kComps / 2 + kComps / 4) << "those that had not gone yet";
    EXPECT_EQ(Here().size() + There().size(), kComps);
    EXPECT_EQ(Anchors(path), QStringList{u"0"_s});
    EXPECT_EQ(Anchors(archive), (QStringList{u"1"_s, u"0"_s}));
}

TEST_F(TwoWalks, AnArchiveInTheMiddleOfARepairTakesNothingAndTheRepairGoesOn)
{
    bool tried = false;
    const RepairResult result = ClearAnchors(source, [&](const QString&, qint64 done, qint64) {
        if (done == kComps / 2) {
            tried = true;
            ArchiveWork work{ports, theirs, globals, disk, archive, table, range, duplicates};
            try {
                const Archived none = CopyArchiveData(work, [](qint64, qint64, const Archived&) { return true; });
                EXPECT_TRUE(none.failure);
                EXPECT_EQ(none.moved, 0);
            } catch (const RuntimeError& refused) {
                EXPECT_TRUE(refused.Description().contains(u"locked"_s)) << refused.Description().toStdString();
            }
        }
        return true;
    });
    EXPECT_TRUE(tried);
    EXPECT_EQ(result.end, RepairEnd::Done);
    EXPECT_EQ(account.Records(), kComps);
    EXPECT_TRUE(There().isEmpty());
    EXPECT_EQ(Anchors(path), QStringList{u"0"_s});
}

TEST_F(TwoWalks, ASecondRepairInTheMiddleOfOneChangesNothingAndIsNoHalfOfOne)
{
    std::optional<RuntimeError> refused;
    Account theirAccount;
    const RepairResult result = ClearAnchors(source, [&](const QString&, qint64 done, qint64) {
        if (done == kComps / 2)
            try {
                static_cast<void>(RunRepair({ports, theirs, globals, disk}, Repair::UpperCase, {}, theirAccount, GoOn()));
            } catch (const RuntimeError& failure) {
                refused = failure;
            }
        return true;
    });
    ASSERT_TRUE(refused);
    EXPECT_TRUE(refused->Description().contains(u"locked"_s)) << refused->Description().toStdString();
    EXPECT_EQ(theirAccount.Records(), 0);
    EXPECT_EQ(result.end, RepairEnd::Done);
    EXPECT_EQ(Anchors(path), QStringList{u"0"_s});
}

TEST_F(TwoWalks, ALockThatIsLetGoInTimeIsWaitedFor)
{
    engine.SetLockWait(5000);
    std::thread holder = HoldFor(300);
    const RepairResult result = ClearAnchors(source, GoOn());
    holder.join();
    EXPECT_EQ(result.end, RepairEnd::Done) << result.message.toStdString();
    holder = HoldFor(300);
    const Archived done = CopyArchiveData(Work(), [](qint64, qint64, const Archived&) { return true; });
    holder.join();
    EXPECT_FALSE(done.failure);
    EXPECT_EQ(done.moved, kComps / 2);
    EXPECT_TRUE(doubles.prompter.Boxes().empty()) << doubles.prompter.Texts().join(u'|').toStdString();
}

} // namespace
} // namespace vasclip::upkeep
