#include "platform/street/map_data.h"

#include "platform/street/cell_grid.h"
#include "platform/street/county_writer.h"
#include "platform/street/made_town.h"
#include "support/unix.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <thread>

namespace vasclip::street {
namespace {

using namespace Qt::StringLiterals;
using tests::MadeTown;

constexpr Place kFirst{32'000'000, -86'000'000};
constexpr Place kSecond{33'000'000, -86'000'000};

class Maps : public testing::Test
{
protected:
    QString Below(const QString& name) const { return directory.filePath(name); }

    CountyRecord Write(const QString& county, Place corner, int streets = 12)
    {
        const MadeTown town(corner, streets);
        const QString file = county + u"-a.cel"_s;
        CountyInfo info;
        info.county = county;
        CountyWriter writer(Below(file), info);
        for (const RoadEdge& edge : town.edges)
            writer.Add(edge);
        for (const PlaceName& place : town.places)
            writer.Add(place);
        QString problem;
        EXPECT_TRUE(writer.Finish(problem)) << problem.toStdString();
        CountyRecord record;
        EXPECT_TRUE(MakeRecord(directory.path(), file, record, problem)) << problem.toStdString();
        return record;
    }

    void TwoCounties(int streets = 12)
    {
        QString problem;
        ASSERT_TRUE(WriteIndex(directory.path(), {Write(u"01003"_s, kSecond, streets), Write(u"01001"_s, kFirst, streets)},
                               problem))
            << problem.toStdString();
    }

    static void Spoil(const QString& path, qint64 at, const QByteArray& bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(at);
        file.write(bytes);
    }

    static void Sql(const QString& path, const char* sql)
    {
        sqlite3* file = nullptr;
        ASSERT_EQ(sqlite3_open(path.toUtf8().constData(), &file), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(file, sql, nullptr, nullptr, nullptr), SQLITE_OK) << sqlite3_errmsg(file);
        sqlite3_close(file);
    }

    static std::size_t Edges(const MapData& maps)
    {
        std::size_t edges = 0;
        for (const auto& cell : maps.Cells(maps.Covered(), Level::Streets))
            edges += cell->edges.size();
        return edges;
    }

    QTemporaryDir directory;
};

TEST_F(Maps, GiveTheCellsOfAllCounties)
{
    TwoCounties();
    const MapData maps(directory.path());
    ASSERT_TRUE(maps.IsOpen());
    ASSERT_EQ(maps.Counties().size(), 2U);
    EXPECT_EQ(maps.Counties()[0].info.county, u"01001"_s);
    EXPECT_EQ(maps.Counties()[0].number, 1U);
    EXPECT_TRUE(maps.Covered().Contains(kFirst));
    EXPECT_TRUE(maps.Covered().Contains(kSecond));
    const auto cells = maps.Cells(maps.Covered(), Level::Streets);
    ASSERT_FALSE(cells.empty());
    const std::size_t all = Edges(maps);
    Extent first;
    first.Widen(kFirst);
    first.Widen(Place{kFirst.latitude + 20'000, kFirst.longitude + 20'000});
    std::size_t edges = 0;
    for (const auto& cell : maps.Cells(first, Level::Streets))
        edges += cell->edges.size();
    EXPECT_EQ(edges * 2, all);
    EXPECT_TRUE(maps.Problems().isEmpty());
    const Cell& cell = *cells.front();
    EXPECT_FALSE(maps.StreetName(cell, 1).isEmpty());
    EXPECT_TRUE(maps.StreetName(cell, 0).isEmpty());
    EXPECT_TRUE(maps.StreetName(cell, 100'000).isEmpty());
    EXPECT_TRUE(maps.Shield(cell, 100'000).isEmpty());
    EXPECT_TRUE(maps.Cells({}, Level::Streets).empty());
}

TEST_F(Maps, KeepWhatWasReadWithinTheLimit)
{
    TwoCounties(60);
    const MapData all(directory.path());
    const std::size_t edges = Edges(all);
    const qsizetype whole = all.CachedBytes();
    const qsizetype limit = whole / 4;
    const MapData maps(directory.path(), {limit, 1});
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(Edges(maps), edges);
        EXPECT_LE(maps.CachedBytes(), limit);
        EXPECT_GT(maps.CachedBytes(), 0);
    }
    // What is kept is the same cell, not another copy.
    const MapData again(directory.path());
    EXPECT_EQ(again.Cells(again.Covered(), Level::Town), again.Cells(again.Covered(), Level::Town));
}

TEST_F(Maps, AnswerSeveralThreads)
{
    TwoCounties(40);
    const MapData maps(directory.path(), {64 * 1024, 1});
    const std::size_t wanted = Edges(maps);
    std::vector<std::thread> threads;
    std::vector<std::size_t> found(4);
    for (std::size_t at = 0; at < found.size(); ++at) {
        threads.emplace_back([&maps, &found, at] {
            for (int round = 0; round < 5; ++round)
                found[at] += Edges(maps);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (const std::size_t edges : found)
        EXPECT_EQ(edges, 5 * wanted);
    EXPECT_TRUE(maps.Problems().isEmpty());
}

TEST_F(Maps, WithoutAnIndexSayWhichIsMissing)
{
    {
        const MapData maps(Below(u"none"_s));
        EXPECT_FALSE(maps.IsOpen());
        EXPECT_EQ(maps.Problems(), QStringList{u"F1: the directory is missing"_s});
        EXPECT_TRUE(maps.Covered().IsEmpty());
        EXPECT_TRUE(maps.Cells({kFirst, kSecond}, Level::Streets).empty());
    }
    EXPECT_EQ(MapData(directory.path()).Problems(), QStringList{u"F1: the file is missing"_s});
    TwoCounties();
    QFile::remove(Below(u"F1"_s));
    EXPECT_EQ(MapData(directory.path()).Problems(),
              QStringList{u"F1: the index is missing though there are maps; import them again"_s});
}

TEST_F(Maps, AMissingCountyIsLeftOutByItsName)
{
    TwoCounties();
    QFile::remove(Below(u"01003-a.cel"_s));
    const MapData maps(directory.path());
    EXPECT_GT(Edges(maps), 0U);
    EXPECT_EQ(maps.Problems(), QStringList{u"01003: the file is missing"_s});
}

TEST_F(Maps, ATruncatedCountyIsLeftOutByItsName)
{
    TwoCounties();
    const QString path = Below(u"01003-a.cel"_s);
    QFile::resize(path, QFile(path).size() / 2);
    const MapData maps(directory.path());
    EXPECT_GT(Edges(maps), 0U);
    EXPECT_EQ(maps.Problems(), QStringList{u"01003: the file is shorter than it was written"_s});
    QFile::resize(path, 0);
    const MapData empty(directory.path());
    EXPECT_GT(Edges(empty), 0U);
    EXPECT_EQ(empty.Problems(), QStringList{u"01003: the file is no map of a county"_s});
}

TEST_F(Maps, AForeignFileIsLeftOutByItsName)
{
    TwoCounties();
    const QString path = Below(u"01003-a.cel"_s);
    QFile::remove(path);
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray(100'000, 'x'));
    file.close();
    const MapData maps(directory.path());
    EXPECT_GT(Edges(maps), 0U);
    EXPECT_EQ(maps.Problems(), QStringList{u"01003: the file is no map of a county"_s});

    QFile::remove(path);
    Sql(path, "CREATE TABLE cells(id INTEGER PRIMARY KEY, bytes BLOB)");
    const MapData other(directory.path());
    EXPECT_GT(Edges(other), 0U);
    EXPECT_EQ(other.Problems(), QStringList{u"01003: the file is no map of a county"_s});
}

TEST_F(Maps, AMapOfAnotherVersionSaysSo)
{
    TwoCounties();
    Sql(Below(u"01003-a.cel"_s), "PRAGMA user_version=1999");
    const MapData maps(directory.path());
    EXPECT_GT(Edges(maps), 0U);
    EXPECT_EQ(maps.Problems(),
              QStringList{
                  u"01003: the file was made for another version of the program; import the map again"_s});
    Sql(Below(u"F1"_s), "PRAGMA user_version=2999");
    EXPECT_EQ(MapData(directory.path()).Problems(),
              QStringList{u"F1: the file was made for another version of the program; import the map again"_s});
}

TEST_F(Maps, MapsOfTheVersionBeforeAreRead)
{
    TwoCounties();
    const std::size_t all = Edges(MapData(directory.path()));
    Sql(Below(u"01003-a.cel"_s), "PRAGMA user_version=1001");
    const MapData maps(directory.path());
    EXPECT_EQ(Edges(maps), all);
    EXPECT_EQ(maps.Problems(), QStringList());
    for (const char* other : {"PRAGMA user_version=1000", "PRAGMA user_version=1003"}) {
        Sql(Below(u"01003-a.cel"_s), other);
        const MapData left(directory.path());
        EXPECT_LT(Edges(left), all) << other;
        EXPECT_EQ(left.Problems().size(), 1) << other;
    }
}

TEST_F(Maps, AFileOfAnotherCountyUnderItsNameIsLeftOut)
{
    TwoCounties();
    QFile::remove(Below(u"01003-a.cel"_s));
    QFile::copy(Below(u"01001-a.cel"_s), Below(u"01003-a.cel"_s));
    const MapData maps(directory.path());
    EXPECT_GT(Edges(maps), 0U);
    EXPECT_EQ(maps.Problems(), QStringList{u"01003: the file is of another map than the index says"_s});
}

TEST_F(Maps, AnIndexThatLeadsElsewhereIsRefused)
{
    TwoCounties();
    Sql(Below(u"F1"_s), "UPDATE counties SET file = '../01003-a.cel' WHERE number = 2");
    const MapData maps(directory.path());
    EXPECT_FALSE(maps.IsOpen());
    EXPECT_EQ(maps.Problems(), QStringList{u"F1: the index names a file that is no map: ../01003-a.cel"_s});
}

TEST_F(Maps, OneDamagedCellIsLeftOutAndTold)
{
    TwoCounties(40);
    const std::size_t all = Edges(MapData(directory.path()));
    const quint32 id = grid::IdAt(Level::Streets, kSecond);
    Sql(Below(u"01003-a.cel"_s),
        ("UPDATE cells SET bytes = x'00ff' WHERE id = " + std::to_string(id)).c_str());
    const MapData maps(directory.path());
    const std::size_t left = Edges(maps);
    EXPECT_GT(left, all / 2);
    EXPECT_LT(left, all);
    EXPECT_EQ(maps.Problems(), QStringList{u"01003: cell %1 is damaged"_s.arg(id)});
}

TEST_F(Maps, SpoiltBytesAnywhereOnlyCostTheirCounty)
{
    TwoCounties();
    const std::size_t all = Edges(MapData(directory.path()));
    const QString path = Below(u"01003-a.cel"_s);
    QFile::copy(path, Below(u"kept"_s));
    const qint64 size = QFile(path).size();
    for (qint64 at = 0; at < size; at += size / 60) {
        QFile::remove(path);
        QFile::copy(Below(u"kept"_s), path);
        Spoil(path, at, QByteArray(200, '\xa5'));
        const MapData maps(directory.path());
        const std::size_t found = Edges(maps);
        EXPECT_GE(found, all / 2) << at;
        EXPECT_LE(found, all) << at;
    }
}

TEST_F(Maps, GoOnWhenTheyAreRemovedWhileOpen)
{
    VASCLIP_NEEDS_UNIX("a file that is removed while it is open");
    TwoCounties(60);
    const MapData maps(directory.path(), {1024, 8});
    const std::size_t edges = Edges(maps);
    EXPECT_FALSE(maps.IsOutdated());
    ASSERT_TRUE(QDir(directory.path()).removeRecursively());
    EXPECT_EQ(Edges(maps), edges);
    EXPECT_TRUE(maps.IsOutdated());
    EXPECT_TRUE(maps.Problems().isEmpty());
    // With only one file at hand the other can't be opened again, and that is told.
    ASSERT_TRUE(QDir().mkpath(directory.path()));
    TwoCounties();
    const MapData few(directory.path(), {1024, 1});
    EXPECT_GT(Edges(few), 0U);
    ASSERT_TRUE(QDir(directory.path()).removeRecursively());
    EXPECT_GT(Edges(few), 0U);
    EXPECT_EQ(few.Problems(), QStringList{u"01001: the file is missing"_s});
}

TEST_F(Maps, AnotherIndexIsNoticed)
{
    VASCLIP_NEEDS_UNIX("a file that is replaced while it is open");
    TwoCounties();
    const MapData maps(directory.path());
    QString problem;
    std::vector<CountyRecord> one = maps.Counties();
    one.pop_back();
    ASSERT_TRUE(WriteIndex(directory.path(), one, problem));
    EXPECT_TRUE(maps.IsOutdated());
    EXPECT_EQ(MapData(directory.path()).Counties().size(), 1U);
    EXPECT_EQ(maps.Counties().size(), 2U);
}

TEST_F(Maps, OverlappingCountiesAreBothDrawn)
{
    QString problem;
    const CountyRecord one = Write(u"01001"_s, kFirst);
    const CountyRecord other = Write(u"copy of it"_s, kFirst);
    ASSERT_TRUE(WriteIndex(directory.path(), {one}, problem));
    const std::size_t edges = Edges(MapData(directory.path()));
    ASSERT_TRUE(WriteIndex(directory.path(), {one, other}, problem));
    EXPECT_EQ(Edges(MapData(directory.path())), 2 * edges);
}

TEST_F(Maps, AnIndexThatCanNotBeWrittenLeavesTheOldOne)
{
    TwoCounties();
    QString problem;
    EXPECT_FALSE(WriteIndex(Below(u"none"_s), {}, problem));
    EXPECT_EQ(problem, u"the directory is missing"_s);
    EXPECT_EQ(MapData(directory.path()).Counties().size(), 2U);
}

} // namespace
} // namespace vasclip::street
