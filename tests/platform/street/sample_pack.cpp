#include "platform/street/sample_pack.h"

#include "platform/street/county_writer.h"

#include <QFile>
#include <QtEndian>

#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::street::test {

namespace {

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

double Double(const QByteArray& bytes, qsizetype at)
{
    return qFromLittleEndian<double>(bytes.constData() + at);
}

} // namespace

std::vector<RoadEdge> ReadAddrFeat(const QString& path)
{
    const QByteArray shp = ReadAll(path + u".shp"_s);
    const QByteArray dbf = ReadAll(path + u".dbf"_s);
    if (shp.size() < 100 || dbf.size() < 32)
        return {};
    const auto headBytes = qFromLittleEndian<quint16>(dbf.constData() + 8);
    const auto rowBytes = qFromLittleEndian<quint16>(dbf.constData() + 10);
    QHash<QByteArray, std::pair<qsizetype, qsizetype>> columns;
    qsizetype column = 1;
    for (qsizetype at = 32; at + 32 <= headBytes && dbf.at(at) != '\r'; at += 32) {
        const qsizetype size = static_cast<quint8>(dbf.at(at + 16));
        columns.insert(QByteArray(dbf.constData() + at), {column, size});
        column += size;
    }
    std::vector<RoadEdge> edges;
    qsizetype row = headBytes;
    for (qsizetype at = 100; at + 8 < shp.size() && row + rowBytes <= dbf.size(); row += rowBytes) {
        const qsizetype size = 2 * qsizetype(qFromBigEndian<qint32>(shp.constData() + at + 4));
        const qsizetype content = at + 8;
        at = content + size;
        const auto field = [&](const char* name) {
            const auto [start, length] = columns.value(name, {0, 0});
            return QString::fromUtf8(dbf.mid(row + start, length)).trimmed();
        };
        if (qFromLittleEndian<qint32>(shp.constData() + content) != 3)
            continue;
        RoadEdge edge;
        const auto parts = qFromLittleEndian<qint32>(shp.constData() + content + 36);
        const auto points = qFromLittleEndian<qint32>(shp.constData() + content + 40);
        for (qint32 point = 0; point < points; ++point) {
            const qsizetype place = content + 44 + 4 * parts + 16 * point;
            edge.line.push_back({static_cast<qint32>(std::lround(Double(shp, place + 8) * 1e6)),
                                 static_cast<qint32>(std::lround(Double(shp, place) * 1e6))});
        }
        edge.name = field("FULLNAME");
        edge.left = {field("LFROMHN"), field("LTOHN"), field("ZIPL"), {}};
        edge.right = {field("RFROMHN"), field("RTOHN"), field("ZIPR"), {}};
        edges.push_back(std::move(edge));
    }
    return edges;
}

bool SamplePack::Put(const QString& county, const QString& state, const std::vector<RoadEdge>& edges,
                     const std::vector<AddressPoint>& houses, const std::vector<PlaceName>& places)
{
    const QString file = county + u"-1.cel"_s;
    CountyWriter writer(directory.filePath(file), CountyInfo{county, state, u"sample"_s, u"2021"_s, {}});
    for (const RoadEdge& edge : edges)
        writer.Add(edge);
    for (const AddressPoint& house : houses)
        writer.Add(house);
    for (const PlaceName& place : places)
        writer.Add(place);
    QString problem;
    std::vector<CountyRecord> records = maps ? maps->Counties() : std::vector<CountyRecord>();
    records.emplace_back();
    maps.reset(); // else the index can't be replaced where open files are held
    if (!writer.Finish(problem) || !MakeRecord(directory.path(), file, records.back(), problem) ||
        !WriteIndex(directory.path(), records, problem)) {
        qWarning("%s", qPrintable(problem));
        return false;
    }
    maps = std::make_unique<MapData>(directory.path());
    return true;
}

std::unique_ptr<SamplePack> MakePack(const QString& county, const QString& state, const std::vector<RoadEdge>& edges,
                                     const std::vector<AddressPoint>& houses, const std::vector<PlaceName>& places)
{
    auto pack = std::make_unique<SamplePack>();
    return pack->Put(county, state, edges, houses, places) ? std::move(pack) : nullptr;
}

} // namespace vasclip::street::test
