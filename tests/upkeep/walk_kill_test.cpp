#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/maintenance_home.h"

namespace vasclip::upkeep {
namespace {

/// Kills a process that repairs the table, at any moment.
class RepairKill : public MaintenanceHome
{
protected:
    static constexpr int kComps = 60;
    const int runs = tests::Kills(14);

    void SetUp() override
    {
        MaintenanceHome::SetUp();
        QList<Values> rows;
        for (int i = 0; i < kComps; ++i) {
            disk.WriteWhole(u"C:\\JPG\\P%1.jpg"_s.arg(i), "picture");
            rows.append({{key, u"%1 MANY ST"_s.arg(i).leftJustified(35)},
                         {u"ADDRESS"_s, u"%1 Many St"_s.arg(i)},
                         {u"SALEDATE"_s, u"03/07/1999"_s},
                         {u"PHOTOS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)}});
        }
        AddRows(rows);
        m_databook = disk.ReadWhole(path);
    }
    /// Puts everything back, repairs in a process of its own and kills that.
    void RunAndKill(Repair repair, const Deletion& deletion)
    {
        disk.WriteWhole(path, m_databook);
        for (int i = 0; i < kComps; ++i)
            disk.WriteWhole(u"C:\\JPG\\P%1.jpg"_s.arg(i), "picture");
        m_killed.Run([&] {
            engine::Engine own{disk, tests::SomeTime()};
            store::DataSource theirs{own, u"datDatabook"_s};
            theirs.Open(path, table, store::SourceKind::Table);
            Account account;
            static_cast<void>(RunRepair({ports, theirs, globals, disk}, repair, deletion, account,
                                        [](const QString&, qint64, qint64) { return true; }));
        });
    }

private:
    QByteArray m_databook;
    tests::KilledWork m_killed;
};

TEST_F(RepairKill, LeavesAllRecordsAsBeforeOrAllAsAfter)
{
    int before = 0;
    int after = 0;
    for (int run = 0; run < runs; ++run) {
        RunAndKill(Repair::UpperCase, {});
        Bind(source);
        const qint64 upper =
            store::ReadRows(source, u"SELECT CENTRALKEY FROM COMPS WHERE ADDRESS LIKE '*MANY*'"_s).Count();
        qint64 changed = 0;
        store::Rows rows = store::ReadRows(source, u"SELECT ADDRESS FROM COMPS"_s);
        while (const auto row = rows.Next())
            changed += row->Text(u"ADDRESS"_s).endsWith(u"MANY ST"_s);
        EXPECT_EQ(upper, kComps) << "none is lost, in run " << run;
        EXPECT_TRUE(changed == 0 || changed == kComps) << changed << " in run " << run;
        ++(changed == 0 ? before : after);
        source.Close();
    }
    EXPECT_GT(before, 0);
    EXPECT_GT(after, 0);
}

TEST_F(RepairKill, NeverLeavesARecordWithoutItsPictures)
{
    int before = 0;
    int after = 0;
    for (int run = 0; run < runs; ++run) {
        RunAndKill(Repair::DeleteBySale, {u"3/8/1999"_s, false});
        Bind(source);
        const qsizetype left = Keys().size();
        EXPECT_TRUE(left == 0 || left == kComps) << left << " in run " << run;
        for (int i = 0; left > 0 && i < kComps; ++i)
            EXPECT_TRUE(HasFile(u"C:\\JPG\\P%1.jpg"_s.arg(i))) << i << " in run " << run;
        ++(left > 0 ? before : after);
        source.Close();
    }
    EXPECT_GT(before, 0);
    EXPECT_GT(after, 0);
}

} // namespace
} // namespace vasclip::upkeep
