#include "platform/street/county_meta.h"

#include "platform/street/sql.h"
#include "platform/street/table_file.h"

#include <sqlite3.h>

using namespace Qt::StringLiterals;

namespace vasclip::street {

bool WriteMeta(sqlite3* county, const CountyInfo& info, QString& problem)
{
    if (!RunSql(county,
                "CREATE TABLE about(county TEXT, state TEXT, source TEXT, date TEXT, low_latitude INT,"
                " low_longitude INT, high_latitude INT, high_longitude INT, edges INT, houses INT, areas INT)",
                problem))
        return false;
    const SqlStatement insert =
        PrepareSql(county, "INSERT INTO about VALUES(?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)", problem);
    if (!insert)
        return false;
    int column = 0;
    for (const QString& text : {info.county, info.state, info.source, info.date})
        BindText(insert.get(), ++column, text);
    for (const qint64 number :
         {qint64(info.extent.low.latitude), qint64(info.extent.low.longitude), qint64(info.extent.high.latitude),
          qint64(info.extent.high.longitude), info.edges, info.houses, info.areas})
        sqlite3_bind_int64(insert.get(), ++column, number);
    if (sqlite3_step(insert.get()) == SQLITE_DONE)
        return true;
    problem = SqlProblem(county);
    return false;
}

bool ReadMeta(const TableFile& county, CountyInfo& info, QString& problem)
{
    QByteArray record;
    const bool there = county.Row(county.Table("about"), 1, record) == TableFile::Read::Done;
    RecordColumns columns(record);
    for (QString* text : {&info.county, &info.state, &info.source, &info.date})
        *text = QString::fromUtf8(columns.Bytes());
    for (qint32* number : {&info.extent.low.latitude, &info.extent.low.longitude, &info.extent.high.latitude,
                           &info.extent.high.longitude})
        *number = static_cast<qint32>(columns.Number());
    for (qint64* number : {&info.edges, &info.houses, &info.areas})
        *number = columns.Number();
    if (there && !columns.Failed())
        return true;
    problem = u"the file is damaged"_s;
    return false;
}

} // namespace vasclip::street
