#include "platform/street/draw/scene.h"

#include "platform/street/draw/mark.h"
#include "platform/street/draw/occupied.h"

#include <QPainterPath>
#include <QPolygonF>

#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr qint32 kRight = 0x100;
constexpr qint32 kBottom = 0x200;
constexpr qint32 kLeft = 0x400;
constexpr qint32 kTop = 0x800;
constexpr qint32 kSeeThrough = 0x1000;
constexpr double kReach = 250; // pixels of 1/96 inch that a picture or text may reach into the sheet from outside
constexpr qsizetype kMostLetters = 3000; // texts at hand
constexpr double kGap = 3;

/// White is the ground of a bitmap that was drawn elsewhere.
QImage WithoutWhite(const QImage& image)
{
    QImage clear = image.convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < clear.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(clear.scanLine(y));
        for (int x = 0; x < clear.width(); ++x) {
            if (row[x] == qRgb(255, 255, 255))
                row[x] = 0;
        }
    }
    return clear;
}

QColor ColourOf(qint32 colour)
{
    const auto bits = static_cast<quint32>(colour);
    return {static_cast<int>(bits & 0xffU), static_cast<int>(bits >> 8U & 0xffU),
            static_cast<int>(bits >> 16U & 0xffU)};
}

bool IsRing(const QPolygonF& line)
{
    if (line.size() < 12)
        return false;
    double longest = 0;
    for (qsizetype i = 1; i < line.size(); ++i)
        longest = std::max(longest, std::hypot(line[i].x() - line[i - 1].x(), line[i].y() - line[i - 1].y()));
    return std::hypot(line.front().x() - line.back().x(), line.front().y() - line.back().y()) < 1.5 * longest;
}

} // namespace

QPointF HotSpot(qint32 flags)
{
    const double x = (flags & kLeft) != 0 ? 0 : (flags & kRight) != 0 ? 1 : 0.5;
    const double y = (flags & kTop) != 0 ? 0 : (flags & kBottom) != 0 ? 1 : 0.5;
    return {x, y};
}

Scene::Scene(std::function<QString(const QString&)> toNative) : m_toNative(std::move(toNative)) {}

std::vector<qint32> Scene::Within(const SceneLine& line) const
{
    QPolygonF ring;
    for (const Place place : line.line)
        ring << QPointF(place.longitude, place.latitude);
    std::vector<qint32> within;
    for (const auto& [id, point] : points) {
        if (ring.containsPoint(QPointF(point.place.longitude, point.place.latitude), Qt::OddEvenFill))
            within.push_back(id);
    }
    return within;
}

Scene::Picture Scene::ReadPicture(const ScenePoint& point, double ratio, bool dark) const
{
    if (point.picture.isEmpty())
        return {DrawMark({.kind = Mark::Kind::RedDot, .caption = {}}, ratio, false), QPointF(0.5, 0.5)};
    const QString native = m_toNative(point.picture);
    const auto mark = ReadMark(point.picture.section(u'\\', -1));
    const QImage file = mark && IsOwnBitmap(native) ? QImage() : QImage(native);
    // A bitmap that is missing is no reason to hide the house.
    if (file.isNull())
        return mark ? Picture{DrawMark(*mark, ratio, (point.flags & kSeeThrough) != 0, dark), HotSpot(*mark)}
                    : Picture{DrawMark({.kind = Mark::Kind::RedDot, .caption = {}}, ratio, false),
                              QPointF(0.5, 0.5)};
    return {(point.flags & kSeeThrough) != 0 ? WithoutWhite(file) : file, std::nullopt};
}

const Scene::Picture& Scene::PictureOf(const ScenePoint& point, double ratio, bool dark)
{
    const QString key =
        u"%1|%2|%3|%4"_s.arg(point.picture).arg(ratio).arg(point.flags & kSeeThrough).arg(dark ? 1 : 0);
    const auto known = m_pictures.constFind(key);
    return known != m_pictures.cend() ? *known : *m_pictures.insert(key, ReadPicture(point, ratio, dark));
}

QImage Scene::LettersOf(const QString& text, const Projection& projection, const Look& look)
{
    const double size = projection.Px(std::max(labelPoints * 96 / 72, kSmallestText));
    const QString key = u"%1|%2|%3"_s.arg(text).arg(size).arg(look.dark ? 1 : 0);
    if (m_letters.size() > kMostLetters)
        m_letters.clear();
    QImage& image = m_letters[key];
    if (image.isNull()) {
        const TextRun run = Letters(text, Face::Bold);
        const double rim = std::ceil(kHalo * size) + 1;
        image = QImage(static_cast<int>(std::ceil(run.width * size + 2 * rim)),
                       static_cast<int>(std::ceil(size * 1.25 + 2 * rim)), QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::transparent);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const Palette& palette = PaletteOf(look.dark);
        Write(painter, OnTheLevel(run, size, QPointF(image.width() / 2.0, image.height() / 2.0)),
              palette.placeText, palette.halo);
    }
    return image;
}

std::vector<Scene::Placed> Scene::Layout(const Projection& projection, const Look& look)
{
    const double reach = projection.Px(kReach);
    const QRectF near = projection.Sheet().adjusted(-reach, -reach, reach, reach);
    const double ratio = projection.Of().ratio;
    Occupied occupied(near, projection.Px(32));
    std::vector<Placed> placed;
    for (const auto& [id, point] : points) {
        const QPointF at = projection.Pixel(point.place);
        if (!near.contains(at))
            continue;
        Placed& one = placed.emplace_back();
        one.id = id;
        one.point = &point;
        one.picture = PictureOf(point, ratio, look.dark);
        const QImage& image = one.picture.image;
        // A bitmap from elsewhere is as large as it was drawn, in pixels of 1/96 inch.
        const QSizeF size = one.picture.hotSpot ? QSizeF(image.size()) : QSizeF(image.size()) * ratio;
        const QPointF hot = one.picture.hotSpot.value_or(HotSpot(point.flags));
        one.box = QRectF(QPointF(std::round(at.x() - hot.x() * size.width()),
                                 std::round(at.y() - hot.y() * size.height())),
                         size);
        occupied.Take(one.box);
    }
    for (Placed& one : placed) {
        if (one.point->text.isEmpty())
            continue;
        one.letters = LettersOf(one.point->text, projection, look);
        const QSizeF size(one.letters.size());
        const double gap = projection.Px(kGap);
        const QRectF& box = one.box;
        const double level = std::round(box.center().y() - size.height() / 2);
        const double middle = std::round(box.center().x() - size.width() / 2);
        for (const QPointF corner : {QPointF(box.right() + gap, level), QPointF(box.left() - gap - size.width(), level),
                                     QPointF(middle, box.bottom()), QPointF(middle, box.top() - size.height())}) {
            const QRectF label(corner, size);
            if (occupied.IsFree(label)) {
                one.label = label;
                occupied.Take(label);
                break;
            }
        }
    }
    return placed;
}

/// The street is still to be read below it.
void Scene::PaintHighlight(QPainter& painter, const Projection& projection) const
{
    constexpr int kThrough = 110;
    constexpr double kStep = 5;
    QPainterPath street;
    for (const std::vector<Place>& line : highlight) {
        QPolygonF piece;
        for (const Place place : line)
            piece << projection.Pixel(place);
        street.addPolygon(piece);
    }
    QColor colour = ColourOf(highlightColour);
    colour.setAlpha(kThrough);
    painter.strokePath(street, QPen(colour, projection.Px(kStep * highlightWidth), Qt::SolidLine, Qt::RoundCap,
                                    Qt::RoundJoin));
}

void Scene::PaintLine(QPainter& painter, const Projection& projection, const SceneLine& line) const
{
    QPolygonF polygon;
    for (const Place place : line.line)
        polygon << projection.Pixel(place);
    painter.setPen(QPen(ColourOf(line.colour),
                        projection.Px(std::max(line.width, 1)), Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    // A ring that lacks its last step is a ring to the eye as well.
    if (IsRing(polygon))
        painter.drawPolygon(polygon);
    else
        painter.drawPolyline(polygon);
}

void Scene::Paint(QPainter& painter, const Projection& projection, const Look& look)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    if (!highlight.empty())
        PaintHighlight(painter, projection);
    for (const auto& [id, line] : lines)
        PaintLine(painter, projection, line);
    const std::vector<Placed> placed = Layout(projection, look);
    for (auto one = placed.rbegin(); one != placed.rend(); ++one) {
        painter.drawImage(one->box, one->picture.image);
        if (!one->label.isEmpty())
            painter.drawImage(one->label.topLeft(), one->letters);
    }
    painter.restore();
}

std::vector<QRectF> Scene::Boxes(const Projection& projection)
{
    std::vector<QRectF> boxes;
    for (const Placed& one : Layout(projection, {})) {
        if (!one.box.intersects(projection.Sheet()))
            continue;
        boxes.push_back(one.box);
        if (!one.label.isEmpty())
            boxes.push_back(one.label);
    }
    return boxes;
}

QRectF Scene::BoxOf(qint32 id, const Projection& projection)
{
    for (const Placed& one : Layout(projection, {})) {
        if (one.id == id)
            return one.box;
    }
    return {};
}

qint32 Scene::PointAt(const Projection& projection, QPointF pixel)
{
    const std::vector<Placed> placed = Layout(projection, {});
    for (const Placed& one : placed) {
        if (one.label.contains(pixel))
            return one.id;
        if (!one.box.contains(pixel))
            continue;
        // Beside an arrow's tip its picture is empty: what lies below is meant.
        const QImage& image = one.picture.image;
        const QPointF inside = pixel - one.box.topLeft();
        const QPoint at(std::min(image.width() - 1, static_cast<int>(inside.x() * image.width() / one.box.width())),
                        std::min(image.height() - 1,
                                 static_cast<int>(inside.y() * image.height() / one.box.height())));
        if (qAlpha(image.pixel(at)) > 0)
            return one.id;
    }
    return 0;
}

} // namespace vasclip::street::draw
