#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/archive_home.h"
#include "upkeep/archive_journal.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace vasclip::upkeep {
namespace {

class ArchiveKill : public ArchiveHome
{
protected:
    /// What an opening of the Databook does about a killed one.
    void Reopen()
    {
        Bind(source);
        ArchiveJournal::Replay(source);
        source.Close();
    }
    QStringList Lists() { return disk.Dir(u"C:\\*.archiving*"_s); }
    QStringList Photos() { return disk.Dir(u"C:\\JPG\\*"_s); }
    QStringList Archived() { return disk.Dir(pictures + u"*"_s); }
    /// Kills it when the pictures are copied and the record has not gone.
    void KillBeforeTheCommit()
    {
        const pid_t child = fork();
        if (child == 0) {
            try {
                engine::Engine own{disk, tests::SomeTime()};
                store::DataSource theirs{own, u"datDatabook"_s};
                theirs.Open(path, table, store::SourceKind::Table);
                theirs.Watch([](const store::Step&) { raise(SIGKILL); });
                (void)CopyArchiveData({ports, theirs, globals, disk, archive, table, range, duplicates},
                                      [](qint64, qint64, const upkeep::Archived&) { return true; });
            } catch (...) {
            }
            _exit(1);
        }
        int status = 0;
        waitpid(child, &status, 0);
        ASSERT_TRUE(WIFSIGNALED(status)) << "it came to its end";
    }
};

/// Kills a process that archives, at any moment.
TEST_F(ArchiveKill, AKillLeavesEachRecordInOneOfTheTwoFilesWithItsPictures)
{
    constexpr int kComps = 8;
    QStringList all;
    for (int i = 10; i < 10 + kComps; ++i) {
        all.append(u"%1 A ST"_s.arg(i));
        Comp(all.last(), u"05/05/1995"_s, u"P%1"_s.arg(i));
    }
    const QByteArray databook = disk.ReadWhole(path);
    const QByteArray empty = disk.ReadWhole(archive);
    tests::KilledWork killed;
    int half = 0;
    for (int run = 0; tests::MoreKills(run, 12, {half}); ++run) {
        disk.WriteWhole(path, databook);
        disk.WriteWhole(archive, empty);
        for (const QString& name : all)
            for (const QString& end : {QString(), u"R"_s}) {
                const QString picture = u"P%1%2.jpg"_s.arg(name.left(2), end);
                disk.WriteWhole(u"C:\\JPG\\"_s + picture, end.isEmpty() ? "front" : "rear");
                if (disk.FileExists(pictures + picture))
                    disk.Kill(pictures + picture);
            }
        killed.Run([&] {
            engine::Engine own{disk, tests::SomeTime()};
            store::DataSource theirs{own, u"datDatabook"_s};
            theirs.Open(path, table, store::SourceKind::Table);
            (void)CopyArchiveData({ports, theirs, globals, disk, archive, table, range, duplicates},
                                  [](qint64, qint64, const upkeep::Archived&) { return true; });
        });
        const QStringList here = Here();
        const QStringList there = There();
        half += !here.isEmpty() && !there.isEmpty();
        QStringList both = here + there;
        both.sort();
        EXPECT_EQ(both, all) << "each in one of them, in run " << run;
        for (const QString& name : all)
            for (const QString& end : {QString(), u"R"_s}) {
                const QString picture = u"P%1%2.jpg"_s.arg(name.left(2), end);
                EXPECT_TRUE(disk.FileExists((here.contains(name) ? u"C:\\JPG\\"_s : pictures) + picture))
                    << name.toStdString() << " without " << picture.toStdString() << " in run " << run;
            }
        // An opening of the Databook leaves each picture in the one place alone.
        Reopen();
        EXPECT_EQ(disk.Dir(u"C:\\JPG\\*"_s).size(), 2 * here.size()) << "in run " << run;
        EXPECT_EQ(disk.Dir(pictures + u"*.jpg"_s).size(), 2 * there.size()) << "in run " << run;
        EXPECT_EQ(Lists(), QStringList()) << run;
        // Whoever runs it again ends it, without a question.
        duplicates = Duplicates::Ask;
        (void)Run();
        source.Close();
        EXPECT_TRUE(Here().isEmpty());
        EXPECT_EQ(There(), all);
    }
    EXPECT_GT(half, 0) << "no kill came in the middle";
}

TEST_F(ArchiveKill, BeforeTheCommitTheCopiesGo)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    disk.MkDir(pictures.chopped(1));
    disk.WriteWhole(pictures + u"AR.jpg"_s, disk.ReadWhole(u"C:\\JPG\\AR.jpg"_s)); // it was there before
    KillBeforeTheCommit();
    EXPECT_EQ(Archived(), (QStringList{u"A.jpg"_s, u"AR.jpg"_s})) << "the kill came too early";
    Reopen();
    EXPECT_EQ(Archived(), QStringList{u"AR.jpg"_s});
    EXPECT_EQ(Photos(), (QStringList{u"A.jpg"_s, u"AR.jpg"_s}));
    EXPECT_EQ(Here(), QStringList{u"1 A ST"_s});
    EXPECT_EQ(Lists(), QStringList());
}

TEST_F(ArchiveKill, BeforeTheCommitWhatTheArchiveNamesOrHoldsOtherwiseStays)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    KillBeforeTheCommit();
    disk.WriteWhole(pictures + u"AR.jpg"_s, "another one");
    {
        const auto database = engine.OpenDatabase(archive);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        rows->AddNew();
        rows->SetValue(key, u"9 Z ST"_s);
        rows->SetValue(u"PHOTOS"_s, u"FRONT VIEW|a\r\n"_s);
        rows->Update();
    }
    Reopen();
    EXPECT_EQ(Archived(), (QStringList{u"A.jpg"_s, u"AR.jpg"_s}));
}

/// The record has gone, and its pictures were not deleted here.
TEST_F(ArchiveKill, BehindTheCommitThePicturesHereGo)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    KillBeforeTheCommit();
    const QString list = u"C:\\"_s + Lists().value(0);
    const QByteArray content = disk.ReadWhole(list);
    const QMap<QString, QByteArray> held{{u"A"_s, "front of 1 A ST"}, {u"AR"_s, "rear of 1 A ST"}};
    disk.Kill(list);
    EXPECT_EQ(Run().moved, 1);
    source.Close();
    EXPECT_EQ(Photos(), QStringList());
    const auto putBack = [&] {
        disk.WriteWhole(list, content);
        for (const QJsonValue& one : QJsonDocument::fromJson(content)[u"pictures"_s].toArray()) {
            QFile file(one[u"here"_s].toString());
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(held.value(QFileInfo(file).completeBaseName()));
            file.flush();
            ASSERT_TRUE(file.setFileTime(QDateTime::fromMSecsSinceEpoch(one[u"changed"_s].toInteger()),
                                         QFileDevice::FileModificationTime));
        }
    };
    putBack();
    disk.WriteWhole(u"C:\\JPG\\A.jpg"_s, "front of 1 A ST"); // the user's, of another time
    Reopen();
    EXPECT_EQ(Photos(), QStringList{u"A.jpg"_s});
    EXPECT_EQ(Lists(), QStringList());
    putBack();
    disk.WriteWhole(pictures + u"A.jpg"_s, "another one"); // so that the one here is the last of its kind
    AddRow({{key, u"2 B ST"_s}, {u"PHOTOS"_s, u"FRONT VIEW|ar\r\n"_s}});
    Reopen();
    EXPECT_EQ(Photos(), (QStringList{u"A.jpg"_s, u"AR.jpg"_s}));
    disk.WriteWhole(pictures + u"A.jpg"_s, "front of 1 A ST");
    putBack();
    {
        const auto database = engine.OpenDatabase(path);
        database->Execute(u"DELETE FROM COMPS"_s);
        database->Close();
    }
    Reopen();
    EXPECT_EQ(Photos(), QStringList());
    EXPECT_EQ(Archived().size(), 2);
}

TEST_F(ArchiveKill, WaitsForAnArchiveThatIsAway)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    KillBeforeTheCommit();
    disk.Name(archive, archive + u".AWAY"_s);
    Reopen();
    EXPECT_EQ(Lists().size(), 1);
    EXPECT_EQ(Archived().size(), 2);
    disk.Name(archive + u".AWAY"_s, archive);
    Reopen();
    EXPECT_EQ(Lists().size(), 0);
    EXPECT_EQ(Archived().size(), 0);
}

TEST_F(ArchiveKill, ARecordThatStaysLeavesNoCopies)
{
    Comp(u"1 A ST"_s, u"05/05/1995"_s, u"A"_s);
    Bind(source);
    source.Watch([](const store::Step&) { throw RuntimeError(error::kDuplicateKey, u"kept out"_s); });
    const upkeep::Archived done = CopyArchiveData(Work(), [](qint64, qint64, const upkeep::Archived&) { return true; });
    EXPECT_EQ(done.left.size(), 1);
    EXPECT_EQ(Archived(), QStringList());
    EXPECT_EQ(Photos().size(), 2);
    EXPECT_EQ(Lists(), QStringList());
}

} // namespace
} // namespace vasclip::upkeep
