#include "platform/street/draw/map_sheet.h"

#include "platform/street/draw/furniture.h"
#include "platform/street/draw/ground.h"

namespace vasclip::street::draw {

namespace {

constexpr double kReach = 40; // pixels of 1/96 inch that a road outside may reach into the picture

std::vector<Written> PaintLabels(Canvas& canvas, const Projection& projection, const Content& content,
                                 const Look& look, std::vector<QRectF> kept)
{
    if (look.furniture) {
        for (const QRectF& box : FurnitureBoxes(projection, look))
            kept.push_back(box);
    }
    LabelSheet labels(canvas, projection, content, look, kept);
    labels.WriteAll();
    return labels.All();
}

} // namespace

QImage DrawGround(const CellSource& source, const Projection& projection, const Look& look)
{
    QImage image(projection.Of().size, QImage::Format_RGB32);
    Canvas canvas(image);
    PaintGround(canvas, projection, Gather(source, projection, projection.Px(kReach)), look);
    return image;
}

QImage DrawLabels(const CellSource& source, const Projection& projection, const Look& look, const std::vector<QRectF>& kept,
                  std::vector<Written>* written)
{
    QImage image(projection.Of().size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    Canvas canvas(image);
    std::vector<Written> all = PaintLabels(canvas, projection, Gather(source, projection, 0), look, kept);
    if (written != nullptr)
        *written = std::move(all);
    return image;
}

QImage DrawMap(const CellSource& source, const Projection& projection, const Look& look, const std::vector<QRectF>& kept)
{
    const Content content = Gather(source, projection, projection.Px(kReach));
    QImage image(projection.Of().size, QImage::Format_RGB32);
    Canvas canvas(image);
    PaintGround(canvas, projection, content, look);
    PaintLabels(canvas, projection, content, look, kept);
    if (look.furniture) {
        QPainter painter(&image);
        PaintFurniture(painter, projection, look);
    }
    return image;
}

} // namespace vasclip::street::draw
