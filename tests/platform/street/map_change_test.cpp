#include "platform/street/map_change.h"

#include "platform/street/county_writer.h"
#include "platform/street/made_town.h"
#include "platform/street/map_data.h"
#include "platform/street/map_index.h"
#include "support/file_limit.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vasclip::street {
namespace {

using namespace Qt::StringLiterals;

class MapChanges : public testing::Test
{
protected:
    QString Below(const QString& name) const { return directory.filePath(name); }

    static QString Written(MapChange& change, const QString& county, int streets)
    {
        const tests::MadeTown town({32'000'000, -86'000'000}, streets);
        const QString path = change.NewFile(county);
        CountyInfo info;
        info.county = county;
        CountyWriter writer(path, info);
        for (const RoadEdge& edge : town.edges)
            writer.Add(edge);
        QString problem;
        EXPECT_TRUE(writer.Finish(problem)) << problem.toStdString();
        return path;
    }

    void Import(const QString& county, int streets)
    {
        MapChange change(directory.path());
        QString problem;
        ASSERT_TRUE(change.Begin(problem)) << problem.toStdString();
        ASSERT_TRUE(change.Put(Written(change, county, streets), problem)) << problem.toStdString();
        ASSERT_TRUE(change.Commit(problem)) << problem.toStdString();
    }

    /// "01001 180|01003 12"
    QString Maps() const
    {
        QStringList maps;
        const MapData data(directory.path());
        for (const CountyRecord& record : data.Counties())
            maps.append(record.info.county + u' ' + QString::number(record.info.edges));
        (void)data.Cells(data.Covered(), Level::Streets);
        return (maps + data.Problems()).join(u'|');
    }

    QStringList Files() const
    {
        return QDir(directory.path()).entryList(QDir::Files | QDir::Hidden);
    }

    QTemporaryDir directory;
};

TEST_F(MapChanges, PutAndReplaceAndRemove)
{
    Import(u"01003"_s, 3);
    Import(u"01001"_s, 4);
    EXPECT_EQ(Maps(), u"01001 24|01003 12"_s);
    Import(u"01003"_s, 5);
    EXPECT_EQ(Maps(), u"01001 24|01003 40"_s);
    // The old file of the county went, and the lock with its holder.
    EXPECT_EQ(Files().size(), 3);
    MapChange change(directory.path());
    QString problem;
    ASSERT_TRUE(change.Begin(problem));
    EXPECT_TRUE(change.Remove(u"01001"_s));
    EXPECT_FALSE(change.Remove(u"01001"_s));
    EXPECT_EQ(Maps(), u"01001 24|01003 40"_s);
    ASSERT_TRUE(change.Commit(problem));
    EXPECT_EQ(Maps(), u"01003 40"_s);
    EXPECT_TRUE(VerifyMaps(directory.path()).isEmpty());
}

TEST_F(MapChanges, NewMapsWaitBesideThoseInUse)
{
    Import(u"01001"_s, 4);
    Import(u"01003"_s, 3);
    const auto beside = [this](const QString& county, int streets) {
        MapChange change(directory.path());
        QString problem;
        ASSERT_TRUE(change.Begin(problem));
        ASSERT_TRUE(change.Put(Written(change, county, streets), problem));
        ASSERT_TRUE(change.CommitBeside(problem)) << problem.toStdString();
    };
    EXPECT_FALSE(HasMapsBeside(directory.path()));
    beside(u"01003"_s, 5);
    beside(u"01003"_s, 6);
    EXPECT_TRUE(HasMapsBeside(directory.path()));
    EXPECT_EQ(MapsBeside(directory.path()), QStringList{u"01003"_s});
    EXPECT_EQ(Maps(), u"01001 24|01003 12"_s) << "those in use stay";
    EXPECT_EQ(Files().size(), 5) << "two maps, the last of the new ones, two indexes";
    {
        const MapData next(directory.path(), {}, kBesideName);
        ASSERT_EQ(next.Counties().size(), 2u);
        EXPECT_EQ(next.Counties()[1].info.edges, 60);
    }
    QString problem;
    ASSERT_TRUE(UseMapsBeside(directory.path(), problem)) << problem.toStdString();
    EXPECT_EQ(Maps(), u"01001 24|01003 60"_s);
    EXPECT_EQ(Files().size(), 3);
    EXPECT_TRUE(VerifyMaps(directory.path()).isEmpty());
    EXPECT_FALSE(UseMapsBeside(directory.path(), problem));
    EXPECT_EQ(problem, u"no new maps wait beside those in use"_s);
    EXPECT_EQ(Maps(), u"01001 24|01003 60"_s);
}

TEST_F(MapChanges, NewMapsThatWaitGoWhenTheyAreDiscardedOrOld)
{
    const auto beside = [this] {
        MapChange change(directory.path());
        QString problem;
        ASSERT_TRUE(change.Begin(problem));
        ASSERT_TRUE(change.Put(Written(change, u"01003"_s, 5), problem));
        ASSERT_TRUE(change.CommitBeside(problem));
    };
    QString problem;
    beside();
    EXPECT_EQ(Maps(), QString()) << "none is in use";
    ASSERT_TRUE(DropMapsBeside(directory.path(), problem)) << problem.toStdString();
    EXPECT_EQ(Files(), QStringList{u"F1"_s});
    Import(u"01001"_s, 4);
    beside();
    ASSERT_TRUE(DropMapsBeside(directory.path(), problem)) << problem.toStdString();
    EXPECT_EQ(Files().size(), 2);
    EXPECT_EQ(Maps(), u"01001 24"_s);
    beside();
    Import(u"01005"_s, 2);
    EXPECT_FALSE(HasMapsBeside(directory.path())) << "they were made for the maps before";
    EXPECT_EQ(Maps(), u"01001 24|01005 4"_s);
    EXPECT_EQ(Files().size(), 3);
}

TEST_F(MapChanges, ChangeNothingWithoutCommit)
{
    Import(u"01001"_s, 4);
    {
        MapChange change(directory.path());
        QString problem;
        ASSERT_TRUE(change.Begin(problem));
        ASSERT_TRUE(change.Put(Written(change, u"01001"_s, 9), problem));
        ASSERT_TRUE(change.Put(Written(change, u"01003"_s, 9), problem));
    }
    EXPECT_EQ(Maps(), u"01001 24"_s);
    // What was left is swept by the next.
    EXPECT_EQ(Files().size(), 4);
    Import(u"01005"_s, 3);
    EXPECT_EQ(Maps(), u"01001 24|01005 12"_s);
    EXPECT_EQ(Files().size(), 3);
}

TEST_F(MapChanges, AreOneAtATime)
{
    MapChange one(directory.path());
    QString problem;
    ASSERT_TRUE(one.Begin(problem));
    MapChange other(directory.path());
    EXPECT_FALSE(other.Begin(problem));
    EXPECT_EQ(problem, u"another program is changing the maps of this directory"_s);
}

TEST_F(MapChanges, KeepTheOldIndexWhenTheDiskIsFull)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    Import(u"01001"_s, 4);
    MapChange change(directory.path());
    QString problem;
    ASSERT_TRUE(change.Begin(problem));
    ASSERT_TRUE(change.Put(Written(change, u"01003"_s, 4), problem));
    {
        const tests::FileLimit full(1024);
        EXPECT_FALSE(change.Commit(problem));
    }
    EXPECT_EQ(problem, u"the disk is full"_s);
    EXPECT_EQ(Maps(), u"01001 24"_s);
    // Once there is room the same change succeeds.
    EXPECT_TRUE(change.Commit(problem));
    EXPECT_EQ(Maps(), u"01001 24|01003 24"_s);
}

TEST_F(MapChanges, RecoverTheMapsOfAnIndexThatIsGone)
{
    Import(u"01001"_s, 4);
    Import(u"01003"_s, 3);
    QFile::remove(Below(u"F1"_s));
    QFile foreign(Below(u"zz.cel"_s));
    ASSERT_TRUE(foreign.open(QIODevice::WriteOnly));
    foreign.write("no map");
    foreign.close();
    MapChange change(directory.path());
    QString problem;
    ASSERT_TRUE(change.Begin(problem));
    EXPECT_EQ(change.Notes(),
              (QStringList{u"F1: the file is missing"_s, u"zz.cel: the file is no map of a county"_s}));
    ASSERT_TRUE(change.Commit(problem));
    EXPECT_EQ(Maps(), u"01001 24|01003 12"_s);
}

TEST_F(MapChanges, SayWhereNothingCanBeWritten)
{
    QFile file(Below(u"file"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    MapChange change(Below(u"file/maps"_s));
    QString problem;
    EXPECT_FALSE(change.Begin(problem));
    EXPECT_EQ(problem, u"the directory can't be made: "_s + Below(u"file/maps"_s));
}

TEST_F(MapChanges, VerifyTellsEachFault)
{
    Import(u"01001"_s, 4);
    Import(u"01003"_s, 12);
    Import(u"01005"_s, 4);
    EXPECT_TRUE(VerifyMaps(directory.path()).isEmpty());
    const std::vector<CountyRecord> counties = MapData(directory.path()).Counties();
    QFile::remove(Below(counties[0].file));
    // A byte in the free room of a page is read by nobody; the checksum sees it.
    QFile file(Below(counties[2].file));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(96);
    const QByteArray before = file.peek(1);
    file.write(QByteArray(1, static_cast<char>(before[0] ^ 1)));
    file.close();
    QStringList asked;
    const QStringList problems = VerifyMaps(directory.path(), [&asked](qint64 at, qint64 all, const QString& county) {
        asked.append(u"%1/%2 %3"_s.arg(at).arg(all).arg(county));
        return true;
    });
    EXPECT_EQ(problems, (QStringList{u"01001: the file is missing"_s, u"01005: the file is not as it was written"_s}));
    EXPECT_EQ(asked, (QStringList{u"0/3 01001"_s, u"1/3 01003"_s, u"2/3 01005"_s}));
    QFile::remove(Below(u"F1"_s));
    EXPECT_EQ(VerifyMaps(directory.path()), QStringList{u"F1: the file is missing"_s});
}

TEST_F(MapChanges, CountiesHaveNamesThatFilesCanHave)
{
    for (const QString& good : {u"01001"_s, u"Elm County"_s, u"St-Jean_2"_s})
        EXPECT_EQ(NameFault(good), QString()) << good.toStdString();
    for (const QString& bad : {QString(), u" 01001"_s, u"../x"_s, u"a/b"_s, u"a.b"_s, u"a\nb"_s, QString(41, u'a')})
        EXPECT_NE(NameFault(bad), QString()) << bad.toStdString();
}

} // namespace
} // namespace vasclip::street
