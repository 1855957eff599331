#include "platform/street/county_meta.h"

#include "platform/street/sql.h"

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

bool ReadMeta(sqlite3* county, CountyInfo& info, QString& problem)
{
    const SqlStatement row = PrepareSql(county,
                                        "SELECT county, state, source, date, low_latitude, low_longitude,"
                                        " high_latitude, high_longitude, edges, houses, areas FROM about",
                                        problem);
    if (!row)
        return false;
    if (sqlite3_step(row.get()) != SQLITE_ROW) {
        problem = u"the file is damaged"_s;
        return false;
    }
    int column = 0;
    for (QString* text : {&info.county, &info.state, &info.source, &info.date})
        *text = ColumnText(row.get(), column++);
    for (qint32* number : {&info.extent.low.latitude, &info.extent.low.longitude, &info.extent.high.latitude,
                           &info.extent.high.longitude})
        *number = sqlite3_column_int(row.get(), column++);
    for (qint64* number : {&info.edges, &info.houses, &info.areas})
        *number = sqlite3_column_int64(row.get(), column++);
    return true;
}

} // namespace vasclip::street
