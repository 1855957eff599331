#include "mapdata/vector_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <algorithm>
#include <cmath>
#include <limits>

#include <cpl_conv.h>
#include <cpl_error.h>

namespace vasclip::mapdata {

namespace {

using namespace Qt::StringLiterals;
using street::Place;

/// NaN and what no number holds become a place that no check lets through.
qint32 Millionths(double degrees)
{
    constexpr double kMost = 2000;
    if (!(std::abs(degrees) < kMost))
        return std::numeric_limits<qint32>::max();
    return static_cast<qint32>(std::lround(degrees * 1e6));
}

/// The places of a line; what falls onto the one before goes.
std::vector<Place> PlacesOf(const OGRSimpleCurve& line)
{
    std::vector<Place> places;
    const int count = line.getNumPoints();
    places.reserve(static_cast<std::size_t>(count));
    for (int at = 0; at < count; ++at) {
        const Place place{Millionths(line.getY(at)), Millionths(line.getX(at))};
        if (places.empty() || !(places.back() == place))
            places.push_back(place);
    }
    return places;
}

void AppendRings(const OGRPolygon& polygon, Shape& shape)
{
    if (polygon.getExteriorRing() == nullptr)
        return;
    shape.parts.push_back(PlacesOf(*polygon.getExteriorRing()));
    for (int at = 0; at < polygon.getNumInteriorRings(); ++at)
        shape.parts.push_back(PlacesOf(*polygon.getInteriorRing(at)));
}

void Append(const OGRGeometry& geometry, Shape& shape)
{
    switch (wkbFlatten(geometry.getGeometryType())) {
    case wkbPoint: {
        const OGRPoint& point = *geometry.toPoint();
        if (point.IsEmpty())
            return;
        shape.kind = Shape::Kind::Point;
        shape.parts.push_back({Place{Millionths(point.getY()), Millionths(point.getX())}});
        return;
    }
    case wkbLineString:
        shape.kind = Shape::Kind::Lines;
        shape.parts.push_back(PlacesOf(*geometry.toLineString()));
        return;
    case wkbPolygon:
        shape.kind = Shape::Kind::Area;
        AppendRings(*geometry.toPolygon(), shape);
        return;
    case wkbMultiPoint:
    case wkbMultiLineString:
    case wkbMultiPolygon:
        for (const OGRGeometry* part : *geometry.toGeometryCollection())
            Append(*part, shape);
        return;
    default:
        return;
    }
}

/// NAD83 lies within two metres of WGS84 and is taken as it; every other datum is converted.
bool IsInDegrees(const OGRSpatialReference& reference)
{
    if (!reference.IsGeographic())
        return false;
    const QString datum = QString::fromUtf8(reference.GetAttrValue("DATUM"));
    return datum.contains(u"WGS"_s) || datum.contains(u"1983"_s) || datum.contains(u"NAD83"_s) ||
           datum.contains(u"North_American_Datum_1983"_s);
}

} // namespace

VectorLayer::VectorLayer(OGRLayer& layer)
    : m_layer(&layer)
{
    const OGRSpatialReference* const own = layer.GetSpatialRef();
    if (!own) {
        OGREnvelope extent;
        if (layer.GetGeomType() != wkbNone && layer.GetExtent(&extent, FALSE) == OGRERR_NONE &&
            (extent.MinX < -400 || extent.MaxX > 400 || extent.MinY < -400 || extent.MaxY > 400))
            m_problem = u"its coordinates are no degrees, and no .prj says what they are"_s;
        return;
    }
    if (IsInDegrees(*own))
        return;
    OGRSpatialReference from(*own);
    OGRSpatialReference degrees;
    degrees.SetWellKnownGeogCS("WGS84");
    from.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    degrees.SetAxisMappingStrategy(OAMS_TRADITIONAL_GIS_ORDER);
    m_toDegrees.reset(OGRCreateCoordinateTransformation(&from, &degrees));
    if (!m_toDegrees)
        m_problem = u"its coordinates can't be turned into degrees"_s;
}

int VectorLayer::Column(const QStringList& names) const
{
    OGRFeatureDefn& columns = *m_layer->GetLayerDefn();
    for (const QString& name : names) {
        for (int at = 0; at < columns.GetFieldCount(); ++at) {
            if (name.compare(QString::fromUtf8(columns.GetFieldDefn(at)->GetNameRef()), Qt::CaseInsensitive) == 0)
                return at;
        }
    }
    return -1;
}

QString VectorLayer::Name() const
{
    return QString::fromUtf8(m_layer->GetName());
}

qint64 VectorLayer::Count() const
{
    return m_layer->GetFeatureCount(FALSE);
}

OGRFeatureUniquePtr VectorLayer::Next()
{
    return OGRFeatureUniquePtr(m_layer->GetNextFeature());
}

void VectorLayer::Only(const std::vector<int>& columns)
{
    OGRFeatureDefn& all = *m_layer->GetLayerDefn();
    QList<QByteArray> names;
    for (int at = 0; at < all.GetFieldCount(); ++at) {
        if (std::find(columns.begin(), columns.end(), at) == columns.end())
            names.append(all.GetFieldDefn(at)->GetNameRef());
    }
    std::vector<const char*> ignored;
    for (const QByteArray& name : names)
        ignored.push_back(name.constData());
    ignored.push_back(nullptr);
    // A driver that can't leave columns out reads them all.
    (void)m_layer->SetIgnoredFields(ignored.data());
}

void VectorLayer::Within(const street::Extent& ground)
{
    if (!ground.IsEmpty() && !m_toDegrees)
        m_layer->SetSpatialFilterRect(ground.low.longitude / 1e6, ground.low.latitude / 1e6,
                                      ground.high.longitude / 1e6, ground.high.latitude / 1e6);
}

Shape VectorLayer::ShapeOf(OGRFeature& feature) const
{
    OGRGeometry* const geometry = feature.GetGeometryRef();
    if (!geometry || (m_toDegrees && geometry->transform(m_toDegrees.get()) != OGRERR_NONE))
        return {};
    return mapdata::ShapeOf(*geometry);
}

/// Without its .shx a shapefile is opened as a copy, whose .shx GDAL makes: it would write it beside the source.
QString Restored(const QString& path, std::unique_ptr<QTemporaryDir>& copies)
{
    // A state has thousands of files in one directory, which is not read for each of them.
    if (QFile::exists(path.chopped(1) + u'x'))
        return path;
    const QFileInfo shape(path);
    const QDir directory = shape.dir();
    const QStringList beside = directory.entryList({shape.completeBaseName() + u".*"_s}, QDir::Files);
    const bool has = std::any_of(beside.begin(), beside.end(),
                                 [](const QString& name) { return name.endsWith(u".shx"_s, Qt::CaseInsensitive); });
    if (has || !shape.exists())
        return path;
    copies = std::make_unique<QTemporaryDir>();
    if (!copies->isValid())
        return path;
    for (const QString& name : beside) {
        if (!QFile::copy(directory.filePath(name), copies->filePath(name)))
            return path;
    }
    return copies->filePath(shape.fileName());
}

std::unique_ptr<VectorFile> VectorFile::Open(const QString& path, QString& problem)
{
    static const char* const options[] = {
        "X_POSSIBLE_NAMES=lon,lng,long,longitude,x,point_x,gpsx",
        "Y_POSSIBLE_NAMES=lat,latitude,y,point_y,gpsy",
        "KEEP_GEOM_COLUMNS=NO", "AUTODETECT_TYPE=NO", nullptr};
    const bool table = path.endsWith(u".csv"_s, Qt::CaseInsensitive) || path.endsWith(u".csv.gz"_s, Qt::CaseInsensitive);
    std::unique_ptr<VectorFile> file(new VectorFile);
    CPLErrorReset();
    QString opened = path;
    const bool shape = path.endsWith(u".shp"_s, Qt::CaseInsensitive) && !path.startsWith(u"/vsi");
    if (shape)
        opened = Restored(path, file->m_copies);
    // Only for a copy of our own may GDAL write a .shx.
    CPLSetThreadLocalConfigOption("SHAPE_RESTORE_SHX", opened == path ? nullptr : "YES");
    file->m_dataset.reset(GDALDataset::Open(opened.toUtf8().constData(), GDAL_OF_VECTOR, nullptr,
                                            table ? options : nullptr));
    if (file->m_dataset)
        return file;
    problem = QString::fromUtf8(CPLGetLastErrorMsg()).simplified();
    if (problem.isEmpty())
        problem = u"it is damaged, or of no kind that can be read"_s;
    return {};
}

std::vector<VectorLayer> VectorFile::Layers() const
{
    std::vector<VectorLayer> layers;
    for (OGRLayer* layer : m_dataset->GetLayers())
        layers.push_back(VectorLayer(*layer));
    return layers;
}

QString TextOf(const OGRFeature& feature, int column)
{
    if (column < 0 || !feature.IsFieldSetAndNotNull(column))
        return {};
    return QString::fromUtf8(feature.GetFieldAsString(column)).trimmed();
}

Shape ShapeOf(const OGRGeometry& geometry)
{
    Shape shape;
    Append(geometry, shape);
    return shape;
}

Place MiddleOf(const Shape& shape)
{
    if (shape.parts.empty() || shape.parts.front().empty())
        return {};
    // The middle of the first ring's box: of a house that is its inside, or a few feet from it.
    street::Extent extent;
    for (const Place place : shape.parts.front())
        extent.Widen(place);
    return {static_cast<qint32>((qint64(extent.low.latitude) + extent.high.latitude) / 2),
            static_cast<qint32>((qint64(extent.low.longitude) + extent.high.longitude) / 2)};
}

GdalWords::GdalWords()
{
    CPLPushErrorHandlerEx(
        [](CPLErr kind, CPLErrorNum, const char* words) {
            if (kind < CE_Warning)
                return;
            QStringList& said = *static_cast<QStringList*>(CPLGetErrorHandlerUserData());
            const QString sentence = QString::fromUtf8(words).simplified();
            constexpr qsizetype kMost = 20;
            if (said.size() < kMost && !said.contains(sentence))
                said.append(sentence);
        },
        &m_words);
}

GdalWords::~GdalWords()
{
    CPLPopErrorHandler();
}

QStringList GdalWords::Take()
{
    return std::exchange(m_words, {});
}

} // namespace vasclip::mapdata
