#include "demo/drawing/facade.h"

#include <QLinearGradient>

namespace vasclip::demo {

Facade::Facade(Scene& scene, const Palette& palette)
    : m_scene(scene)
    , m_painter(scene.painter)
    , m_palette(palette)
{}

void Facade::Texture(const QPainterPath& shape, const QRectF& bounds, const QColor& colour, Siding siding)
{
    QPainter& p = m_painter;
    QLinearGradient light(bounds.left(), 0, bounds.right(), 0);
    const QColor lit = Mix(Lighter(colour, 0.1), m_scene.air.sun, 0.1);
    const QColor dim = Mix(Darker(colour, 0.1), m_scene.air.shadow, 0.05);
    light.setColorAt(m_scene.SunLeft() ? 0 : 1, lit);
    light.setColorAt(m_scene.SunLeft() ? 1 : 0, dim);
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawPath(shape);

    p.save();
    p.setClipPath(shape);
    p.setRenderHint(QPainter::Antialiasing, false);
    QVector<QLineF> lines;
    switch (siding) {
    case Siding::Lap:
        for (double y = bounds.top(); y < bounds.bottom(); y += 12)
            lines << QLineF(bounds.left(), y, bounds.right(), y);
        p.setPen(QPen(Faded(Darker(colour, 0.6), 0.32), 2));
        p.drawLines(lines);
        p.translate(0, 2);
        p.setPen(QPen(Faded(Lighter(colour, 0.7), 0.3), 1));
        p.drawLines(lines);
        break;
    case Siding::Board:
        for (double x = bounds.left(); x < bounds.right(); x += 22)
            lines << QLineF(x, bounds.top(), x, bounds.bottom());
        p.setPen(QPen(Faded(Darker(colour, 0.6), 0.34), 2));
        p.drawLines(lines);
        p.translate(3, 0);
        p.setPen(QPen(Faded(Lighter(colour, 0.7), 0.34), 2));
        p.drawLines(lines);
        break;
    case Siding::Brick: {
        const QColor mortar = Faded(Mix(colour, QColor(226, 218, 206), 0.62), 0.75);
        int course = 0;
        for (double y = bounds.top(); y < bounds.bottom(); y += 10, ++course) {
            for (double x = bounds.left() - (course % 2) * 13; x < bounds.right(); x += 26) {
                if (m_scene.dice.Chance(0.22))
                    p.fillRect(
                        QRectF(x, y, 25, 9),
                        Faded(m_scene.dice.Chance(0.5) ? Darker(colour, 0.45) : Lighter(colour, 0.35), 0.5));
                lines << QLineF(x, y, x, y + 10);
            }
            lines << QLineF(bounds.left(), y, bounds.right(), y);
        }
        p.setPen(QPen(mortar, 1));
        p.drawLines(lines);
        break;
    }
    case Siding::Stucco:
        for (int i = 0; i < static_cast<int>(bounds.width() * bounds.height() / 420); ++i) {
            const QRectF grain{m_scene.dice.Real(bounds.left(), bounds.right()),
                               m_scene.dice.Real(bounds.top(), bounds.bottom()), 4, 3};
            p.fillRect(grain,
                       Faded(m_scene.dice.Chance(0.5) ? Darker(colour, 0.3) : Lighter(colour, 0.5), 0.22));
        }
        break;
    case Siding::Shingle: {
        int course = 0;
        for (double y = bounds.top(); y < bounds.bottom(); y += 16, ++course) {
            for (double x = bounds.left() - (course % 3) * 7; x < bounds.right(); x += 20) {
                const double tint = m_scene.dice.Real();
                p.fillRect(
                    QRectF(x, y, 19, 16),
                    Faded(tint < 0.5 ? Darker(colour, 0.4) : Lighter(colour, 0.4), 0.05 + tint * 0.16));
                lines << QLineF(x, y, x, y + 16);
            }
            lines << QLineF(bounds.left(), y, bounds.right(), y);
        }
        p.setPen(QPen(Faded(Darker(colour, 0.6), 0.3), 1));
        p.drawLines(lines);
        break;
    }
    }
    p.restore();
}

void Facade::Wall(const QRectF& wall, double footing)
{
    Wall(wall, footing, m_palette.wall, m_palette.siding);
}

void Facade::Wall(const QRectF& wall, double footing, const QColor& colour, Siding siding)
{
    QPainter& p = m_painter;
    QPainterPath shape;
    shape.addRect(wall);
    Texture(shape, wall, colour, siding);
    if (siding != Siding::Brick && siding != Siding::Stucco) {
        p.setPen(QPen(Faded(Darker(m_palette.trim, 0.4), 0.5), 1));
        p.setBrush(m_palette.trim);
        p.drawRect(QRectF(wall.left(), wall.top(), 9, wall.height()));
        p.drawRect(QRectF(wall.right() - 9, wall.top(), 9, wall.height()));
    }
    if (footing > 0) {
        QPainterPath base;
        const QRectF strip(wall.left() - 2, wall.bottom() - footing, wall.width() + 4, footing);
        base.addRect(strip);
        Texture(base, strip, m_palette.base, footing > 24 ? Siding::Brick : Siding::Stucco);
    }
    QLinearGradient under(0, wall.top(), 0, wall.top() + 46);
    under.setColorAt(0, Faded(m_scene.air.shadow, 0.5));
    under.setColorAt(0.55, Faded(m_scene.air.shadow, 0.26));
    under.setColorAt(1, Faded(m_scene.air.shadow, 0));
    p.fillRect(QRectF(wall.left(), wall.top(), wall.width(), 46), under);
}

void Facade::GableWall(double left, double right, double base, double apex)
{
    QPainterPath shape;
    shape.moveTo(left, base + 1);
    shape.lineTo((left + right) / 2, apex);
    shape.lineTo(right, base + 1);
    shape.closeSubpath();
    Texture(shape, QRectF(left, apex, right - left, base - apex + 1), m_palette.wall, m_palette.siding);
}

void Facade::Snow(const QPolygonF& roof, double eaves)
{
    if (m_scene.season != Season::Winter)
        return;
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(Faded(QColor(242, 247, 255), 0.82));
    m_painter.drawPolygon(roof);
    m_painter.setBrush(QColor(250, 252, 255));
    const QRectF box = roof.boundingRect();
    for (double x = box.left() + 12; x < box.right() - 8; x += 24)
        m_painter.drawEllipse(QPointF(x, eaves), 16, m_scene.dice.Real(5, 10));
}

void Facade::Slope(double left, double right, double eaves, double ridge, double inset)
{
    QPainter& p = m_painter;
    QPolygonF roof;
    roof << QPointF(left, eaves) << QPointF(left + inset, ridge) << QPointF(right - inset, ridge)
         << QPointF(right, eaves);
    const QColor tile = m_palette.roof;
    QLinearGradient light(0, ridge, 0, eaves);
    light.setColorAt(0, Mix(Lighter(tile, 0.2), m_scene.air.skyLow, 0.16));
    light.setColorAt(1, tile);
    p.setPen(Qt::NoPen);
    p.setBrush(light);
    p.drawPolygon(roof);

    p.save();
    QPainterPath clip;
    clip.addPolygon(roof);
    p.setClipPath(clip);
    p.setRenderHint(QPainter::Antialiasing, false);
    double row = 8;
    int course = 0;
    QVector<QLineF> lines;
    for (double y = ridge; y < eaves; y += row, ++course) {
        row = 8 + 6 * (y - ridge) / (eaves - ridge + 1);
        for (double x = left - (course % 2) * 14; x < right; x += 28) {
            if (m_scene.dice.Chance(0.42))
                p.fillRect(QRectF(x, y, 27, row),
                           Faded(m_scene.dice.Chance(0.5) ? Darker(tile, 0.4) : Lighter(tile, 0.28), 0.28));
        }
        lines << QLineF(left, y, right, y);
    }
    p.setPen(QPen(Faded(Darker(tile, 0.6), 0.5), 1));
    p.drawLines(lines);
    p.restore();
    p.setPen(QPen(Lighter(tile, 0.14), 5, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(roof[1], roof[2]);
    Snow(roof, eaves - 3);
    Eaves(left, right, eaves);
}

void Facade::Eaves(double left, double right, double y)
{
    QPainter& p = m_painter;
    QLinearGradient board(0, y - 4, 0, y + 13);
    board.setColorAt(0, Lighter(m_palette.trim, 0.3));
    board.setColorAt(1, Darker(m_palette.trim, 0.24));
    p.setPen(QPen(Faded(Darker(m_palette.trim, 0.6), 0.6), 1));
    p.setBrush(board);
    p.drawRect(QRectF(left - 2, y - 4, right - left + 4, 16));
}

void Facade::GableEdges(double left, double right, double base, double apex, double overhang)
{
    QPainter& p = m_painter;
    const double middle = (left + right) / 2;
    const double rise = (base - apex) / (middle - left);
    const QPointF foot(left - overhang, base + overhang * rise);
    const QPointF top(middle, apex - 14);
    const QPointF far(right + overhang, base + overhang * rise);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Faded(m_scene.air.shadow, 0.3), 26, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPolyline(QPolygonF{foot + QPointF(6, 20), top + QPointF(0, 26), far + QPointF(-6, 20)});
    p.setPen(QPen(m_palette.trim, 20, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPolyline(QPolygonF{foot, top + QPointF(0, 8), far});
    p.setPen(QPen(m_scene.season == Season::Winter ? QColor(246, 250, 255) : m_palette.roof, 13,
                  Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    p.drawPolyline(QPolygonF{foot + QPointF(0, -12), top + QPointF(0, -6), far + QPointF(0, -12)});
}

void Facade::Chimney(double x, double top, double base, double width)
{
    QPainterPath shape;
    const QRectF stack(x, top, width, base - top);
    shape.addRect(stack);
    Texture(shape, stack, QColor(150, 86, 70), Siding::Brick);
    m_painter.setPen(Qt::NoPen);
    m_painter.setBrush(QColor(176, 168, 158));
    m_painter.drawRect(QRectF(x - 6, top - 10, width + 12, 13));
    m_painter.setBrush(QColor(168, 96, 74));
    m_painter.drawRect(QRectF(x + width * 0.3, top - 26, width * 0.4, 17));
}

void Facade::Dormer(double x, double base, double width, double height)
{
    const QRectF face(x, base - height, width, height);
    QPainterPath shape;
    shape.addRect(face);
    Texture(shape, face, m_palette.wall, m_palette.siding == Siding::Brick ? Siding::Lap : m_palette.siding);
    GableWall(x, x + width, base - height, base - height - width * 0.42);
    GableEdges(x, x + width, base - height, base - height - width * 0.42, 10);
    Window(QRectF(x + width * 0.24, base - height * 0.84, width * 0.52, height * 0.72));
}

} // namespace vasclip::demo
