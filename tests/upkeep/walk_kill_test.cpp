// A repair of the whole table that is killed at any moment leaves every record as before or every one as after.
// VASCLIP_KILLS sets how often.

#include "comments/comment_file.h"
#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/maintenance_home.h"

namespace vasclip::upkeep {
namespace {

class RepairKill : public MaintenanceHome, public testing::WithParamInterface<int>
{
protected:
    static constexpr int kComps = 40;
    const Repair repair = static_cast<Repair>(GetParam());
    QString phrases; ///< the comment file
    tests::KilledWork killed;

    /// Records that every one of the repairs changes.
    void SetUp() override
    {
        MaintenanceHome::SetUp();
        QList<Values> rows;
        for (int i = 0; i < kComps; ++i)
            rows.append({{key, u"%1 MANY'S #ST"_s.arg(i).leftJustified(35)},
                         {u"ADDRESS"_s, u"%1 mAny's #St"_s.arg(i)},
                         {u"APPRSLTYPE"_s, u"L"_s},
                         {u"GLA"_s, u"1500"_s},
                         {u"SELLINGPR"_s, u"300000"_s},
                         {u"ANCHORED"_s, u"1"_s},
                         {u"LATITUDE"_s, u"44.5"_s},
                         {u"SALEDATE"_s, u"3/7/1999"_s},
                         {u"LOADDATE"_s, u"3/7/1999"_s},
                         {u"PHOTOS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)}});
        AddRows(rows);
        phrases = comments::CommentFilePath(globals);
        comments::CreateCommentFile(engine, globals, phrases);
        {
            const auto open = engine.OpenDatabase(phrases);
            const auto texts = open->OpenRecordset(table, engine::RecordsetType::Table);
            for (int i = 0; i < 2 * kComps; ++i) {
                texts->AddNew();
                texts->SetValue(u"SITE"_s, u"Bob's #%1"_s.arg(i));
                texts->Update();
            }
            open->Close();
        }
        m_databook = disk.ReadWhole(path);
        m_phrases = disk.ReadWhole(phrases);
    }
    void Work()
    {
        engine::Engine own{disk, tests::SomeTime()};
        store::DataSource theirs{own, u"datDatabook"_s};
        theirs.Open(path, table, store::SourceKind::Table);
        Account account;
        static_cast<void>(RunRepair({ports, theirs, globals, disk}, repair, {u"3/8/1999"_s, false}, account,
                                    [](const QString&, qint64, qint64) { return true; }));
    }
    void PutBack()
    {
        disk.WriteWhole(path, m_databook);
        disk.WriteWhole(phrases, m_phrases);
        for (int i = 0; DeletesByDate(repair) && i < kComps; ++i)
            disk.WriteWhole(u"C:\\JPG\\P%1.jpg"_s.arg(i), "picture");
    }
    /// Every value of every record of both files.
    QStringList Everything()
    {
        QStringList all;
        for (const QString& file : {path, phrases}) {
            const auto open = engine.OpenDatabase(file);
            store::Rows rows(*open, u"SELECT * FROM COMPS"_s);
            while (const auto row = rows.Next()) {
                QStringList values;
                for (const QVariant& value : row->Values())
                    values.append(value.toString());
                all.append(values.join(u'|'));
            }
        }
        all.sort();
        return all;
    }

private:
    QByteArray m_databook, m_phrases;
};

TEST_P(RepairKill, LeavesAllRecordsAsBeforeOrAllAsAfterAndNoneWithoutItsPictures)
{
    PutBack();
    const QStringList old = Everything();
    killed.Whole([this] { Work(); });
    const QStringList repaired = Everything();
    ASSERT_FALSE(old == repaired) << "the repair changes nothing here";
    int before = 0;
    int after = 0;
    for (int run = 0; tests::MoreKills(run, 12, {before, after}); ++run) {
        PutBack();
        killed.Run([this] { Work(); });
        const QStringList now = Everything();
        ASSERT_TRUE(now == old || now == repaired) << "in run " << run;
        ++(now == old ? before : after);
        for (int i = 0; DeletesByDate(repair) && now == old && i < kComps; ++i)
            EXPECT_TRUE(HasFile(u"C:\\JPG\\P%1.jpg"_s.arg(i))) << i << " in run " << run;
    }
    EXPECT_GT(after, 0);
    EXPECT_GT(before, 0);
    RecordProperty("before", before);
    RecordProperty("after", after);
}

INSTANTIATE_TEST_SUITE_P(Each, RepairKill, testing::Range(0, static_cast<int>(Repair::DeleteByLoad) + 1),
                         [](const testing::TestParamInfo<int>& info) {
                             return QString(TextOf(static_cast<Repair>(info.param)).word).remove(u'-').toStdString();
                         });

} // namespace
} // namespace vasclip::upkeep
