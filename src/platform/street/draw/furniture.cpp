#include "platform/street/draw/furniture.h"

#include "platform/street/draw/placed_text.h"

#include <QPainterPath>

#include <array>
#include <cmath>

using namespace Qt::StringLiterals;

namespace vasclip::street::draw {

namespace {

constexpr double kMile = 5280;
constexpr double kWidest = 140; // pixels of 1/96 inch
constexpr double kMargin = 10;
constexpr double kText = 8 * 96.0 / 72;

struct Bar
{
    BarLength length;
    double pixels = 0;
    QRectF back;
};

Bar BarOf(const Projection& projection)
{
    Bar bar;
    const double feet = projection.FeetPerPixel();
    bar.length = RoundLength(feet * projection.Px(kWidest));
    bar.pixels = std::round(bar.length.feet / feet);
    const double margin = std::round(projection.Px(kMargin));
    const double height = std::round(projection.Px(30));
    bar.back = QRectF(margin, projection.Sheet().height() - margin - height,
                      bar.pixels + std::round(projection.Px(16)), height);
    return bar;
}

QRectF NorthBox(const Projection& projection)
{
    const double margin = std::round(projection.Px(kMargin));
    const QSizeF size(std::round(projection.Px(26)), std::round(projection.Px(40)));
    return {QPointF(projection.Sheet().width() - margin - size.width(), margin), size};
}

/// Lower right; empty where nobody is named.
QRectF CreditBox(const Projection& projection, const Look& look)
{
    if (look.credit.isEmpty())
        return {};
    const double width = Letters(look.credit, Face::Regular).width * projection.Px(kSmallestText);
    const QSizeF size(std::ceil(width + projection.Px(10)), std::round(projection.Px(15)));
    return {QPointF(projection.Sheet().width() - size.width(), projection.Sheet().height() - size.height()), size};
}

} // namespace

BarLength RoundLength(double feet)
{
    constexpr std::array kMiles{500.0, 200.0, 100.0, 50.0, 20.0, 10.0, 5.0, 2.0, 1.0, 0.5, 0.25};
    for (const double miles : kMiles) {
        if (miles * kMile <= feet)
            return {miles * kMile, QString::number(miles) + u" mi"_s};
    }
    double round = 1;
    for (double step = 1; step <= 1000; step *= 10) {
        for (const double times : {1.0, 2.0, 5.0}) {
            if (step * times <= feet)
                round = step * times;
        }
    }
    return {round, QString::number(round) + u" ft"_s};
}

std::vector<QRectF> FurnitureBoxes(const Projection& projection, const Look& look)
{
    std::vector<QRectF> boxes{BarOf(projection).back, NorthBox(projection)};
    if (!look.credit.isEmpty())
        boxes.push_back(CreditBox(projection, look));
    return boxes;
}

void PaintFurniture(QPainter& painter, const Projection& projection, const Look& look)
{
    const Palette& palette = PaletteOf(look.dark);
    const double round = projection.Px(3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette.furnitureBack);

    const Bar bar = BarOf(projection);
    const QRectF north = NorthBox(projection);
    painter.drawRoundedRect(bar.back, round, round);
    painter.drawRoundedRect(north, round, round);

    if (!look.credit.isEmpty()) {
        const QRectF credit = CreditBox(projection, look);
        painter.drawRect(credit);
        Write(painter,
              OnTheLevel(Letters(look.credit, Face::Regular), projection.Px(kSmallestText), credit.center()),
              palette.furniture, QColor(0, 0, 0, 0));
    }

    // The bar's ends and foot are whole pixels: as sharp as a ruler.
    const double line = std::max(1.0, std::round(projection.Px(1.5)));
    const double left = std::round(bar.back.left() + (bar.back.width() - bar.pixels) / 2);
    const double foot = std::round(bar.back.bottom() - projection.Px(6));
    const double rise = std::round(projection.Px(5));
    painter.fillRect(QRectF(left, foot - line, bar.pixels, line), palette.furniture);
    painter.fillRect(QRectF(left, foot - rise, line, rise), palette.furniture);
    painter.fillRect(QRectF(left + bar.pixels - line, foot - rise, line, rise), palette.furniture);
    const double size = projection.Px(kText);
    Write(painter,
          OnTheLevel(Letters(bar.length.text, Face::Regular), size,
                     QPointF(bar.back.center().x(), bar.back.top() + projection.Px(10))),
          palette.furniture, QColor(0, 0, 0, 0));

    const double middle = north.center().x();
    const double tip = north.top() + projection.Px(5);
    const double tail = north.top() + projection.Px(21);
    const double wide = projection.Px(6);
    QPainterPath arrow(QPointF(middle, tip));
    arrow.lineTo(middle + wide, tail);
    arrow.lineTo(middle, tail - projection.Px(4));
    arrow.lineTo(middle - wide, tail);
    arrow.closeSubpath();
    painter.fillPath(arrow, palette.furniture);
    Write(painter, OnTheLevel(Letters(u"N"_s, Face::Bold), size, QPointF(middle, tail + projection.Px(9))),
          palette.furniture, QColor(0, 0, 0, 0));
    painter.restore();
}

} // namespace vasclip::street::draw
