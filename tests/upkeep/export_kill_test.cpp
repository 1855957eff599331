// An export that is killed at any moment leaves its target as it was or as it shall be. VASCLIP_KILLS sets how often.

#include "transfer_home.h"

#include "faults/kills.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/health.h"
#include "support/killed_work.h"
#include "upkeep/export_csv.h"
#include "upkeep/export_table.h"

#include <QDir>

namespace vasclip::upkeep {
namespace {

class ExportKill : public TransferHome
{
protected:
    static constexpr int kComps = 40;
    tests::KilledWork killed;
    int before = 0;
    int after = 0;

    void SetUp() override
    {
        TransferHome::SetUp();
        QList<Values> rows;
        for (int i = 0; i < kComps; ++i) {
            rows.append(Comp(u"%1 OAK ST"_s.arg(100 + i), u"ALDER"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)));
            disk.WriteWhole(u"C:\\JPG\\P%1.jpg"_s.arg(i), QByteArray(9000 + i, 'p'));
        }
        AddRows(rows);
        m_databook = disk.ReadWhole(path);
    }
    /// A target of an earlier export, which has another table too and of the exported one a single row.
    QByteArray MakeTarget(bool access)
    {
        Bind(databook);
        const auto make = [&](const QString& name, const QString& search) {
            EXPECT_TRUE(ExportTable(Desk(), {.target = target, .table = name, .search = search, .access = access}, Step()).written);
        };
        make(u"OTHER"_s, {});
        make(table, u"CENTRALKEY = '100 OAK ST'"_s);
        databook.Close();
        return disk.ReadWhole(target);
    }
    /// In a process of its own, which opens everything anew.
    void RunAndKill(const std::function<void(const TransferDesk&)>& work, bool whole = false)
    {
        const auto all = [&] {
            engine::Engine own{disk, tests::SomeTime()};
            store::DataSource theirs{own, u"datDatabook"_s};
            theirs.Open(path, table, store::SourceKind::Table);
            work({.databook = theirs, .globals = globals, .ports = ports});
        };
        whole ? killed.Whole(all) : killed.Run(all);
    }
    void ExpectWholeDatabase(bool access, int run)
    {
        const auto made = engine.OpenDatabase(target, engine::OpenMode::ReadOnly);
        EXPECT_EQ(engine::IsGenuine(*made), access) << run;
        EXPECT_EQ(engine::CheckDatabase(*made, engine::CheckDepth::Whole), QStringList()) << run;
        store::Rows others(*made, u"SELECT * FROM OTHER"_s);
        EXPECT_EQ(others.Count(), kComps) << run;
        store::Rows rows(*made, u"SELECT * FROM COMPS ORDER BY CENTRALKEY"_s);
        ASSERT_EQ(rows.Count(), kComps) << run;
        for (int i = 0; i < kComps; ++i)
            EXPECT_EQ(rows.LongAt(i, PictureField(rows)).toByteArray().size(), 9000 + i) << run;
        made->Close();
    }
    static int PictureField(const store::Rows& rows)
    {
        int field = 0;
        while (rows.Fields().at(field).name.compare(u"FRONTPHOTO"_s, Qt::CaseInsensitive) != 0)
            ++field;
        return field;
    }
    void ExpectNothingElse(const QString& file, int run)
    {
        EXPECT_TRUE(disk.ReadWhole(path) == m_databook) << "the source is as it was, in run " << run;
        EXPECT_EQ(QDir(disk.ToNative(u"C:\\EXPORT"_s)).entryList(QDir::Files), QStringList{file})
            << "what the killed ones left went with the next";
    }
    void TearDown() override
    {
        EXPECT_GT(before, 0);
        EXPECT_GT(after, 0);
        RecordProperty("before", before);
        RecordProperty("after", after);
        TransferHome::TearDown();
    }

private:
    QByteArray m_databook;
};

class ExportKillOfKind : public ExportKill, public testing::WithParamInterface<bool>
{};

TEST_P(ExportKillOfKind, LeavesTheTargetAsItWasOrWithTheWholeTable)
{
    const bool access = GetParam();
    const QByteArray old = MakeTarget(access);
    const auto work = [&](const TransferDesk& desk) {
        (void)ExportTable(desk, {.target = target, .table = table, .search = {}, .pictures = true},
                          [](qint64, qint64, const QString&) { return true; });
    };
    for (int run = 0; tests::MoreKills(run, 14, {before, after}); ++run) {
        disk.WriteWhole(target, old);
        RunAndKill(work);
        if (disk.ReadWhole(target) == old) {
            ++before;
            continue;
        }
        ++after;
        ExpectWholeDatabase(access, run);
    }
    RunAndKill(work, true);
    ExpectNothingElse(u"OUT.MDB"_s, -1);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ExportKillOfKind, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& info) { return info.param ? "Access" : "Vasclip"; });

TEST_F(ExportKill, LeavesTheOldTextFileOrTheNewOne)
{
    const QString file = u"C:\\EXPORT\\OUT.CSV"_s;
    const auto work = [&](const TransferDesk& desk) {
        (void)ExportCsv(desk, file, {}, {}, [](qint64, qint64, const QString&) { return true; });
    };
    for (int run = 0; tests::MoreKills(run, 14, {before, after}); ++run) {
        disk.WriteWhole(file, "old");
        RunAndKill(work);
        const QByteArray now = disk.ReadWhole(file);
        EXPECT_TRUE(now == "old" || now.count("\r\n") >= kComps + 1) << now.size() << " bytes in run " << run;
        ++(now == "old" ? before : after);
    }
    RunAndKill(work, true);
    ExpectNothingElse(u"OUT.CSV"_s, -1);
}

} // namespace
} // namespace vasclip::upkeep
