#include "demo/map/sources.h"

#include "demo/map/ground.h"
#include "demo/map/long_roads.h"
#include "demo/map/roads.h"
#include "platform/text/runtime_error.h"

#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::demo {
namespace {

QJsonArray Corner(Point point)
{
    const auto rounded = [](double degrees) { return std::round(degrees * 1e6) / 1e6; };
    const Place place = OnGlobe(point);
    return {rounded(place.longitude), rounded(place.latitude)};
}

QJsonArray Corners(const Line& line)
{
    QJsonArray corners;
    for (const Point& point : line)
        corners.append(Corner(point));
    return corners;
}

QJsonObject Feature(const QString& shape, const QJsonArray& corners, const QJsonObject& columns)
{
    return {{u"type"_s, u"Feature"_s},
            {u"properties"_s, columns},
            {u"geometry"_s, QJsonObject{{u"type"_s, shape}, {u"coordinates"_s, corners}}}};
}

QJsonObject LineFeature(const Line& line, const QJsonObject& columns)
{
    return Feature(u"LineString"_s, Corners(line), columns);
}

QJsonObject AreaFeature(const Line& ring, const QJsonObject& columns)
{
    return Feature(u"Polygon"_s, QJsonArray{Corners(ring)}, columns);
}

QJsonArray Streets()
{
    const auto number = [](int value) { return value == 0 ? QString() : QString::number(value); };
    QJsonArray features;
    int id = 0;
    for (const RoadPiece& road : Roads()) {
        features.append(LineFeature(road.line, {{u"TLID"_s, ++id},
                                                {u"FULLNAME"_s, road.name},
                                                {u"ROAD_MTFCC"_s, road.kind},
                                                {u"LFROMHN"_s, number(road.left.from)},
                                                {u"LTOHN"_s, number(road.left.to)},
                                                {u"RFROMHN"_s, number(road.right.from)},
                                                {u"RTOHN"_s, number(road.right.to)},
                                                {u"ZIPL"_s, road.zip},
                                                {u"ZIPR"_s, road.zip},
                                                {u"CITYL"_s, road.city},
                                                {u"CITYR"_s, road.city}}));
    }
    return features;
}

QJsonArray Water()
{
    QJsonArray features;
    for (const LongRoad& creek : Creeks())
        features.append(LineFeature(creek.line, {{u"FULLNAME"_s, creek.name}, {u"MTFCC"_s, creek.kind}}));
    return features;
}

QJsonArray Ground()
{
    QJsonArray features;
    for (const Patch& patch : Surfaces())
        features.append(AreaFeature(patch.ring, {{u"FULLNAME"_s, patch.name}, {u"MTFCC"_s, patch.kind}}));
    return features;
}

QJsonArray Towns()
{
    QJsonArray features;
    int code = 0;
    for (const Patch& patch : Cities()) {
        const Place middle = OnGlobe(patch.middle);
        features.append(AreaFeature(patch.ring, {{u"PLACEFP"_s, QString::number(90001 + code++)},
                                                 {u"NAME"_s, patch.name},
                                                 {u"LSAD"_s, u"25"_s},
                                                 {u"INTPTLAT"_s, QString::number(middle.latitude, 'f', 6)},
                                                 {u"INTPTLON"_s, QString::number(middle.longitude, 'f', 6)}}));
    }
    return features;
}

QJsonArray Zips()
{
    QJsonArray features;
    for (const Patch& patch : ZipAreas())
        features.append(AreaFeature(patch.ring, {{u"ZCTA5CE20"_s, patch.name}}));
    return features;
}

} // namespace

void WriteMapSources(const QString& directory)
{
    const auto write = [&](const QString& name, const QJsonArray& features) {
        QFile file(QDir(directory).filePath(name));
        const QByteArray text =
            QJsonDocument(QJsonObject{{u"type"_s, u"FeatureCollection"_s}, {u"features"_s, features}})
                .toJson(QJsonDocument::Compact);
        if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.flush())
            throw RuntimeError(error::kPathFileAccess,
                               u"%1 cannot be written: %2"_s.arg(file.fileName(), file.errorString()));
    };
    write(u"streets.geojson"_s, Streets());
    write(u"creeks.geojson"_s, Water());
    write(u"ground.geojson"_s, Ground());
    write(u"towns.geojson"_s, Towns());
    write(u"zips.geojson"_s, Zips());
}

} // namespace vasclip::demo
