#include "faults/kills.h"
#include "support/killed_work.h"
#include "upkeep/archive_home.h"

namespace vasclip::upkeep {
namespace {

class ArchiveKill : public ArchiveHome
{};

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
    for (int run = 0; run < tests::Kills(12); ++run) {
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
                                  [](qint64, qint64, const Archived&) { return true; });
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
        // Whoever runs it again ends it, without a question.
        duplicates = Duplicates::Ask;
        (void)Run();
        source.Close();
        EXPECT_TRUE(Here().isEmpty());
        EXPECT_EQ(There(), all);
    }
    EXPECT_GT(half, 0) << "no kill came in the middle";
}

} // namespace
} // namespace vasclip::upkeep
