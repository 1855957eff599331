#pragma once

#include "platform/street/cell.h"
#include "platform/street/control.h"
#include "platform/street/draw/scene.h"
#include "platform/street/draw/tiles.h"
#include "platform/street/geocoder.h"

#include <QImage>

#include <functional>
#include <memory>

namespace vasclip::street {

/// The street map: members and actions over maps, a geocoder and a scene. With or without a window; drawing wants a
/// QGuiApplication, which may be one without a display. One thread.
class StreetMap final : public StreetControl
{
public:
    /// What the map stands on; without cells the ground is empty, without a geocoder nothing is found.
    struct Parts
    {
        std::shared_ptr<const CellSource> cells;
        std::shared_ptr<const Geocoder> geocoder;
        std::function<QString(const QString&)> toNative; ///< the native path of a drive path
    };

    explicit StreetMap(Parts parts);
    ~StreetMap() override;

    [[nodiscard]] qint32 ID() const override { return m_id; }
    void SetID(qint32 id) override { m_id = id; }
    [[nodiscard]] QString Location() const override { return m_location; }
    void SetLocation(const QString& location) override { m_location = location; }
    [[nodiscard]] qint32 Latitude() const override { return m_place.latitude; }
    void SetLatitude(qint32 latitude) override { m_place.latitude = latitude; }
    [[nodiscard]] qint32 Longitude() const override { return m_place.longitude; }
    void SetLongitude(qint32 longitude) override { m_place.longitude = longitude; }
    [[nodiscard]] qint32 Flags() const override { return m_flags; }
    void SetFlags(qint32 flags) override { m_flags = flags; }
    [[nodiscard]] QString Picture() const override { return m_picture; }
    void SetPicture(const QString& picture) override { m_picture = picture; }
    [[nodiscard]] QString Text() const override { return m_text; }
    void SetText(const QString& text) override { m_text = text; }
    [[nodiscard]] qint32 Status() const override { return m_status; }
    [[nodiscard]] double Value() const override { return m_value; }
    void SetValue(double value) override { m_value = value; }
    [[nodiscard]] double DValue() const override { return m_degrees; }
    void SetDValue(double degrees) override { m_degrees = degrees; }
    void SetFeature(qint32 feature) override { m_feature = feature; }
    void SetAttribute(qint32 attribute) override { m_attribute = attribute; }
    [[nodiscard]] double Scale() const override { return m_feet; }
    /// At least `kLeastFeet`: so near that a house fills the view.
    void SetScale(double feet) override;
    [[nodiscard]] double Width() const override { return m_size.width(); }
    [[nodiscard]] double Height() const override { return m_size.height(); }
    /// While it is on, action 7 also highlights the street that it finds.
    void SetStreetClick(bool on) override;
    void DoAction(qint32 action) override;
    void CreateLine(qint32 id, const std::vector<Place>& line, qint32 width, qint32 colour) override;
    void DestroyLine(qint32 id) override;
    void Refresh() override;
    bool DrawTo(const QString& file, int width, int height, int quality) override;
    void OnPointFound(std::function<void(const QString& text, qint32 id)> heard) override;

    // Beyond the members, for windows and the terminal.

    void SetMaps(std::shared_ptr<const CellSource> cells, std::shared_ptr<const Geocoder> geocoder);
    /// What the last find, geocode or reverse had to choose from, best first.
    [[nodiscard]] const std::vector<Candidate>& Candidates() const { return m_candidates; }

    /// The picture that `DrawTo` stores: always light, laid out for paper 7.5 inches wide.
    [[nodiscard]] QImage ReportPicture(int width, int height);

    /// The control's size in pixels of 1/96 inch, and how many of the screen's one of them takes.
    void SetSize(QSize size, double ratio);
    void SetDark(bool dark);
    /// Whose data is shown: "(c) OpenStreetMap contributors". On every picture, "" for nobody.
    void SetCredit(const QString& credit);
    /// Paints the view; a painter's coordinates are pixels of 1/96 inch. Never waits: `OnChanged` is called again when
    /// there is more. @return true when nothing is missing any more
    bool Paint(QPainter& painter);
    /// Hears that the view has to be painted again.
    void OnChanged(std::function<void()> heard) { m_changed = std::move(heard); }
    /// Waits for all parts of the view: for pictures and benchmarks.
    void FinishDrawing();

    // By pointer and keys; pixels of 1/96 inch from the control's upper left.
    void PanBy(QPointF pixels);
    /// Grows by a factor about a place that stays under the pointer.
    void ZoomAt(QPointF pixel, double factor);
    [[nodiscard]] qint32 PointAt(QPointF pixel);
    [[nodiscard]] Place PlaceAt(QPointF pixel) const;
    [[nodiscard]] QPointF PixelOf(Place place) const;
    /// Where a point's picture lies, empty without one.
    [[nodiscard]] QRectF BoxOf(qint32 id);
    /// Moves a point, as it is dragged. @param settled  let go: names make room for it
    void MovePoint(qint32 id, Place place, bool settled);
    [[nodiscard]] const std::map<qint32, draw::ScenePoint>& Points() const { return m_scene.points; }

    static constexpr double kLeastFeet = 300;
    static constexpr double kMostFeet = 60000000;

private:
    void Geocode(bool onlySure);
    void Reverse();
    void LoadPoint();
    void WritePoint(bool must);
    void FindPointsInLine();
    void ApplyAttribute();
    void SetCentre();
    void SetFrame(draw::Frame frame);
    void FrameFromScale();
    void SceneChanged();
    void Changed();
    [[nodiscard]] static bool IsValid(Place place); ///< on the globe

    Parts m_parts;
    draw::Scene m_scene;
    draw::Look m_look;
    draw::Frame m_frame; ///< of the view, in the screen's pixels
    std::unique_ptr<draw::Tiles> m_tiles;
    quint64 m_version = 0; ///< of the scene, for the names that keep off it
    QSize m_size{800, 600};
    double m_ratio = 1;
    double m_feet = 26400;
    Place m_centre; ///< as it was set

    qint32 m_id = 0;
    QString m_location;
    Place m_place;
    Place m_origin;
    qint32 m_flags = 0;
    QString m_picture;
    QString m_text;
    qint32 m_status = 0;
    double m_value = 0;
    double m_degrees = 0;
    qint32 m_feature = 0;
    qint32 m_attribute = 0;
    bool m_streetClick = false;
    std::vector<Candidate> m_candidates;
    std::function<void(const QString&, qint32)> m_pointFound;
    std::function<void()> m_changed;
};

} // namespace vasclip::street
