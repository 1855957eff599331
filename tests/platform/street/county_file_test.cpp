#include "platform/street/county_file.h"

#include "platform/street/cell_grid.h"
#include "platform/street/county_writer.h"
#include "platform/street/made_town.h"
#include "support/file_limit.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <set>

namespace vasclip::street {
namespace {

using namespace Qt::StringLiterals;
using tests::MadeTown;

CountyInfo About()
{
    CountyInfo info;
    info.county = u"01001"_s;
    info.state = u"AL"_s;
    info.source = u"made up"_s;
    info.date = u"2026-01-02"_s;
    return info;
}

void Fill(CountyWriter& writer, const MadeTown& town)
{
    for (const RoadEdge& edge : town.edges)
        EXPECT_TRUE(writer.Add(edge));
    for (const AddressPoint& house : town.houses)
        EXPECT_TRUE(writer.Add(house));
    for (const MapArea& area : town.areas)
        EXPECT_TRUE(writer.Add(area));
    for (const WaterLine& brook : town.brooks)
        EXPECT_TRUE(writer.Add(brook));
    for (const PlaceName& place : town.places)
        EXPECT_TRUE(writer.Add(place));
    for (const ZipArea& zip : town.zips)
        EXPECT_TRUE(writer.Add(zip));
}

class CountyFiles : public testing::Test
{
protected:
    std::unique_ptr<CountyFile> Written(const MadeTown& town)
    {
        CountyWriter writer(path, About());
        Fill(writer, town);
        QString problem;
        EXPECT_TRUE(writer.Finish(problem)) << problem.toStdString();
        std::unique_ptr<CountyFile> file = CountyFile::Open(path, problem);
        EXPECT_TRUE(file) << problem.toStdString();
        return file;
    }

    static std::vector<std::shared_ptr<const Cell>> CellsOf(const CountyFile& file, Level level)
    {
        std::vector<quint32> ids;
        QString problem;
        EXPECT_TRUE(file.CellsTouching(file.Info().extent, level, ids, problem));
        std::vector<std::shared_ptr<const Cell>> cells;
        for (const quint32 id : ids)
            cells.push_back(file.ReadCell(id, problem));
        EXPECT_TRUE(problem.isEmpty()) << problem.toStdString();
        return cells;
    }

    QTemporaryDir directory;
    QString path = directory.filePath(u"01001-a.cel"_s);
};

TEST_F(CountyFiles, SayWhatTheyHold)
{
    const MadeTown town;
    const std::unique_ptr<CountyFile> file = Written(town);
    EXPECT_EQ(file->Info().county, u"01001"_s);
    EXPECT_EQ(file->Info().state, u"AL"_s);
    EXPECT_EQ(file->Info().source, u"made up"_s);
    EXPECT_EQ(file->Info().date, u"2026-01-02"_s);
    EXPECT_EQ(file->Info().edges, qint64(town.edges.size()));
    EXPECT_EQ(file->Info().houses, 2);
    EXPECT_EQ(file->Info().areas, 2);
    for (const RoadEdge& edge : town.edges)
        EXPECT_TRUE(file->Info().extent.Contains(edge.line.front()));
    QString problem;
    EXPECT_TRUE(file->ReadsWhole(problem)) << problem.toStdString();
}

TEST_F(CountyFiles, HaveEachStreetInEachCellThatItTouches)
{
    const MadeTown town({32'000'000, -86'000'000}, 40);
    const std::unique_ptr<CountyFile> file = Written(town);
    std::map<quint32, std::size_t> wanted;
    for (const RoadEdge& edge : town.edges) {
        for (const quint32 id : grid::Along(Level::Streets, edge.line))
            ++wanted[id];
    }
    ASSERT_GT(wanted.size(), 3U);
    std::map<quint32, std::size_t> found;
    for (const auto& cell : CellsOf(*file, Level::Streets)) {
        if (!cell->edges.empty())
            found[cell->id] = cell->edges.size();
        for (const CellEdge& edge : cell->edges) {
            ASSERT_GT(edge.street, 0U);
            const CellStreet& street = cell->streets[edge.street - 1];
            EXPECT_EQ(street.shield, street.name == u"US Hwy 31"_s ? u"US 31"_s : QString());
        }
    }
    EXPECT_EQ(found, wanted);
}

TEST_F(CountyFiles, CutLargeAreasToTheirCells)
{
    const MadeTown town;
    const std::unique_ptr<CountyFile> file = Written(town);
    int pieces = 0;
    for (const auto& cell : CellsOf(*file, Level::Streets)) {
        for (const MapArea& area : cell->areas) {
            for (const std::vector<Place>& ring : area.rings) {
                for (const Place place : ring) {
                    EXPECT_LE(std::abs(place.longitude - cell->extent.low.longitude),
                              grid::Size(Level::Streets) * 17 / 16 + 1);
                }
            }
            pieces += area.name == u"Long Lake"_s ? 1 : 0;
        }
    }
    EXPECT_GE(pieces, 3);
}

TEST_F(CountyFiles, JoinAndThinOutOnTheCoarserLevels)
{
    MadeTown town({32'000'000, -86'000'000}, 30);
    const std::unique_ptr<CountyFile> file = Written(town);
    std::size_t lines = 0;
    std::size_t longest = 0;
    for (const auto& cell : CellsOf(*file, Level::Town)) {
        EXPECT_EQ(cell->level, Level::Town);
        for (const CellEdge& edge : cell->edges) {
            EXPECT_LE(edge.roadClass, RoadClass::Collector);
            ++lines;
            longest = std::max(longest, edge.line.size());
        }
    }
    // Of every fourth row the 29 edges are one straight line, a piece in each cell.
    EXPECT_GE(lines, 8U);
    EXPECT_LE(lines, 8U * 4U);
    EXPECT_EQ(longest, 2U);
}

TEST_F(CountyFiles, TakeTheSameLineAnyNumberOfTimes)
{
    MadeTown town;
    town.edges.resize(1);
    town.edges.resize(30'000, town.edges.front());
    QElapsedTimer timer;
    timer.start();
    const std::unique_ptr<CountyFile> file = Written(town);
    EXPECT_EQ(file->Info().edges, 30'000);
    EXPECT_LT(timer.elapsed(), 20'000);
}

TEST_F(CountyFiles, ShowLocalStreetsFromAfarWhereThereIsNothingElse)
{
    MadeTown town;
    for (RoadEdge& edge : town.edges)
        edge.roadClass = RoadClass::Local;
    const std::unique_ptr<CountyFile> file = Written(town);
    std::size_t lines = 0;
    for (const auto& cell : CellsOf(*file, Level::Town))
        lines += cell->edges.size();
    EXPECT_GE(lines, 20U);
}

TEST_F(CountyFiles, DrawNoHiddenLineFromAfar)
{
    MadeTown town;
    for (RoadEdge& edge : town.edges)
        edge.hidden = true;
    const std::unique_ptr<CountyFile> file = Written(town);
    for (const auto& cell : CellsOf(*file, Level::Town))
        EXPECT_TRUE(cell->edges.empty());
    for (const auto& cell : CellsOf(*file, Level::Streets)) {
        for (const CellEdge& edge : cell->edges)
            EXPECT_TRUE(edge.hidden);
    }
}

TEST_F(CountyFiles, LeaveOutWhatCanNotBe)
{
    CountyWriter writer(path, About());
    const std::vector<Place> good{{32'000'000, -86'000'000}, {32'000'100, -86'000'000}};
    const auto road = [](std::vector<Place> line) {
        RoadEdge edge;
        edge.line = std::move(line);
        return edge;
    };
    EXPECT_TRUE(writer.Add(road(good)));
    EXPECT_FALSE(writer.Add(road({})));
    EXPECT_FALSE(writer.Add(road({good[0]})));
    EXPECT_FALSE(writer.Add(road({good[0], {0, 0}})));
    EXPECT_FALSE(writer.Add(road({{52'000'000, 179'999'900}, {52'000'000, -179'999'900}})));
    EXPECT_FALSE(writer.Add(road({good[0], {91'000'000, 0}})));
    EXPECT_FALSE(writer.Add(road({good[0], {33'000'000, -86'000'000}})));
    EXPECT_FALSE(writer.Add(AddressPoint{u"1"_s, u"A St"_s, {}, {}, {}, {0, 0}}));
    EXPECT_FALSE(writer.Add(AddressPoint{{}, u"A St"_s, {}, {}, {}, good[0]}));
    QString problem;
    ASSERT_TRUE(writer.Finish(problem));
    EXPECT_EQ(writer.Info().edges, 1);
    EXPECT_EQ(writer.Info().houses, 0);
}

TEST_F(CountyFiles, AreGoneWhenTheyWereNotFinished)
{
    {
        CountyWriter writer(path, About());
        Fill(writer, MadeTown());
        EXPECT_TRUE(QFile::exists(path));
    }
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(CountyFiles, AreGoneWhenTheDiskIsFull)
{
    VASCLIP_NEEDS_UNIX("a limit for the length of a file");
    CountyWriter writer(path, About());
    Fill(writer, MadeTown({32'000'000, -86'000'000}, 60));
    QString problem;
    {
        const tests::FileLimit full(16 * 1024);
        EXPECT_FALSE(writer.Finish(problem));
    }
    EXPECT_EQ(problem, u"the disk is full"_s);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(CountyFiles, StopWhenTheyAreTold)
{
    CountyWriter writer(path, About());
    Fill(writer, MadeTown({32'000'000, -86'000'000}, 40));
    QString problem;
    EXPECT_FALSE(writer.Finish(problem, [](qint64 done, qint64 all) { return done < all / 2; }));
    EXPECT_EQ(problem, u"it was stopped"_s);
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(CountyFiles, CanNotBeMadeInAMissingDirectory)
{
    CountyWriter writer(directory.filePath(u"none/01001-a.cel"_s), About());
    Fill(writer, MadeTown());
    QString problem;
    EXPECT_FALSE(writer.Finish(problem));
    EXPECT_FALSE(problem.isEmpty());
}

} // namespace
} // namespace vasclip::street
