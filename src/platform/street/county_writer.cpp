#include "platform/street/county_writer.h"

#include "platform/street/cell_builder.h"
#include "platform/street/cell_codec.h"
#include "platform/street/cell_grid.h"
#include "platform/street/coarse_levels.h"
#include "platform/street/county_meta.h"
#include "platform/street/feature_check.h"
#include "platform/street/lookup_writer.h"
#include "platform/street/shape.h"
#include "platform/street/shields.h"
#include "platform/street/sql.h"

#include <QFile>

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

struct CountyWriter::Work
{
    QString path;
    CountyInfo info;
    QString problem; ///< that the file could not be made
    SqlFile file;
    CellBuilder streets{Level::Streets};
    CoarseLevels coarse;
    std::unique_ptr<LookupWriter> lookup; ///< null where the file could not be made
    QHash<QString, QString> shields; ///< by the names of a road, which come again and again

    QString Shield(const RoadEdge& edge);
    bool WriteCell(sqlite3_stmt* insert, const Cell& cell, QString& why) const;
    bool WriteAll(QString& why, const std::function<bool(qint64, qint64)>& progress);
};

QString CountyWriter::Work::Shield(const RoadEdge& edge)
{
    const QStringList names = QStringList{edge.name} + edge.otherNames;
    const QString key = names.join(u'\n');
    const auto known = shields.constFind(key);
    if (known != shields.cend())
        return *known;
    return *shields.insert(key, ShieldOf(names, info.state));
}

bool CountyWriter::Work::WriteCell(sqlite3_stmt* insert, const Cell& cell, QString& why) const
{
    const QByteArray bytes = EncodeCell(cell);
    sqlite3_reset(insert);
    sqlite3_bind_int64(insert, 1, cell.id);
    sqlite3_bind_blob64(insert, 2, bytes.constData(), static_cast<sqlite3_uint64>(bytes.size()), SQLITE_TRANSIENT);
    if (sqlite3_step(insert) == SQLITE_DONE)
        return true;
    why = SqlProblem(file.get());
    return false;
}

bool CountyWriter::Work::WriteAll(QString& why, const std::function<bool(qint64, qint64)>& progress)
{
    if (!file) {
        why = problem;
        return false;
    }
    if (!WriteMeta(file.get(), info, why) ||
        !RunSql(file.get(), "CREATE TABLE cells(id INTEGER PRIMARY KEY, bytes BLOB NOT NULL)", why))
        return false;
    {
        const SqlStatement insert = PrepareSql(file.get(), "INSERT INTO cells VALUES(?, ?)", why);
        if (!insert)
            return false;
        const auto total = static_cast<qint64>(streets.Cells().size());
        qint64 written = 0;
        for (const auto& [id, cell] : streets.Cells()) {
            if (!WriteCell(insert.get(), cell, why))
                return false;
            if (progress && !progress(++written, total)) {
                why = u"it was stopped"_s;
                return false;
            }
        }
        for (const Level level : {Level::Town, Level::Region}) {
            if (!coarse.Make(level, [&](const Cell& cell) { return WriteCell(insert.get(), cell, why); }))
                return false;
        }
    }
    return lookup->Finish(why) && FinishSql(file, why);
}

CountyWriter::CountyWriter(const QString& path, const CountyInfo& info)
    : m_work(std::make_unique<Work>())
{
    m_work->path = path;
    m_work->info = info;
    m_work->info.extent = {};
    m_work->info.edges = m_work->info.houses = m_work->info.areas = 0;
    m_work->file = CreateSql(path, FileKind::County, m_work->problem);
    if (m_work->file)
        m_work->lookup = std::make_unique<LookupWriter>(m_work->file.get(), info.state);
}

CountyWriter::~CountyWriter()
{
    if (m_work->file) {
        m_work->file.reset();
        QFile::remove(m_work->path);
    }
}

bool CountyWriter::Add(const RoadEdge& edge)
{
    if (!Fault(edge).isEmpty())
        return false;
    Work& work = *m_work;
    const CellStreet street{edge.name, work.Shield(edge)};
    CellEdge stored{0, edge.roadClass, edge.hidden, edge.line, {edge.left.from, edge.left.to, {}, {}},
                          {edge.right.from, edge.right.to, {}, {}}};
    const std::vector<quint32> cells = grid::Along(Level::Streets, edge.line);
    for (std::size_t at = 0; at < cells.size(); ++at) {
        const bool last = at + 1 == cells.size();
        const quint32 index = work.streets.AddEdge(cells[at], last ? std::move(stored) : CellEdge(stored), street);
        if (at == 0 && work.lookup)
            work.lookup->Add(edge, {cells[at], index});
    }
    if (!edge.hidden)
        work.coarse.Add(edge.roadClass, street.name, street.shield, edge.line);
    work.info.extent.Widen(shape::ExtentOf(edge.line));
    ++work.info.edges;
    return true;
}

bool CountyWriter::Add(const AddressPoint& house)
{
    if (!Fault(house).isEmpty())
        return false;
    m_work->streets.At(grid::IdAt(Level::Streets, house.place)).houses.push_back({house.number, house.place});
    if (m_work->lookup)
        m_work->lookup->Add(house);
    m_work->info.extent.Widen(house.place);
    ++m_work->info.houses;
    return true;
}

bool CountyWriter::Add(const MapArea& area)
{
    if (!Fault(area).isEmpty())
        return false;
    m_work->streets.AddArea(area);
    m_work->coarse.Add(area);
    for (const std::vector<Place>& ring : area.rings)
        m_work->info.extent.Widen(shape::ExtentOf(ring));
    ++m_work->info.areas;
    return true;
}

bool CountyWriter::Add(const WaterLine& line)
{
    if (!Fault(line).isEmpty())
        return false;
    m_work->streets.AddWaterLine(line);
    m_work->coarse.Add(line);
    m_work->info.extent.Widen(shape::ExtentOf(line.line));
    return true;
}

bool CountyWriter::Add(const PlaceName& place)
{
    if (!AddLabel(place))
        return false;
    if (m_work->lookup)
        m_work->lookup->Add(place);
    return true;
}

bool CountyWriter::AddLabel(const PlaceName& place)
{
    if (!Fault(place).isEmpty())
        return false;
    PlaceName label{place.name, place.kind, place.population, place.place, {}};
    m_work->coarse.Add(label);
    m_work->streets.At(grid::IdAt(Level::Streets, place.place)).places.push_back(std::move(label));
    return true;
}

bool CountyWriter::Add(const ZipArea& area)
{
    if (!Fault(area).isEmpty())
        return false;
    if (m_work->lookup)
        m_work->lookup->Add(area);
    return true;
}

bool CountyWriter::Finish(QString& problem, const std::function<bool(qint64, qint64)>& progress)
{
    const bool done = m_work->WriteAll(problem, progress);
    if (!done) {
        m_work->file.reset();
        QFile::remove(m_work->path);
    }
    return done;
}

const CountyInfo& CountyWriter::Info() const
{
    return m_work->info;
}

} // namespace vasclip::street
