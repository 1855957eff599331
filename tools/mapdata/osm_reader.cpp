#include "mapdata/osm_reader.h"

#include "mapdata/classes.h"
#include "mapdata/osm_conf.h"

#include <cpl_conv.h>
#include <cpl_vsi.h>

#include <QHash>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::AreaKind;
using street::PlaceKind;
using street::RoadClass;

/// The tags of one thing of a layer.
class Tags
{
public:
    Tags(const OGRFeature& row, const QHash<QString, int>& columns)
        : m_row(row)
        , m_columns(columns)
    {}
    [[nodiscard]] QString operator[](const QString& tag) const { return TextOf(m_row, m_columns.value(tag, -1)); }

private:
    const OGRFeature& m_row;
    const QHash<QString, int>& m_columns;
};

QHash<QString, int> ColumnsOf(OGRLayer& layer)
{
    QHash<QString, int> columns;
    OGRFeatureDefn& all = *layer.GetLayerDefn();
    for (int at = 0; at < all.GetFieldCount(); ++at)
        columns.insert(QString::fromUtf8(all.GetFieldDefn(at)->GetNameRef()), at);
    return columns;
}

std::optional<PlaceKind> KindOfPlace(const QString& place)
{
    static const QHash<QString, PlaceKind> kinds{
        {u"city"_s, PlaceKind::City},     {u"town"_s, PlaceKind::Town},     {u"village"_s, PlaceKind::Village},
        {u"hamlet"_s, PlaceKind::Hamlet}, {u"suburb"_s, PlaceKind::Suburb}, {u"neighbourhood"_s, PlaceKind::Suburb},
        {u"quarter"_s, PlaceKind::Suburb}};
    const auto found = kinds.constFind(place);
    return found == kinds.cend() ? std::nullopt : std::optional(*found);
}

std::optional<AreaKind> KindOfArea(const Tags& tags)
{
    const QString natural = tags[u"natural"_s];
    const QString landuse = tags[u"landuse"_s];
    const QString leisure = tags[u"leisure"_s];
    const QString amenity = tags[u"amenity"_s];
    const QString aeroway = tags[u"aeroway"_s];
    if (natural == u"water" || tags[u"waterway"_s] == u"riverbank" || landuse == u"reservoir" ||
        landuse == u"basin" || natural == u"bay")
        return AreaKind::Water;
    if (leisure == u"park" || leisure == u"garden" || leisure == u"nature_reserve" || leisure == u"golf_course" ||
        leisure == u"recreation_ground" || landuse == u"recreation_ground" || landuse == u"village_green" ||
        leisure == u"playground" || leisure == u"common")
        return AreaKind::Park;
    if (natural == u"wood" || landuse == u"forest")
        return AreaKind::Forest;
    if (landuse == u"cemetery" || amenity == u"grave_yard")
        return AreaKind::Cemetery;
    if (amenity == u"school" || amenity == u"college" || amenity == u"university" || amenity == u"kindergarten")
        return AreaKind::School;
    if (aeroway == u"aerodrome")
        return AreaKind::Airport;
    if (landuse == u"residential" || landuse == u"commercial" || landuse == u"retail" || landuse == u"industrial")
        return AreaKind::Builtup;
    return std::nullopt;
}

/// A house that a node or a building stands for; several where its number names several.
void TakeHouses(const Tags& tags, street::Place place, Record record, const LayerJob& job)
{
    const QString numbers = tags[u"addr:housenumber"_s];
    QString street = tags[u"addr:street"_s];
    if (street.isEmpty())
        street = tags[u"addr:place"_s];
    // Unnumbered buildings often carry a city or a ZIP code alone.
    if (numbers.isEmpty())
        return;
    for (const QString& number : numbers.split(u';', Qt::SkipEmptyParts))
        job.county.Add(street::AddressPoint{number.trimmed(), street, tags[u"addr:unit"_s], tags[u"addr:city"_s],
                                            tags[u"addr:postcode"_s], place},
                       record);
}

void TakePoint(const Tags& tags, const Shape& shape, Record record, const LayerJob& job)
{
    const street::Place place = MiddleOf(shape);
    TakeHouses(tags, place, record, job);
    if (const std::optional<PlaceKind> kind = KindOfPlace(tags[u"place"_s]); kind && !tags[u"name"_s].isEmpty())
        job.county.Add(street::PlaceName{tags[u"name"_s], *kind, tags[u"population"_s].toLongLong(), place, {}},
                       record);
}

void TakeRoad(const Tags& tags, RoadClass roadClass, const Shape& shape, Record record, const LayerJob& job)
{
    street::RoadEdge road;
    road.roadClass = roadClass;
    road.name = tags[u"name"_s];
    QStringList others = tags[u"ref"_s].split(u';', Qt::SkipEmptyParts);
    for (const QString& tag : {u"alt_name"_s, u"old_name"_s, u"name_1"_s})
        others.append(tags[tag].split(u';', Qt::SkipEmptyParts));
    for (const QString& other : others) {
        const QString name = other.trimmed();
        if (road.name.isEmpty())
            road.name = name;
        else if (name != road.name && !road.otherNames.contains(name))
            road.otherNames.append(name);
    }
    for (const std::vector<street::Place>& line : shape.parts) {
        road.line = line;
        job.county.AddWay(road, record);
    }
}

void TakeLine(const Tags& tags, const Shape& shape, Record record, const LayerJob& job)
{
    if (const QString highway = tags[u"highway"_s]; !highway.isEmpty()) {
        const std::optional<RoadClass> roadClass = ClassOfHighway(highway);
        if (!roadClass || tags[u"area"_s] == u"yes")
            return job.account.Took(u"other lines, passed over"_s);
        return TakeRoad(tags, *roadClass, shape, record, job);
    }
    if (const std::optional<RoadClass> rail = ClassOfRailway(tags[u"railway"_s])) {
        if (tags[u"tunnel"_s].isEmpty() && tags[u"service"_s].isEmpty())
            TakeRoad(tags, *rail, shape, record, job);
        return;
    }
    if (tags[u"natural"_s] == u"coastline") {
        for (const std::vector<street::Place>& line : shape.parts)
            job.county.AddCoast(line, record);
        return;
    }
    const QString waterway = tags[u"waterway"_s];
    if (waterway == u"river" || waterway == u"stream" || waterway == u"canal") {
        if (!tags[u"tunnel"_s].isEmpty())
            return;
        for (const std::vector<street::Place>& line : shape.parts)
            job.county.Add(street::WaterLine{tags[u"name"_s], line}, record);
    }
}

void TakeArea(const Tags& tags, Shape shape, Record record, const LayerJob& job)
{
    TakeHouses(tags, MiddleOf(shape), record, job);
    if (tags[u"natural"_s] == u"coastline") { // closed: an island, which has the sea around it
        for (std::vector<street::Place>& ring : shape.parts)
            job.county.AddIsland(std::move(ring), record);
        return;
    }
    const QString name = tags[u"name"_s];
    const QString boundary = tags[u"boundary"_s];
    if (boundary == u"postal_code") {
        QString zip = tags[u"postal_code"_s];
        if (zip.isEmpty())
            zip = tags[u"ref"_s];
        if (zip.isEmpty())
            zip = name;
        return job.county.Add(street::ZipArea{zip, std::move(shape.parts)}, record);
    }
    const std::optional<PlaceKind> place = KindOfPlace(tags[u"place"_s]);
    if (!name.isEmpty() && (place || (boundary == u"administrative" && tags[u"admin_level"_s] == u"8")))
        return job.county.Add(street::PlaceName{name, place.value_or(PlaceKind::Town),
                                                tags[u"population"_s].toLongLong(), MiddleOf(shape),
                                                std::move(shape.parts)},
                              record);
    if (const std::optional<AreaKind> kind = KindOfArea(tags))
        job.county.Add(street::MapArea{*kind, name, std::move(shape.parts)}, record);
}

} // namespace

void PrepareOsm()
{
    static const char* const path = "/vsimem/vasclip-osm.ini";
    VSIFCloseL(VSIFileFromMemBuffer(path, reinterpret_cast<GByte*>(const_cast<char*>(kOsmConf)), sizeof kOsmConf - 1,
                                    FALSE));
    CPLSetConfigOption("OSM_CONFIG_FILE", path);
}

bool ReadOsm(const VectorFile& file, const LayerJob& job)
{
    QHash<OGRLayer*, QHash<QString, int>> columns;
    OGRLayer* of = nullptr;
    double share = 0;
    qint64 read = 0;
    while (const OGRFeatureUniquePtr row{file.Dataset().GetNextFeature(&of, &share, nullptr, nullptr)}) {
        constexpr qint64 kOften = 256;
        if (++read % kOften == 0 && !job.step(share))
            return false;
        if (!columns.contains(of))
            columns.insert(of, ColumnsOf(*of));
        const Tags tags(*row, columns[of]);
        const OGRGeometry* const geometry = row->GetGeometryRef();
        if (!geometry)
            continue;
        Shape shape = ShapeOf(*geometry);
        const qint64 way = tags[u"osm_way_id"_s].toLongLong();
        const qint64 id = tags[u"osm_id"_s].toLongLong();
        switch (shape.kind) {
        case Shape::Kind::Point:
            TakePoint(tags, shape, {u"node", id}, job);
            break;
        case Shape::Kind::Lines:
            // Relations of lines come beside the ways that they are made of.
            if (QString::fromUtf8(of->GetName()) == u"lines")
                TakeLine(tags, shape, {u"way", id}, job);
            break;
        case Shape::Kind::Area:
            TakeArea(tags, std::move(shape), way != 0 ? Record{u"way", way} : Record{u"relation", id}, job);
            break;
        case Shape::Kind::None:
            break;
        }
    }
    return true;
}

} // namespace vasclip::mapdata
