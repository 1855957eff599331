#include "mapdata/tiger_reader.h"

#include "mapdata/classes.h"
#include "mapdata/house_columns.h"

#include <QHash>

#include <algorithm>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::NumberRange;
using street::RoadClass;

struct RoadColumns
{
    explicit RoadColumns(const VectorLayer& layer)
        : id(layer.Column({u"TLID"_s, u"LINEARID"_s}))
        , name(layer.Column({u"FULLNAME"_s, u"NAME"_s, u"STREET"_s, u"STREETNAME"_s, u"ST_NAME"_s, u"ROADNAME"_s}))
        , kind(layer.Column({u"ROAD_MTFCC"_s, u"MTFCC"_s, u"EDGE_MTFCC"_s}))
        , leftFrom(layer.Column({u"LFROMHN"_s, u"LFROMADD"_s, u"L_F_ADD"_s, u"FROMADDR_L"_s}))
        , leftTo(layer.Column({u"LTOHN"_s, u"LTOADD"_s, u"L_T_ADD"_s, u"TOADDR_L"_s}))
        , rightFrom(layer.Column({u"RFROMHN"_s, u"RFROMADD"_s, u"R_F_ADD"_s, u"FROMADDR_R"_s}))
        , rightTo(layer.Column({u"RTOHN"_s, u"RTOADD"_s, u"R_T_ADD"_s, u"TOADDR_R"_s}))
        , leftZip(layer.Column({u"ZIPL"_s, u"ZIP_L"_s, u"ZIPCODE_L"_s}))
        , rightZip(layer.Column({u"ZIPR"_s, u"ZIP_R"_s, u"ZIPCODE_R"_s}))
        , leftCity(layer.Column({u"CITYL"_s, u"CITY_L"_s, u"MUNI_L"_s}))
        , rightCity(layer.Column({u"CITYR"_s, u"CITY_R"_s, u"MUNI_R"_s}))
        , leftFace(layer.Column({u"TFIDL"_s}))
        , rightFace(layer.Column({u"TFIDR"_s}))
    {}

    [[nodiscard]] std::vector<int> All() const
    {
        return {id, name, kind, leftFrom, leftTo, rightFrom, rightTo, leftZip, rightZip, leftCity, rightCity,
                leftFace, rightFace};
    }

    int id;
    int name;
    int kind;
    int leftFrom;
    int leftTo;
    int rightFrom;
    int rightTo;
    int leftZip;
    int rightZip;
    int leftCity;
    int rightCity;
    int leftFace;
    int rightFace;
};

NumberRange Side(const OGRFeature& row, int from, int to, int zip, int city)
{
    return {TextOf(row, from), TextOf(row, to), TextOf(row, zip), TextOf(row, city)};
}

qint64 NumberOf(const OGRFeature& row, int column)
{
    return column >= 0 && row.IsFieldSetAndNotNull(column) ? row.GetFieldAsInteger64(column) : 0;
}

/// Walks all rows. `take` gets each with its number for the account.
template <class Take>
bool EachRow(VectorLayer& layer, const LayerJob& job, Take take)
{
    const double all = double(std::max<qint64>(1, layer.Count()));
    qint64 done = 0;
    while (const OGRFeatureUniquePtr row = layer.Next()) {
        constexpr qint64 kOften = 256;
        if (++done % kOften == 0 && !job.step(double(done) / all))
            return false;
        take(*row, Record{u"row", row->GetFID()});
    }
    return true;
}

bool ReadRoads(VectorLayer& layer, LayerKind kind, const LayerJob& job)
{
    const RoadColumns columns(layer);
    layer.Only(columns.All());
    QHash<QString, std::optional<RoadClass>> classes; ///< by code and name, which come again and again
    return EachRow(layer, job, [&](OGRFeature& row, Record record) {
        const QString mtfcc = TextOf(row, columns.kind);
        SourceEdge edge;
        edge.line = kind == LayerKind::Ranges || kind == LayerKind::Edges ? NumberOf(row, columns.id) : 0;
        if (edge.line != 0)
            record = {u"TLID", edge.line};
        const bool brook = mtfcc.startsWith(u"H30");
        const QString name = TextOf(row, columns.name);
        const QString key = mtfcc + name;
        auto known = classes.constFind(key);
        if (known == classes.cend()) {
            std::optional<RoadClass> made = ClassOfMtfcc(mtfcc);
            if (made)
                made = ClassByName(*made, name);
            known = classes.insert(key, made);
        }
        const std::optional<RoadClass> roadClass = *known;
        if (!roadClass && !brook)
            return job.account.Took(u"other lines, passed over"_s);
        const Shape shape = layer.ShapeOf(row);
        if (shape.kind != Shape::Kind::Lines)
            return job.account.Left(job.source, record.Text(), u"it has no line"_s);
        if (brook) {
            for (const std::vector<street::Place>& line : shape.parts)
                job.county.Add(street::WaterLine{name, line}, record);
            return;
        }
        edge.edge.name = name;
        edge.edge.roadClass = *roadClass;
        edge.edge.left = Side(row, columns.leftFrom, columns.leftTo, columns.leftZip, columns.leftCity);
        edge.edge.right = Side(row, columns.rightFrom, columns.rightTo, columns.rightZip, columns.rightCity);
        edge.leftFace = NumberOf(row, columns.leftFace);
        edge.rightFace = NumberOf(row, columns.rightFace);
        for (const std::vector<street::Place>& line : shape.parts) {
            SourceEdge part = edge;
            part.edge.line = line;
            if (kind == LayerKind::Ranges)
                job.county.AddNumbered(std::move(part), record);
            else
                job.county.AddLine(std::move(part), record);
        }
    });
}

bool ReadFaces(VectorLayer& layer, const LayerJob& job)
{
    const int face = layer.Column({u"TFID"_s});
    const int place = layer.Column({u"PLACEFP"_s, u"PLACEFP20"_s, u"PLACEFP10"_s});
    const int zip = layer.Column({u"ZCTA5CE20"_s, u"ZCTA5CE10"_s, u"ZCTA5CE"_s});
    layer.Only({face, place, zip});
    return EachRow(layer, job, [&](const OGRFeature& row, Record) {
        job.county.SetFace(NumberOf(row, face), TextOf(row, place), TextOf(row, zip));
    });
}

street::PlaceKind KindOfPlace(const QString& lsad, double squareMetres)
{
    constexpr double kCity = 50e6;
    if (squareMetres >= kCity)
        return street::PlaceKind::City;
    return lsad == u"25" || lsad == u"43" || lsad == u"21" ? street::PlaceKind::Town : street::PlaceKind::Village;
}

bool ReadPlaces(VectorLayer& layer, const LayerJob& job)
{
    const int name = layer.Column({u"NAME"_s, u"NAME20"_s, u"NAME10"_s});
    const int code = layer.Column({u"PLACEFP"_s, u"PLACEFP20"_s, u"PLACEFP10"_s});
    const int state = layer.Column({u"STATEFP"_s, u"STATEFP20"_s, u"STATEFP10"_s});
    const int lsad = layer.Column({u"LSAD"_s, u"LSAD20"_s, u"LSAD10"_s});
    const int land = layer.Column({u"ALAND"_s, u"ALAND20"_s, u"ALAND10"_s});
    const int latitude = layer.Column({u"INTPTLAT"_s, u"INTPTLAT20"_s, u"INTPTLAT10"_s});
    const int longitude = layer.Column({u"INTPTLON"_s, u"INTPTLON20"_s, u"INTPTLON10"_s});
    return EachRow(layer, job, [&](OGRFeature& row, Record record) {
        if (!job.stateDigits.isEmpty() && state >= 0 && TextOf(row, state) != job.stateDigits)
            return;
        street::PlaceName place;
        place.name = TextOf(row, name);
        place.kind = KindOfPlace(TextOf(row, lsad), TextOf(row, land).toDouble());
        Shape shape = layer.ShapeOf(row);
        place.place = MiddleOf(shape);
        if (!TextOf(row, latitude).isEmpty())
            place.place = {static_cast<qint32>(TextOf(row, latitude).toDouble() * 1e6),
                           static_cast<qint32>(TextOf(row, longitude).toDouble() * 1e6)};
        if (shape.kind == Shape::Kind::Area)
            place.outline = std::move(shape.parts);
        job.county.SetPlace(TextOf(row, code), place.name);
        job.county.Add(std::move(place), record);
    });
}

bool ReadZips(VectorLayer& layer, const LayerJob& job)
{
    const int zip = layer.Column({u"ZCTA5CE20"_s, u"ZCTA5CE10"_s, u"ZCTA5CE"_s, u"ZIP"_s, u"ZIPCODE"_s, u"ZIP5"_s});
    return EachRow(layer, job, [&](OGRFeature& row, Record record) {
        Shape shape = layer.ShapeOf(row);
        job.county.Add(street::ZipArea{TextOf(row, zip), std::move(shape.parts)}, record);
    });
}

bool ReadAreas(VectorLayer& layer, const LayerJob& job)
{
    const int name = layer.Column({u"FULLNAME"_s, u"NAME"_s});
    const int mtfcc = layer.Column({u"MTFCC"_s});
    return EachRow(layer, job, [&](OGRFeature& row, Record record) {
        const std::optional<street::AreaKind> kind = AreaOfMtfcc(TextOf(row, mtfcc));
        if (!kind)
            return job.account.Took(u"other areas, passed over"_s);
        Shape shape = layer.ShapeOf(row);
        job.county.Add(street::MapArea{*kind, TextOf(row, name), std::move(shape.parts)}, record);
    });
}

bool ReadBrooks(VectorLayer& layer, const LayerJob& job)
{
    const int name = layer.Column({u"FULLNAME"_s, u"NAME"_s});
    return EachRow(layer, job, [&](OGRFeature& row, Record record) {
        for (std::vector<street::Place>& line : layer.ShapeOf(row).parts)
            job.county.Add(street::WaterLine{TextOf(row, name), std::move(line)}, record);
    });
}

bool HasLines(const VectorLayer& layer)
{
    return layer.Geometry() == wkbLineString || layer.Geometry() == wkbMultiLineString;
}

bool HasAreas(const VectorLayer& layer)
{
    return layer.Geometry() == wkbPolygon || layer.Geometry() == wkbMultiPolygon;
}

} // namespace

LayerKind KindOf(const VectorLayer& layer)
{
    const auto has = [&layer](const QStringList& names) { return layer.Column(names) >= 0; };
    if (has({u"TFID"_s}) && has({u"PLACEFP"_s, u"PLACEFP20"_s, u"PLACEFP10"_s}))
        return LayerKind::Faces;
    if (HasAreas(layer)) {
        if (has({u"ZCTA5CE20"_s, u"ZCTA5CE10"_s, u"ZCTA5CE"_s}))
            return LayerKind::ZipAreas;
        if (has({u"PLACEFP"_s, u"PLACEFP20"_s, u"PLACEFP10"_s}))
            return LayerKind::Places;
        if (has({u"MTFCC"_s}))
            return LayerKind::Areas;
    }
    if (HasLines(layer)) {
        const RoadColumns columns(layer);
        if (has({u"TFIDL"_s}) && has({u"ROADFLG"_s, u"HYDROFLG"_s, u"FEATCAT"_s}))
            return LayerKind::Edges;
        if (columns.leftFrom >= 0 && columns.rightFrom >= 0)
            return LayerKind::Ranges;
        if (has({u"ARTPATH"_s}) && !has({u"RTTYP"_s}))
            return LayerKind::Brooks;
        return columns.name >= 0 || columns.kind >= 0 ? LayerKind::Roads : LayerKind::Lines;
    }
    return HouseColumns(layer).AreThere() ? LayerKind::Houses : LayerKind::Unknown;
}

int OrderOf(LayerKind kind)
{
    switch (kind) {
    case LayerKind::Faces:
        return 0;
    case LayerKind::Ranges:
        return 1;
    case LayerKind::Places:
    case LayerKind::ZipAreas:
        return 3;
    default:
        return 2;
    }
}

bool ReadTiger(VectorLayer& layer, LayerKind kind, const LayerJob& job)
{
    // Files of a whole state or country, read when the county's own ground is known.
    if (kind == LayerKind::Places || kind == LayerKind::ZipAreas)
        layer.Within(job.county.Ground());
    switch (kind) {
    case LayerKind::Ranges:
    case LayerKind::Edges:
    case LayerKind::Roads:
    case LayerKind::Lines:
        return ReadRoads(layer, kind, job);
    case LayerKind::Faces:
        return ReadFaces(layer, job);
    case LayerKind::Places:
        return ReadPlaces(layer, job);
    case LayerKind::ZipAreas:
        return ReadZips(layer, job);
    case LayerKind::Areas:
        return ReadAreas(layer, job);
    case LayerKind::Brooks:
        return ReadBrooks(layer, job);
    case LayerKind::Houses:
    case LayerKind::Unknown:
        break;
    }
    return true;
}

} // namespace vasclip::mapdata
