#include "kelforms/window/icons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>

namespace kelforms {

namespace {

/// Drawn on a square of 24.
QPainterPath Shape(IconKind kind)
{
    QPainterPath path;
    switch (kind) {
    case IconKind::Open:
        path.moveTo(3, 19);
        path.lineTo(3, 5);
        path.lineTo(9, 5);
        path.lineTo(11, 8);
        path.lineTo(20, 8);
        path.lineTo(20, 11);
        path.moveTo(3, 19);
        path.lineTo(6.5, 11);
        path.lineTo(22, 11);
        path.lineTo(18.5, 19);
        path.closeSubpath();
        break;
    case IconKind::Save:
        path.moveTo(4, 4);
        path.lineTo(16, 4);
        path.lineTo(20, 8);
        path.lineTo(20, 20);
        path.lineTo(4, 20);
        path.closeSubpath();
        path.addRect(8, 4, 7, 5);
        path.addRect(7, 13, 10, 7);
        break;
    case IconKind::Close:
        path.moveTo(6, 6);
        path.lineTo(18, 18);
        path.moveTo(18, 6);
        path.lineTo(6, 18);
        break;
    case IconKind::Activate:
        path.moveTo(12, 20);
        path.lineTo(12, 5);
        path.moveTo(6, 11);
        path.lineTo(12, 5);
        path.lineTo(18, 11);
        break;
    case IconKind::Follow:
        path.addEllipse(QPointF(12, 12), 8, 8);
        path.addEllipse(QPointF(12, 12), 3, 3);
        path.moveTo(12, 1.5);
        path.lineTo(12, 5);
        path.moveTo(12, 19);
        path.lineTo(12, 22.5);
        path.moveTo(1.5, 12);
        path.lineTo(5, 12);
        path.moveTo(19, 12);
        path.lineTo(22.5, 12);
        break;
    case IconKind::Dark:
        path.moveTo(19, 14.5);
        path.arcTo(QRectF(3.5, 3.5, 17, 17), -20, -250);
        path.cubicTo(8, 12, 12, 16, 19, 14.5);
        break;
    case IconKind::Light:
        path.addEllipse(QPointF(12, 12), 4.5, 4.5);
        for (int i = 0; i < 8; ++i) {
            QTransform turn;
            turn.translate(12, 12);
            turn.rotate(45.0 * i);
            path.moveTo(turn.map(QPointF(0, -7.5)));
            path.lineTo(turn.map(QPointF(0, -10)));
        }
        break;
    }
    return path;
}

QPixmap Draw(IconKind kind, const QColor& colour, int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size / 24.0, size / 24.0);
    painter.setPen(QPen(colour, 1.7, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(Shape(kind));
    return pixmap;
}

} // namespace

QIcon DrawIcon(IconKind kind, const QColor& colour)
{
    QIcon icon;
    for (const int size : {18, 24, 36, 48})
        icon.addPixmap(Draw(kind, colour, size));
    QColor faint = colour;
    faint.setAlphaF(0.35F);
    for (const int size : {18, 24, 36, 48})
        icon.addPixmap(Draw(kind, faint, size), QIcon::Disabled);
    return icon;
}

} // namespace kelforms
