// Making maps and having them open: streets a second that the importer takes beyond GDAL's own reading, bytes on disk,
// time to read cells and the memory that open maps take, on a state and on a country's worth of streets. The streets are
// those of a real county, moved and copied; without it, of a made-up grid.
// usage: bench_street [MAPDATA [EDGES...]]
//   MAPDATA  the directory that has prattville_al
//   EDGES    sizes of the packs; 400000, and 5000000 too where VASCLIP_BIG is set

#include "mapdata/classes.h"
#include "mapdata/import.h"
#include "mapdata/vector_file.h"
#include "platform/street/county_writer.h"
#include "platform/street/map_change.h"
#include "platform/street/map_data.h"
#include "platform/street/map_index.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <random>
#include <vector>

using namespace vasclip;
using namespace vasclip::street;
using namespace Qt::StringLiterals;

namespace {

double CpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

/// Memory of the process that is in use now, in MB; 0 where the system doesn't say.
double ResidentMb()
{
    QFile file(u"/proc/self/statm"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    return file.readAll().split(' ').value(1).toDouble() * 4096 / 1e6;
}

std::vector<RoadEdge> RealStreets(const QString& directory)
{
    GDALAllRegister();
    QString problem;
    const auto file = mapdata::VectorFile::Open(directory + u"/prattville_al/prattville_addrfeat.shp"_s, problem);
    std::vector<RoadEdge> edges;
    if (!file)
        return edges;
    for (mapdata::VectorLayer& layer : file->Layers()) {
        const int name = layer.Column({u"FULLNAME"_s});
        const int numbers[] = {layer.Column({u"LFROMHN"_s}), layer.Column({u"LTOHN"_s}), layer.Column({u"RFROMHN"_s}),
                               layer.Column({u"RTOHN"_s})};
        const int zip = layer.Column({u"ZIPL"_s});
        while (const OGRFeatureUniquePtr row = layer.Next()) {
            RoadEdge edge;
            edge.name = mapdata::TextOf(*row, name);
            edge.roadClass = mapdata::ClassByName(RoadClass::Local, edge.name);
            edge.left = {mapdata::TextOf(*row, numbers[0]), mapdata::TextOf(*row, numbers[1]),
                         mapdata::TextOf(*row, zip), {}};
            edge.right = {mapdata::TextOf(*row, numbers[2]), mapdata::TextOf(*row, numbers[3]),
                          mapdata::TextOf(*row, zip), {}};
            for (std::vector<Place>& line : layer.ShapeOf(*row).parts) {
                edge.line = std::move(line);
                edges.push_back(edge);
            }
        }
    }
    return edges;
}

std::vector<RoadEdge> MadeStreets()
{
    constexpr int kStreets = 37;
    constexpr qint32 kBlock = 1200;
    std::vector<RoadEdge> edges;
    for (int row = 0; row < kStreets; ++row) {
        for (int column = 0; column < kStreets; ++column) {
            const Place at{32'400'000 + row * kBlock, -86'500'000 + column * kBlock};
            const int block = 100 * (column + 1);
            const auto range = [&](int from) {
                return NumberRange{QString::number(block + from), QString::number(block + 98 + from), u"36067"_s, {}};
            };
            edges.push_back({u"Row %1 St"_s.arg(row), {}, RoadClass::Local,
                             {at, {at.latitude, at.longitude + kBlock}}, range(0), range(1), false});
            edges.push_back({u"Column %1 Ave"_s.arg(column), {}, RoadClass::Local,
                             {at, {at.latitude + kBlock, at.longitude}}, range(0), range(1), false});
        }
    }
    return edges;
}

/// A county's streets under other names at another place.
RoadEdge Moved(const RoadEdge& edge, int copy)
{
    RoadEdge moved = edge;
    if (copy > 0 && !edge.name.isEmpty())
        moved.name = u"%1 %2"_s.arg(QChar(u'A' + copy % 26)).arg(edge.name);
    for (Place& place : moved.line) {
        place.latitude -= 400'000 * (copy / 50) - 6'000'000;
        place.longitude += 500'000 * (copy % 50) - 14'000'000;
    }
    for (NumberRange* side : {&moved.left, &moved.right})
        side->zip = QString::number(10'000 + copy * 13 % 80'000);
    return moved;
}

struct Bytes
{
    qint64 cells = 0;
    qint64 files = 0;
};

Bytes BytesOf(const QString& directory)
{
    Bytes bytes;
    QString problem;
    const std::unique_ptr<MapIndex> index = MapIndex::Open(directory, problem);
    bytes.files = QFileInfo(directory + u"/F1"_s).size();
    for (const CountyRecord& record : index->Counties()) {
        bytes.files += record.bytes;
        const SqlFile file = OpenSql(directory + u'/' + record.file, FileKind::County, problem);
        const SqlStatement sum = PrepareSql(file.get(), "SELECT SUM(length(bytes) + 8) FROM cells", problem);
        if (sum && sqlite3_step(sum.get()) == SQLITE_ROW)
            bytes.cells += sqlite3_column_int64(sum.get(), 0);
    }
    return bytes;
}

void Told(const char* what, double figure, const char* unit, double limit, bool atMost)
{
    const bool kept = atMost ? figure <= limit : figure >= limit;
    std::printf("  %-46s %10.2f %-12s limit %10.2f  %s\n", what, figure, unit, limit, kept ? "kept" : "BROKEN");
    std::fflush(stdout);
}

/// The importer's own work on a state of shapefiles.
void MeasureImport(const QString& mapData, qint64 edges)
{
    const QString shape = mapData + u"/prattville_al/prattville_addrfeat"_s;
    if (!QFile::exists(shape + u".shp"_s)) {
        std::printf("import: no %s.shp\n", shape.toUtf8().constData());
        return;
    }
    constexpr qint64 kEach = 2699;
    const QTemporaryDir sources;
    for (int county = 1; county <= edges / kEach; ++county) {
        const QString name = sources.filePath(u"tl_2021_01%1_addrfeat"_s.arg(county, 3, 10, QChar(u'0')));
        for (const QString& end : {u".shp"_s, u".shx"_s, u".dbf"_s, u".prj"_s, u".cpg"_s})
            QFile::copy(shape + end, name + end);
    }
    GDALAllRegister();
    // In turn and over and over, the least of each: what else the machine does only adds to it.
    constexpr int kRounds = 5;
    qint64 read = 0;
    double gdal = 1e9;
    double all = 1e9;
    for (int round = 0; round < kRounds; ++round) {
        read = 0;
        double start = CpuSeconds();
        for (const QString& name : QDir(sources.path()).entryList({u"*.shp"_s})) {
            const GDALDatasetUniquePtr set(
                GDALDataset::Open(sources.filePath(name).toUtf8().constData(), GDAL_OF_VECTOR, nullptr, nullptr));
            OGRLayer& layer = *set->GetLayer(0);
            while (const OGRFeatureUniquePtr row{layer.GetNextFeature()})
                read += row->GetGeometryRef() ? 1 : 0;
        }
        gdal = std::min(gdal, CpuSeconds() - start);
        const QTemporaryDir maps;
        mapdata::ImportOptions options;
        options.sources = {sources.path()};
        options.directory = maps.path();
        mapdata::Account account;
        QString problem;
        start = CpuSeconds();
        if (mapdata::Import(options, account, problem) != mapdata::Outcome::Done)
            std::printf("import failed: %s\n", problem.toUtf8().constData());
        all = std::min(all, CpuSeconds() - start);
    }
    std::printf("import of %lld streets: %.2f s of work, GDAL alone %.2f s\n", static_cast<long long>(read), all, gdal);
    Told("streets a second beyond GDAL's reading", double(read) / (all - gdal) / 1000, "thousand", 100, false);
}

void MeasurePack(const std::vector<RoadEdge>& streets, qint64 edges)
{
    const QTemporaryDir directory;
    QString problem;
    double start = CpuSeconds();
    {
        MapChange change(directory.path());
        if (!change.Begin(problem))
            return;
        // Some 5,700 streets a county, as a state has them.
        constexpr qint64 kCounty = 5714;
        int copy = 0;
        for (qint64 county = 0; county < (edges + kCounty - 1) / kCounty; ++county) {
            CountyInfo info;
            info.county = u"c%1"_s.arg(county, 5, 10, QChar(u'0'));
            const QString path = change.NewFile(info.county);
            CountyWriter writer(path, info);
            for (qint64 made = 0; made < kCounty; ++copy) {
                for (const RoadEdge& edge : streets)
                    made += writer.Add(Moved(edge, copy % 2500)) ? 1 : 0;
            }
            if (!writer.Finish(problem) || !change.Put(path, problem)) {
                std::printf("failed: %s\n", problem.toUtf8().constData());
                return;
            }
        }
        if (!change.Commit(problem))
            return;
    }
    const double made = CpuSeconds() - start;
    const double before = ResidentMb();
    const MapData maps(directory.path());
    double count = 0;
    for (const CountyRecord& record : maps.Counties())
        count += double(record.info.edges);
    std::printf("%.0f streets in %zu counties\n", count, maps.Counties().size());
    Told("streets a second that are written", count / made / 1000, "thousand", 100, false);
    const Bytes bytes = BytesOf(directory.path());
    Told("bytes a street, cells", double(bytes.cells) / count, "bytes", 65, true);
    Told("bytes a street, all", double(bytes.files) / count, "bytes", 120, true);

    // Windows of 1.5 km wherever there are streets, as one looks at them one after another.
    std::mt19937 chance(3);
    std::vector<double> ms;
    std::size_t seen = 0;
    QElapsedTimer timer;
    for (int round = 0; round < 2000; ++round) {
        const RoadEdge edge = Moved(streets[chance() % streets.size()], int(chance() % 140));
        Extent window;
        const Place middle = edge.line.front();
        window.Widen(Place{middle.latitude - 6'700, middle.longitude - 8'000});
        window.Widen(Place{middle.latitude + 6'700, middle.longitude + 8'000});
        timer.start();
        for (const auto& cell : maps.Cells(window, Level::Streets))
            seen += cell->edges.size();
        ms.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::sort(ms.begin(), ms.end());
    Told("cells of a window of 1.5 km, median", ms[ms.size() / 2], "ms", 16, true);
    Told("cells of a window of 1.5 km, 95 of 100", ms[ms.size() * 95 / 100], "ms", 16, true);
    Told("memory of the open maps", ResidentMb() - before, "MB", 64, true);
    if (seen == 0)
        std::printf("no street was seen\n");
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication app(argc, argv);
    const QString mapData = app.arguments().value(1, qEnvironmentVariable("VASCLIP_MAPDATA"));
    QStringList sizes = app.arguments().mid(2);
    if (sizes.isEmpty()) {
        sizes = {u"400000"_s};
        if (qEnvironmentVariableIsSet("VASCLIP_BIG"))
            sizes.append(u"5000000"_s);
    }
    std::vector<RoadEdge> streets = RealStreets(mapData);
    if (streets.empty()) {
        std::printf("no street data: a made-up grid\n");
        streets = MadeStreets();
    }
    MeasureImport(mapData, sizes.front().toLongLong());
    for (const QString& size : sizes)
        MeasurePack(streets, size.toLongLong());
    return 0;
}
