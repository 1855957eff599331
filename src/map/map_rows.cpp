#include "map/map_rows.h"

#include "map/map_data_words.h"

#include <QLocale>

#include <array>
#include <cmath>

namespace vasclip::map {

using namespace Qt::Literals::StringLiterals;

namespace {

struct Column
{
    QLatin1StringView field;
    const QString& caption;
    int width;
    bool right;
};

const std::array<Column, 9>& Table()
{
    namespace words = mapdata_words;
    static const std::array<Column, 9> kColumns{{{"MAP"_L1, words::kCounty, 84, false},
                                                 {"STATE"_L1, words::kState, 56, false},
                                                 {"SOURCE"_L1, words::kSource, 136, false},
                                                 {"DATE"_L1, words::kDate, 88, false},
                                                 {"STREETS"_L1, words::kStreets, 72, true},
                                                 {"HOUSES"_L1, words::kHouses, 70, true},
                                                 {"SIZE"_L1, words::kSize, 76, true},
                                                 {"CHECKED"_L1, words::kChecked, 76, false},
                                                 {"EXTENT"_L1, words::kExtent, 246, false}}};
    return kColumns;
}

/// Digits in groups of three.
QLocale English()
{
    return QLocale(QLocale::English, QLocale::UnitedStates);
}

QString Number(qint64 number)
{
    return English().toString(number);
}

QString Bytes(qint64 bytes)
{
    return English().formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

/// "32.31 to 32.80 N".
QString Degrees(qint32 low, qint32 high, QChar positive, QChar negative)
{
    const QChar side = high > 0 ? positive : negative;
    const auto text = [](qint32 millionths) { return QString::number(std::fabs(millionths / 1e6), 'f', 2); };
    return low < 0 && high > 0 ? u"%1 %2 to %3 %4"_s.arg(text(low), QString(negative), text(high), QString(positive))
                               : u"%1 to %2 %3"_s.arg(text(low), text(high), QString(side));
}

QString ExtentWords(const street::Extent& extent)
{
    if (extent.IsEmpty())
        return {};
    return Degrees(extent.low.latitude, extent.high.latitude, u'N', u'S') + u", "_s +
           Degrees(extent.low.longitude, extent.high.longitude, u'E', u'W');
}

QString CheckedWords(const CheckedMaps& checked, const QByteArray& checksum)
{
    const auto found = checked.constFind(checksum);
    return found == checked.cend() ? mapdata_words::kNotYet
           : found->isEmpty()      ? mapdata_words::kWhole
                                   : mapdata_words::kDamagedOne;
}

} // namespace

void MapRows::Take(const std::vector<street::CountyRecord>& counties, const CheckedMaps& checked)
{
    m_rows.clear();
    for (const street::CountyRecord& record : counties) {
        const street::CountyInfo& info = record.info;
        m_rows.append({info.county, info.state, info.source, info.date, Number(info.edges), Number(info.houses),
                       Bytes(record.bytes), CheckedWords(checked, record.checksum), ExtentWords(info.extent)});
    }
}

QStringList MapRows::FieldNames() const
{
    QStringList names;
    for (const Column& column : Table())
        names.append(column.field);
    return names;
}

QList<forms::GridColumn> MapColumns()
{
    QList<forms::GridColumn> columns;
    for (const Column& column : Table())
        columns.append({.field = column.field,
                        .caption = column.caption,
                        .width = column.width,
                        .rightAligned = column.right,
                        .fixed = true});
    return columns;
}

QString TotalOf(const std::vector<street::CountyRecord>& counties)
{
    qint64 streets = 0;
    qint64 houses = 0;
    qint64 bytes = 0;
    for (const street::CountyRecord& record : counties) {
        streets += record.info.edges;
        houses += record.info.houses;
        bytes += record.bytes;
    }
    const auto maps = static_cast<qint64>(counties.size());
    const auto counted = [](const QString (&words)[2], qint64 count) { return words[count == 1 ? 0 : 1].arg(Number(count)); };
    return QStringList{counted(mapdata_words::kMapsCount, maps), counted(mapdata_words::kStreetsCount, streets),
                       counted(mapdata_words::kHousesCount, houses), Bytes(bytes)}
        .join(u", "_s);
}

} // namespace vasclip::map
