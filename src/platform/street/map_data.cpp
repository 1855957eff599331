#include "platform/street/map_data.h"

#include "platform/files/native.h"

#include <QDir>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

/// Another file has another number or time: the index is replaced, never changed.
QByteArray StampOf(const QString& path)
{
    files::native::Info info;
    if (files::native::Inspect(path, info) != files::native::Failure::None)
        return {};
    return QByteArray::number(info.inode) + ' ' + QByteArray::number(info.modifiedNs) + ' ' +
           QByteArray::number(info.size);
}

} // namespace

MapData::MapData(const QString& directory, const MapLimits& limits, QStringView index)
    : m_directory(directory)
    , m_indexPath(directory + u'/' + index.toString())
    , m_limits(limits)
    , m_indexStamp(StampOf(m_indexPath))
    , m_cells(limits.cellBytes)
{
    QString problem;
    m_index = MapIndex::Open(directory, problem, index);
    if (m_index)
        return;
    if (!QDir(directory).exists())
        problem = u"the directory is missing"_s;
    else if (m_indexStamp.isEmpty() &&
             !QDir(directory).entryList({u'*' + QString::fromUtf16(kCountyEnd)}, QDir::Files).isEmpty())
        problem = u"the index is missing though there are maps; import them again"_s;
    m_problems.insert(QString::fromUtf16(kIndexName), problem);
}

MapData::~MapData() = default;

const std::vector<CountyRecord>& MapData::Counties() const
{
    static const std::vector<CountyRecord> none;
    return m_index ? m_index->Counties() : none;
}

QStringList MapData::Problems() const
{
    const std::lock_guard lock(m_guard);
    QStringList problems;
    for (auto at = m_problems.cbegin(); at != m_problems.cend(); ++at)
        problems.append(at.key() + u": "_s + at.value());
    return problems;
}

bool MapData::IsOutdated() const
{
    return StampOf(m_indexPath) != m_indexStamp;
}

void MapData::Tell(const CountyRecord& record, const QString& problem) const
{
    const std::lock_guard lock(m_guard);
    m_problems.insert(record.info.county, problem);
}

std::shared_ptr<const CountyFile> MapData::OpenFile(const CountyRecord& record, QString& problem) const
{
    std::shared_ptr<const CountyFile> file = CountyFile::Open(m_directory + u'/' + record.file, problem);
    if (file && file->Info() != record.info) {
        problem = u"the file is of another map than the index says"_s;
        return {};
    }
    return file;
}

std::shared_ptr<const CountyFile> MapData::File(const CountyRecord& record) const
{
    const std::lock_guard lock(m_guard);
    for (auto at = m_open.begin(); at != m_open.end(); ++at) {
        if (at->county == record.number) {
            m_open.splice(m_open.begin(), m_open, at);
            return m_open.front().file;
        }
    }
    if (m_unusable.contains(record.number))
        return {};
    QString problem;
    std::shared_ptr<const CountyFile> file = OpenFile(record, problem);
    if (!file) {
        m_problems.insert(record.info.county, problem);
        m_unusable.insert(record.number);
        return {};
    }
    m_open.push_front({record.number, file});
    if (m_open.size() > static_cast<std::size_t>(m_limits.openFiles))
        m_open.pop_back();
    return file;
}

std::shared_ptr<const Cell> MapData::CellOf(const CountyFile& file, const CountyRecord& record, quint32 id) const
{
    const CellCache::Key key{record.number, id};
    if (std::shared_ptr<const Cell> kept = m_cells.Find(key))
        return kept;
    QString problem;
    std::shared_ptr<const Cell> cell = file.ReadCell(id, problem);
    if (cell)
        m_cells.Keep(key, cell);
    else if (!problem.isEmpty())
        Tell(record, problem);
    return cell;
}

void MapData::AppendCells(const CountyRecord& record, const Extent& extent, Level level,
                          std::vector<std::shared_ptr<const Cell>>& cells) const
{
    if (!record.info.extent.Overlaps(extent))
        return;
    const std::shared_ptr<const CountyFile> file = File(record);
    if (!file)
        return;
    std::vector<quint32> ids;
    QString problem;
    if (!file->CellsTouching(extent, level, ids, problem))
        Tell(record, problem);
    for (const quint32 id : ids) {
        if (std::shared_ptr<const Cell> cell = CellOf(*file, record, id))
            cells.push_back(std::move(cell));
    }
}

std::vector<std::shared_ptr<const Cell>> MapData::Cells(const Extent& extent, Level level) const
{
    std::vector<std::shared_ptr<const Cell>> cells;
    for (const CountyRecord& record : Counties())
        AppendCells(record, extent, level, cells);
    return cells;
}

QString MapData::StreetName(const Cell& cell, quint32 street) const
{
    return street > 0 && street <= cell.streets.size() ? cell.streets[street - 1].name : QString();
}

QString MapData::Shield(const Cell& cell, quint32 street) const
{
    return street > 0 && street <= cell.streets.size() ? cell.streets[street - 1].shield : QString();
}

Extent MapData::Covered() const
{
    Extent covered;
    for (const CountyRecord& record : Counties())
        covered.Widen(record.info.extent);
    return covered;
}

const CountyRecord* MapData::Record(quint32 county) const
{
    const std::vector<CountyRecord>& counties = Counties();
    const auto found = std::lower_bound(counties.begin(), counties.end(), county,
                                        [](const CountyRecord& record, quint32 number) { return record.number < number; });
    return found != counties.end() && found->number == county ? &*found : nullptr;
}

const NameIndex* MapData::Index() const
{
    return m_index ? &m_index->Names() : nullptr;
}

std::vector<quint32> MapData::CountiesAt(const Extent& extent) const
{
    std::vector<quint32> counties;
    for (const CountyRecord& record : Counties()) {
        if (record.info.extent.Overlaps(extent))
            counties.push_back(record.number);
    }
    return counties;
}

std::shared_ptr<const LookupReader> MapData::Lookup(quint32 county) const
{
    const CountyRecord* record = Record(county);
    const std::shared_ptr<const CountyFile> file = record ? File(*record) : nullptr;
    // The tables live with their file.
    return file ? std::shared_ptr<const LookupReader>(file, &file->Lookup()) : nullptr;
}

std::shared_ptr<const Cell> MapData::CellAt(quint32 county, quint32 cell) const
{
    const CountyRecord* record = Record(county);
    const std::shared_ptr<const CountyFile> file = record ? File(*record) : nullptr;
    return file ? CellOf(*file, *record, cell) : nullptr;
}

std::vector<std::shared_ptr<const Cell>> MapData::CellsNear(quint32 county, const Extent& extent) const
{
    std::vector<std::shared_ptr<const Cell>> cells;
    if (const CountyRecord* record = Record(county))
        AppendCells(*record, extent, Level::Streets, cells);
    return cells;
}

} // namespace vasclip::street
