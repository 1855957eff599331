#include "platform/street/map_index.h"

#include "platform/files/native.h"
#include "platform/street/county_file.h"
#include "platform/street/lookup_writer.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <sqlite3.h>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

QString Below(const QString& directory, const QString& name)
{
    return directory + u'/' + name;
}

/// A file's name from an index that may be anything leads to no other directory.
bool IsOwnName(const QString& file)
{
    return file.endsWith(QStringView(kCountyEnd)) && !file.contains(u'/') && !file.contains(u'\\') &&
           !file.startsWith(u'.');
}

bool ReadRecords(sqlite3* index, std::vector<CountyRecord>& counties, QString& problem)
{
    const SqlStatement rows =
        PrepareSql(index,
                   "SELECT number, county, state, source, date, low_latitude, low_longitude, high_latitude,"
                   " high_longitude, edges, houses, areas, file, bytes, checksum FROM counties ORDER BY number",
                   problem);
    if (!rows)
        return false;
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(rows.get())) == SQLITE_ROW) {
        CountyRecord record;
        int column = 0;
        record.number = static_cast<quint32>(sqlite3_column_int64(rows.get(), column++));
        CountyInfo& info = record.info;
        for (QString* text : {&info.county, &info.state, &info.source, &info.date})
            *text = ColumnText(rows.get(), column++);
        for (qint32* number : {&info.extent.low.latitude, &info.extent.low.longitude,
                               &info.extent.high.latitude, &info.extent.high.longitude})
            *number = sqlite3_column_int(rows.get(), column++);
        for (qint64* number : {&info.edges, &info.houses, &info.areas})
            *number = sqlite3_column_int64(rows.get(), column++);
        record.file = ColumnText(rows.get(), column++);
        record.bytes = sqlite3_column_int64(rows.get(), column++);
        record.checksum = QByteArray::fromHex(ColumnText(rows.get(), column++).toLatin1());
        if (!IsOwnName(record.file)) {
            problem = u"the index names a file that is no map: %1"_s.arg(record.file.left(100));
            return false;
        }
        counties.push_back(std::move(record));
    }
    if (step != SQLITE_DONE)
        problem = SqlProblem(index);
    return step == SQLITE_DONE;
}

bool InsertRecord(sqlite3_stmt* insert, const CountyRecord& record)
{
    const CountyInfo& info = record.info;
    sqlite3_reset(insert);
    int column = 0;
    sqlite3_bind_int64(insert, ++column, record.number);
    for (const QString& text : {info.county, info.state, info.source, info.date})
        BindText(insert, ++column, text);
    for (const qint64 number :
         {qint64(info.extent.low.latitude), qint64(info.extent.low.longitude), qint64(info.extent.high.latitude),
          qint64(info.extent.high.longitude), info.edges, info.houses, info.areas})
        sqlite3_bind_int64(insert, ++column, number);
    BindText(insert, ++column, record.file);
    sqlite3_bind_int64(insert, ++column, record.bytes);
    BindText(insert, ++column, QString::fromLatin1(record.checksum.toHex()));
    return sqlite3_step(insert) == SQLITE_DONE;
}

QString Words(files::native::Failure failure)
{
    using files::native::Failure;
    switch (failure) {
    case Failure::Full:
        return u"the disk is full"_s;
    case Failure::Denied:
    case Failure::ReadOnlyDisk:
        return u"the directory may not be written"_s;
    case Failure::NotFound:
    case Failure::NotADirectory:
        return u"the directory is missing"_s;
    default:
        return u"the index can't be written"_s;
    }
}

} // namespace

std::unique_ptr<MapIndex> MapIndex::Open(const QString& directory, QString& problem, QStringView name)
{
    std::unique_ptr<MapIndex> index(new MapIndex);
    index->m_file = OpenSql(Below(directory, name.toString()), FileKind::Index, problem);
    if (!index->m_file || !ReadRecords(index->Handle(), index->m_counties, problem))
        return {};
    index->m_names = std::make_unique<const NameIndex>(index->Handle());
    return index;
}

bool WriteIndex(const QString& directory, std::vector<CountyRecord> counties, QString& problem, QStringView name)
{
    std::sort(counties.begin(), counties.end(), [](const CountyRecord& one, const CountyRecord& other) {
        return one.info.county < other.info.county;
    });
    const SqlFile index = CreateSql(u":memory:"_s, FileKind::Index, problem);
    if (!index ||
        !RunSql(index.get(),
                "CREATE TABLE counties(number INTEGER PRIMARY KEY, county TEXT, state TEXT, source TEXT, "
                "date TEXT,"
                " low_latitude INT, low_longitude INT, high_latitude INT, high_longitude INT, edges INT,"
                " houses INT, areas INT, file TEXT, bytes INT, checksum TEXT)",
                problem))
        return false;
    {
        const SqlStatement insert = PrepareSql(
            index.get(), "INSERT INTO counties VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", problem);
        if (!insert)
            return false;
        quint32 number = 0;
        NameIndexWriter names(index.get());
        for (CountyRecord& record : counties) {
            record.number = ++number;
            if (!InsertRecord(insert.get(), record)) {
                problem = SqlProblem(index.get());
                return false;
            }
            // A map that can't be read keeps its place; it is told of when it is asked for.
            LookupSummary summary;
            QString why;
            const SqlFile file = OpenSql(Below(directory, record.file), FileKind::County, why);
            if (file && ReadSummary(file.get(), summary, why))
                names.Add(number, summary);
        }
        if (!names.Finish(problem))
            return false;
    }
    if (!RunSql(index.get(), "COMMIT", problem))
        return false;
    sqlite3_int64 size = 0;
    const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> bytes(
        sqlite3_serialize(index.get(), "main", &size, 0), &sqlite3_free);
    if (!bytes) {
        problem = u"out of memory"_s;
        return false;
    }
    const auto failure =
        files::native::Replace(Below(directory, name.toString()),
                               QByteArray::fromRawData(reinterpret_cast<const char*>(bytes.get()), size));
    if (failure == files::native::Failure::None)
        return true;
    problem = Words(failure);
    return false;
}

bool MakeRecord(const QString& directory, const QString& file, CountyRecord& record, QString& problem)
{
    const QString path = Below(directory, file);
    const std::unique_ptr<CountyFile> county = CountyFile::Open(path, problem);
    if (!county)
        return false;
    record.info = county->Info();
    record.file = file;
    record.bytes = QFileInfo(path).size();
    record.checksum = ChecksumOf(path);
    if (record.checksum.isEmpty())
        problem = u"the file can't be read"_s;
    return !record.checksum.isEmpty();
}

QByteArray ChecksumOf(const QString& path)
{
    QCryptographicHash sum(QCryptographicHash::Blake2b_256);
    const auto failure = files::native::ReadPieces(path, [&sum](QByteArrayView piece) {
        sum.addData(piece);
        return true;
    });
    return failure == files::native::Failure::None ? sum.result() : QByteArray();
}

} // namespace vasclip::street
