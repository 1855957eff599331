#include "platform/street/street_map.h"

#include "platform/street/draw/furniture.h"
#include "platform/street/draw/map_sheet.h"

#include <QBuffer>
#include <QSaveFile>

#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::street {

namespace {

constexpr double kPaperInches = 7.5; // of the report's slot
constexpr double kScreenInch = 96;
constexpr double kMetre = 39.3701; // inches

} // namespace

void StreetMap::SetSize(QSize size, double ratio)
{
    if (size.isEmpty() || ratio <= 0 || (size == m_size && ratio == m_ratio))
        return;
    m_size = size;
    m_ratio = ratio;
    FrameFromScale();
    Changed();
}

void StreetMap::SetDark(bool dark)
{
    m_look.dark = dark;
    Changed();
}

void StreetMap::SetCredit(const QString& credit)
{
    m_look.credit = credit;
    Changed();
}

void StreetMap::FrameFromScale()
{
    m_frame = draw::FrameOf({m_centre, m_feet, (QSizeF(m_size) * m_ratio).toSize(), m_ratio}).Snapped();
}

bool StreetMap::IsValid(Place place)
{
    constexpr qint32 kLatitudes = 90000000;
    constexpr qint32 kLongitudes = 180000000;
    return std::abs(place.latitude) <= kLatitudes && std::abs(place.longitude) <= kLongitudes;
}

void StreetMap::SetCentre()
{
    if (!IsValid(m_place)) {
        m_status = -1;
        return;
    }
    m_centre = m_place;
    FrameFromScale();
    Changed();
}

void StreetMap::SetFrame(draw::Frame frame)
{
    m_frame = frame.Snapped();
    const QSizeF middle = QSizeF(m_frame.size) / 2;
    m_centre = draw::Projection(m_frame).At({middle.width(), middle.height()});
    m_feet = draw::FeetOf(m_frame);
    Changed();
}

void StreetMap::PanBy(QPointF pixels)
{
    draw::Frame frame = m_frame;
    frame.x -= pixels.x() * m_ratio / frame.scale;
    frame.y += pixels.y() * m_ratio / frame.scale;
    SetFrame(frame);
}

void StreetMap::ZoomAt(QPointF pixel, double factor)
{
    if (!std::isfinite(factor) || factor <= 0)
        return;
    const double feet = std::clamp(m_feet / factor, kLeastFeet, kMostFeet);
    const double grow = m_feet / feet;
    const QPointF off = pixel * m_ratio - QPointF(m_frame.size.width() / 2.0, m_frame.size.height() / 2.0);
    draw::Frame frame = m_frame;
    frame.x += off.x() / frame.scale * (1 - 1 / grow);
    frame.y -= off.y() / frame.scale * (1 - 1 / grow);
    frame.scale *= grow;
    SetFrame(frame);
}

Place StreetMap::PlaceAt(QPointF pixel) const
{
    return draw::Projection(m_frame).At(pixel * m_ratio);
}

QPointF StreetMap::PixelOf(Place place) const
{
    return draw::Projection(m_frame).Pixel(place) / m_ratio;
}

qint32 StreetMap::PointAt(QPointF pixel)
{
    return m_scene.PointAt(draw::Projection(m_frame), pixel * m_ratio);
}

QRectF StreetMap::BoxOf(qint32 id)
{
    const QRectF box = m_scene.BoxOf(id, draw::Projection(m_frame));
    return {box.topLeft() / m_ratio, box.size() / m_ratio};
}

void StreetMap::MovePoint(qint32 id, Place place, bool settled)
{
    const auto found = m_scene.points.find(id);
    if (found == m_scene.points.end())
        return;
    found->second.place = place;
    if (settled)
        SceneChanged();
    else
        Changed();
}

bool StreetMap::Paint(QPainter& painter)
{
    if (!m_tiles)
        m_tiles = std::make_unique<draw::Tiles>(m_parts.cells, [this] { Changed(); });
    const draw::Projection projection(m_frame);
    painter.save();
    painter.scale(1 / m_ratio, 1 / m_ratio);
    // A control may begin in the middle of a screen's pixel; halves left and right of nought are rounded apart, and
    // a line of whatever was there before would stand between two parts.
    const QTransform onto = painter.deviceTransform();
    painter.translate(std::round(onto.dx()) - onto.dx(), std::round(onto.dy()) - onto.dy());
    const bool whole = m_tiles->Paint(
        painter, m_frame, m_look, [this](const draw::Projection& wide) { return m_scene.Boxes(wide); }, m_version);
    m_scene.Paint(painter, projection, m_look);
    if (m_look.furniture)
        draw::PaintFurniture(painter, projection, m_look);
    painter.restore();
    return whole;
}

void StreetMap::FinishDrawing()
{
    QImage image(m_frame.size, QImage::Format_RGB32);
    image.setDevicePixelRatio(m_ratio);
    for (bool whole = false; !whole && m_parts.cells;) {
        QPainter painter(&image);
        whole = Paint(painter);
        m_tiles->Wait();
    }
}

QImage StreetMap::ReportPicture(int width, int height)
{
    draw::Look look = m_look;
    look.dark = false;
    const double ratio = width / (kPaperInches * kScreenInch);
    // All that is in sight is on the picture, whatever the window's shape.
    const double feet = std::max(m_feet, m_feet * Height() / Width() * width / height);
    const draw::Projection projection(draw::View{m_centre, feet, QSize(width, height), ratio});
    struct Nothing : CellSource
    {
        [[nodiscard]] std::vector<std::shared_ptr<const Cell>> Cells(const Extent& /*extent*/,
                                                                     Level /*level*/) const override
        {
            return {};
        }
        [[nodiscard]] QString StreetName(const Cell& /*cell*/, quint32 /*street*/) const override { return {}; }
        [[nodiscard]] QString Shield(const Cell& /*cell*/, quint32 /*street*/) const override { return {}; }
        [[nodiscard]] Extent Covered() const override { return {}; }
    };
    const Nothing nothing;
    QImage image = draw::DrawMap(m_parts.cells ? *m_parts.cells : nothing, projection, look,
                                 m_scene.Boxes(projection));
    QPainter painter(&image);
    m_scene.Paint(painter, projection, look);
    painter.end();
    image.setDotsPerMeterX(qRound(width / kPaperInches * kMetre));
    image.setDotsPerMeterY(qRound(width / kPaperInches * kMetre));
    return image;
}

bool StreetMap::DrawTo(const QString& file, int width, int height, int quality)
{
    constexpr int kMost = 20000;
    m_status = -1;
    if (width < 1 || height < 1 || width > kMost || height > kMost)
        return false;
    const bool png = file.endsWith(u".png"_s, Qt::CaseInsensitive);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    if (!ReportPicture(width, height).save(&buffer, png ? "PNG" : "JPG", png ? -1 : std::clamp(quality, 1, 100)))
        return false;
    try {
        QSaveFile stored(m_parts.toNative(file));
        if (stored.open(QIODevice::WriteOnly) && stored.write(bytes) == bytes.size() && stored.commit())
            m_status = 0;
    } catch (const std::exception&) { // no drive path: nothing is stored
    }
    return m_status == 0;
}

void StreetMap::Refresh()
{
    m_scene.ForgetPictures();
    Changed();
}

void StreetMap::SceneChanged()
{
    ++m_version;
    Changed();
}

void StreetMap::Changed()
{
    if (m_changed)
        m_changed();
}

} // namespace vasclip::street
