// An import that is killed at any moment: the Databook is as before or as after, the source as it was, and no record is
// without its pictures. VASCLIP_KILLS sets how often.

#include "transfer_home.h"

#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"
#include "upkeep/rehearsal.h"

#include <QDir>

namespace vasclip::upkeep {
namespace {

class ImportKill : public TransferHome
{
protected:
    static constexpr int kComps = 30;
    static constexpr int kMine = 10; ///< of them, with other texts
    tests::KilledWork killed;

    static QString Name(int i) { return u"%1 OAK ST"_s.arg(100 + i); }
    static QByteArray Picture(int i) { return "\xFF\xD8\xFF" + QByteArray(7000 + i, 'p'); }
    static QString File(int i) { return u"C:\\JPG\\P%1.jpg"_s.arg(i); }

    void SetUp() override
    {
        TransferHome::SetUp();
        QList<Values> theirs;
        for (int i = 0; i < kComps; ++i) {
            theirs.append(Comp(Name(i), u"THEIRS"_s, u"FRONT VIEW|P%1\r\n"_s.arg(i)));
            disk.WriteWhole(File(i), Picture(i));
        }
        AddRows(theirs);
        Bind(databook);
        ASSERT_TRUE(ExportTable(Desk(), {.target = target, .table = table, .search = {}, .pictures = true}, Step()).written);
        databook.Close();
        m_source = disk.ReadWhole(target);
        disk.Kill(path);
        store::MakeDatabase(engine, path);
        QList<Values> mine;
        for (int i = 0; i < kMine; ++i)
            mine.append(Comp(Name(i), u"MINE"_s, u" "_s));
        AddRows(mine);
        m_databook = disk.ReadWhole(path);
    }
    void RunAndKill(const std::function<void(const TransferDesk&)>& work)
    {
        disk.WriteWhole(path, m_databook);
        QDir(disk.ToNative(u"C:\\JPG"_s)).removeRecursively();
        disk.MkDir(u"C:\\JPG"_s);
        const auto all = [&] {
            engine::Engine own{disk, tests::SomeTime()};
            store::DataSource theirs{own, u"datDatabook"_s};
            theirs.Open(path, table, store::SourceKind::Table);
            work({.databook = theirs, .globals = globals, .ports = ports});
        };
        killed.Run(all);
    }
    /// CITY by key.
    QMap<QString, QString> Towns()
    {
        QMap<QString, QString> towns;
        const auto open = engine.OpenDatabase(path);
        store::Rows rows(*open, u"SELECT CENTRALKEY, CITY FROM COMPS"_s);
        while (const auto row = rows.Next())
            towns.insert(row->Text(key), row->Text(u"CITY"_s));
        return towns;
    }
    void ExpectPictures(int from, int run)
    {
        for (int i = from; i < kComps; ++i)
            EXPECT_TRUE(disk.FileExists(File(i)) && disk.ReadWhole(File(i)) == Picture(i)) << i << " in run " << run;
    }
    void ExpectSourceAsItWas(int run) { EXPECT_TRUE(disk.ReadWhole(target) == m_source) << "in run " << run; }
    void ExpectNoneWaits()
    {
        EXPECT_EQ(QDir(disk.ToNative(u"C:\\JPG"_s)).entryList({u"*.incoming*"_s}, QDir::Files), QStringList());
    }
    void Account(int before, int after)
    {
        EXPECT_GT(before, 0);
        EXPECT_GT(after, 0);
        RecordProperty("before", before);
        RecordProperty("after", after);
    }

private:
    QByteArray m_source, m_databook;
};

TEST_F(ImportKill, BringsAllRowsInWithTheirPicturesOrNone)
{
    const auto work = [&](const TransferDesk& desk) {
        (void)ImportTable(desk, {.source = target, .table = table, .pictures = true},
                          [](qint64, qint64, const QString&) { return true; });
    };
    int before = 0;
    int after = 0;
    for (int run = 0; run < tests::Kills(14); ++run) {
        RunAndKill(work);
        const qsizetype rows = Towns().size();
        EXPECT_TRUE(rows == kMine || rows == kComps) << rows << " in run " << run;
        EXPECT_EQ(Towns().values().count(u"MINE"_s), kMine) << run;
        if (rows == kComps)
            ExpectPictures(kMine, run);
        ExpectSourceAsItWas(run);
        ++(rows == kMine ? before : after);
        if (rows == kComps)
            continue;
        // Whoever imports again has everything, without a question.
        Bind(databook);
        const ImportResult again = ImportTable(Desk(), {.source = target, .table = table, .pictures = true}, Step());
        databook.Close();
        EXPECT_EQ(again.appended, kComps - kMine) << run;
        EXPECT_TRUE(doubles.prompter.Boxes().empty()) << run;
        ExpectPictures(kMine, run);
        ExpectNoneWaits();
    }
    Account(before, after);
}

TEST_F(ImportKill, OfARehearsalEveryChoiceIsDoneOrNone)
{
    const auto work = [&](const TransferDesk& desk) {
        const WorkStep step = [](qint64, qint64, const QString&) { return true; };
        Rehearsal rehearsal(desk, {.source = target, .table = table, .pictures = true}, step);
        rehearsal.ChooseAll(RowKind::New, RowChoice::Add);
        rehearsal.ChooseAll(RowKind::Changed, RowChoice::TakeTheirs);
        (void)rehearsal.Carry(step);
    };
    int before = 0;
    int after = 0;
    for (int run = 0; run < tests::Kills(14); ++run) {
        RunAndKill(work);
        const auto towns = Towns();
        const auto theirs = towns.values().count(u"THEIRS"_s);
        EXPECT_TRUE((theirs == 0 && towns.size() == kMine) || (theirs == kComps && towns.size() == kComps))
            << theirs << " of " << towns.size() << " in run " << run;
        if (theirs == kComps)
            ExpectPictures(0, run);
        ExpectSourceAsItWas(run);
        ++(theirs == 0 ? before : after);
    }
    Account(before, after);
}

} // namespace
} // namespace vasclip::upkeep
