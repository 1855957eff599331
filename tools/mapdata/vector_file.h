#pragma once

#include "platform/street/types.h"

#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <memory>
#include <vector>

namespace vasclip::mapdata {

/// A line, the rings of a surface or a point, as it comes from a source.
struct Shape
{
    enum class Kind { None, Point, Lines, Area };
    Kind kind = Kind::None;
    std::vector<std::vector<street::Place>> parts; ///< lines or rings; of a point one part with one place
};

/// The rows of one layer.
class VectorLayer
{
public:
    /// Where a column of one of these names is, without regard to case; -1 for none.
    [[nodiscard]] int Column(const QStringList& names) const;
    [[nodiscard]] QString Name() const;
    /// How many rows; -1 where only reading all tells.
    [[nodiscard]] qint64 Count() const;
    /// The kind of its geometries, flat; wkbUnknown for a mixture.
    [[nodiscard]] OGRwkbGeometryType Geometry() const { return wkbFlatten(m_layer->GetGeomType()); }
    /// Why its places can't be turned into degrees; "" where they can.
    [[nodiscard]] const QString& Problem() const { return m_problem; }
    /// Does nothing say what its coordinates are? They count as degrees.
    [[nodiscard]] bool IsWithoutReference() const { return m_layer->GetSpatialRef() == nullptr; }
    /// The next row, null at the end.
    [[nodiscard]] OGRFeatureUniquePtr Next();
    /// Reads only these columns from here on; others are empty.
    void Only(const std::vector<int>& columns);
    /// Gives only rows that touch this ground; all where it is empty.
    void Within(const street::Extent& ground);
    [[nodiscard]] Shape ShapeOf(OGRFeature& feature) const;

private:
    friend class VectorFile;
    explicit VectorLayer(OGRLayer& layer);

    OGRLayer* m_layer;
    QString m_problem;
    std::shared_ptr<OGRCoordinateTransformation> m_toDegrees; ///< null where they are degrees
};

/// A source, open through GDAL.
class VectorFile
{
public:
    /// @return null with the reason in `problem`
    [[nodiscard]] static std::unique_ptr<VectorFile> Open(const QString& path, QString& problem);

    [[nodiscard]] std::vector<VectorLayer> Layers() const;
    [[nodiscard]] GDALDataset& Dataset() const { return *m_dataset; }

private:
    VectorFile() = default;
    std::unique_ptr<QTemporaryDir> m_copies; ///< outlives what was opened in it
    GDALDatasetUniquePtr m_dataset;
};

/// A text of a row without blanks at its ends; "" for a column of -1.
[[nodiscard]] QString TextOf(const OGRFeature& feature, int column);
/// A geometry in degrees; nothing of it is checked but that it is one of the three kinds.
[[nodiscard]] Shape ShapeOf(const OGRGeometry& geometry);
/// The middle of a shape, inside of it where that is easily said.
[[nodiscard]] street::Place MiddleOf(const Shape& shape);

/// GDAL's own words go here instead of to the terminal while this stands.
class GdalWords
{
public:
    GdalWords();
    ~GdalWords();
    GdalWords(const GdalWords&) = delete;
    GdalWords& operator=(const GdalWords&) = delete;
    /// What it said since the last call, each sentence once.
    [[nodiscard]] QStringList Take();

private:
    QStringList m_words;
};

} // namespace vasclip::mapdata
