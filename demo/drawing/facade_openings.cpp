#include "demo/drawing/facade.h"

#include <QLinearGradient>

// Windows, doors, porches: what stands in or before a wall.
namespace vasclip::demo {

void Facade::Window(const QRectF& frame, int across, int down, bool shutters)
{
    QPainter& p = m_painter;
    Dice& dice = m_scene.dice;
    if (shutters) {
        const double wide = frame.width() * 0.3;
        for (const double x : {frame.left() - wide - 8, frame.right() + 8}) {
            const QRectF shutter(x, frame.top() - 4, wide, frame.height() + 8);
            p.setPen(QPen(Darker(m_palette.shutter, 0.4), 1));
            p.setBrush(m_palette.shutter);
            p.drawRect(shutter);
            p.setRenderHint(QPainter::Antialiasing, false);
            p.setPen(QPen(Faded(Darker(m_palette.shutter, 0.6), 0.7), 1));
            for (double y = shutter.top() + 8; y < shutter.bottom() - 5; y += 7)
                p.drawLine(QPointF(shutter.left() + 4, y), QPointF(shutter.right() - 4, y));
            p.setRenderHint(QPainter::Antialiasing, true);
        }
    }
    p.setPen(QPen(Faded(Darker(m_palette.trim, 0.5), 0.6), 1));
    p.setBrush(m_palette.trim);
    p.drawRect(frame.adjusted(-8, -9, 8, 8));
    p.setBrush(Darker(m_palette.trim, 0.14));
    p.drawRect(QRectF(frame.left() - 12, frame.bottom() + 6, frame.width() + 24, 9));

    // glass: a dim room, curtains, then the sky in it
    const bool lamp = m_scene.air.warmth > 0.5 && dice.Chance(0.5);
    QLinearGradient glass(frame.topLeft(), frame.bottomRight());
    const QColor room = lamp ? QColor(252, 206, 120) : QColor(46, 56, 70);
    glass.setColorAt(0, Mix(room, m_scene.air.skyTop, lamp ? 0.1 : 0.5));
    glass.setColorAt(0.45, Mix(room, m_scene.air.skyLow, lamp ? 0.1 : 0.4));
    glass.setColorAt(1, room);
    p.setPen(Qt::NoPen);
    p.setBrush(glass);
    p.drawRect(frame);
    if (dice.Chance(0.6)) {
        const QColor cloth = Faded(dice.Chance(0.5) ? QColor(240, 234, 222) : QColor(206, 196, 190), 0.62);
        const double wide = frame.width() * dice.Real(0.14, 0.26);
        p.fillRect(QRectF(frame.left(), frame.top(), wide, frame.height()), cloth);
        p.fillRect(QRectF(frame.right() - wide, frame.top(), wide, frame.height()), cloth);
    } else if (dice.Chance(0.5)) {
        p.fillRect(QRectF(frame.left(), frame.top(), frame.width(), frame.height() * dice.Real(0.2, 0.5)),
                   Faded(QColor(236, 232, 224), 0.6));
    }
    p.save();
    p.setClipRect(frame, Qt::IntersectClip);
    p.setBrush(Faded(QColor(255, 255, 255), 0.2));
    const double slant = frame.height() * 0.6;
    const double from = frame.left() + frame.width() * dice.Real(-0.1, 0.4);
    p.drawPolygon(QPolygonF{QPointF(from, frame.top()), QPointF(from + frame.width() * 0.24, frame.top()),
                            QPointF(from + frame.width() * 0.24 - slant, frame.bottom()),
                            QPointF(from - slant, frame.bottom())});
    p.restore();
    p.fillRect(QRectF(frame.left(), frame.top(), frame.width(), 7), Faded(m_scene.air.shadow, 0.45));

    p.setPen(QPen(m_palette.trim, 3.4));
    for (int i = 1; i < across; ++i) {
        const double x = frame.left() + frame.width() * i / across;
        p.drawLine(QPointF(x, frame.top()), QPointF(x, frame.bottom()));
    }
    for (int i = 1; i < down; ++i) {
        const double y = frame.top() + frame.height() * i / down;
        p.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
    }
}

void Facade::BayWindow(const QRectF& frame)
{
    QPainter& p = m_painter;
    const QRectF box = frame.adjusted(-16, -6, 16, 34);
    p.setPen(QPen(Faded(Darker(m_palette.trim, 0.5), 0.7), 1));
    p.setBrush(Darker(m_palette.trim, 0.06));
    p.drawRect(box);
    p.setBrush(m_palette.roof);
    p.drawPolygon(QPolygonF{QPointF(box.left() - 10, box.top()), QPointF(box.left() + 16, box.top() - 34),
                            QPointF(box.right() - 16, box.top() - 34), QPointF(box.right() + 10, box.top())});
    const double third = frame.width() / 4;
    Window(QRectF(frame.left(), frame.top() + 8, third - 16, frame.height() - 12), 1, 2);
    Window(QRectF(frame.left() + third, frame.top() + 8, third * 2, frame.height() - 12), 2, 1);
    Window(QRectF(frame.right() - third + 16, frame.top() + 8, third - 16, frame.height() - 12), 1, 2);
    p.fillRect(QRectF(box.left(), box.bottom(), box.width(), 12), Faded(m_scene.air.shadow, 0.3));
}

void Facade::Door(const QRectF& frame, bool sidelight)
{
    QPainter& p = m_painter;
    p.setPen(QPen(Faded(Darker(m_palette.trim, 0.5), 0.6), 1));
    p.setBrush(m_palette.trim);
    p.drawRect(frame.adjusted(-10, -12, 10, 0));
    QLinearGradient leaf(frame.left(), 0, frame.right(), 0);
    leaf.setColorAt(0, Lighter(m_palette.door, 0.1));
    leaf.setColorAt(1, Darker(m_palette.door, 0.18));
    p.setPen(QPen(Darker(m_palette.door, 0.5), 1));
    p.setBrush(leaf);
    p.drawRect(frame);
    const double w = frame.width();
    const double h = frame.height();
    for (int row = 0; row < 3; ++row) {
        for (int side = 0; side < 2; ++side) {
            const QRectF panel(frame.left() + w * (0.12 + side * 0.42), frame.top() + h * (0.07 + row * 0.31),
                               w * 0.34, h * 0.24);
            if (row == 0) {
                p.setBrush(Mix(QColor(60, 76, 96), m_scene.air.skyLow, 0.5));
            } else {
                p.setBrush(Darker(m_palette.door, 0.14));
            }
            p.drawRect(panel);
        }
    }
    p.setPen(Qt::NoPen);
    p.setBrush(QColor(226, 196, 110));
    p.drawEllipse(QPointF(frame.right() - w * 0.1, frame.top() + h * 0.55), 4.5, 4.5);
    if (sidelight)
        Window(QRectF(frame.right() + 20, frame.top() + 6, w * 0.3, h - 30), 1, 3);
    p.setBrush(QColor(40, 40, 44));
    p.drawRect(QRectF(frame.left() - 30, frame.top() + h * 0.18, 12, 26));
    p.setBrush(m_scene.air.warmth > 0.5 ? QColor(255, 226, 150) : QColor(240, 236, 220));
    p.drawRect(QRectF(frame.left() - 28, frame.top() + h * 0.18 + 5, 8, 15));
    p.setBrush(QColor(120, 84, 60)); // the mat
    p.drawRect(QRectF(frame.left() + 3, frame.bottom() - 3, w - 6, 5));
}

void Facade::SlidingDoor(const QRectF& frame)
{
    Window(frame, 2, 1);
    m_painter.setPen(QPen(Darker(m_palette.trim, 0.3), 2));
    m_painter.drawLine(QPointF(frame.center().x() + 8, frame.center().y() - 12),
                       QPointF(frame.center().x() + 8, frame.center().y() + 14));
}

void Facade::GarageDoor(const QRectF& frame)
{
    QPainter& p = m_painter;
    p.setPen(QPen(Faded(Darker(m_palette.trim, 0.5), 0.6), 1));
    p.setBrush(m_palette.trim);
    p.drawRect(frame.adjusted(-10, -12, 10, 0));
    const QColor leaf = Mix(m_palette.trim, m_palette.wall, 0.12);
    QLinearGradient fill(0, frame.top(), 0, frame.bottom());
    fill.setColorAt(0, Darker(leaf, 0.16));
    fill.setColorAt(0.3, leaf);
    fill.setColorAt(1, Darker(leaf, 0.06));
    p.setBrush(fill);
    p.drawRect(frame);
    const int rows = 4;
    const int columns = frame.width() > 200 ? 6 : 4;
    for (int row = 0; row < rows; ++row) {
        const double y = frame.top() + frame.height() * row / rows;
        p.setPen(QPen(Faded(Darker(leaf, 0.6), 0.55), 2));
        p.drawLine(QPointF(frame.left(), y), QPointF(frame.right(), y));
        for (int column = 0; column < columns; ++column) {
            const QRectF panel(frame.left() + frame.width() * (column + 0.14) / columns, y + 9,
                               frame.width() * 0.72 / columns, frame.height() / rows - 17);
            if (row == 0) {
                p.setPen(QPen(Faded(Darker(leaf, 0.5), 0.7), 1));
                p.setBrush(Mix(QColor(60, 72, 88), m_scene.air.skyLow, 0.45));
            } else {
                p.setPen(QPen(Faded(Darker(leaf, 0.5), 0.4), 1));
                p.setBrush(Darker(leaf, 0.07));
            }
            p.drawRect(panel);
        }
    }
    p.fillRect(QRectF(frame.left(), frame.top(), frame.width(), 14), Faded(m_scene.air.shadow, 0.4));
}

void Facade::Steps(double left, double right, double top, double ground)
{
    QPainter& p = m_painter;
    const int count = qMax(1, static_cast<int>((ground - top) / 13));
    const double rise = (ground - top) / count;
    p.setPen(QPen(Faded(QColor(70, 66, 62), 0.6), 1));
    for (int i = 0; i < count; ++i) {
        const double out = i * 7;
        const QRectF step(left - out, top + i * rise, right - left + out * 2, rise);
        p.setBrush(Mix(QColor(206, 200, 192), QColor(166, 160, 152), static_cast<double>(i % 2)));
        p.drawRect(step);
        p.fillRect(QRectF(step.left(), step.top(), step.width(), 4), QColor(222, 217, 208));
    }
}

void Facade::Porch(double left, double right, double roof, double floor, double ground, int posts)
{
    QPainter& p = m_painter;
    // the wall behind lies in the shade
    QLinearGradient shade(0, roof, 0, floor);
    shade.setColorAt(0, Faded(m_scene.air.shadow, 0.5));
    shade.setColorAt(1, Faded(m_scene.air.shadow, 0.14));
    p.fillRect(QRectF(left, roof, right - left, floor - roof), shade);

    p.setPen(QPen(Faded(Darker(m_palette.base, 0.5), 0.7), 1));
    p.setBrush(Darker(m_palette.base, 0.12));
    p.drawRect(QRectF(left - 6, floor, right - left + 12, ground - floor));
    p.setBrush(Lighter(m_palette.base, 0.4));
    p.drawRect(QRectF(left - 14, floor - 5, right - left + 28, 11));

    const double span = (right - left - 18) / (posts - 1);
    const int doorway = posts / 2 - (posts % 2 == 0 ? 1 : 0);
    for (int i = 0; i + 1 < posts; ++i) {
        if (i == doorway)
            continue;
        const double from = left + span * i + 16;
        const double to = left + span * (i + 1) + 2;
        p.setPen(QPen(m_palette.trim, 3));
        for (double x = from + 8; x < to; x += 13)
            p.drawLine(QPointF(x, floor - 56), QPointF(x, floor - 6));
        p.setPen(QPen(m_palette.trim, 6));
        p.drawLine(QPointF(from, floor - 58), QPointF(to, floor - 58));
    }
    for (int i = 0; i < posts; ++i) {
        const QRectF post(left + span * i, roof, 18, floor - roof);
        QLinearGradient round(post.left(), 0, post.right(), 0);
        round.setColorAt(m_scene.SunLeft() ? 0 : 1, Lighter(m_palette.trim, 0.5));
        round.setColorAt(m_scene.SunLeft() ? 1 : 0, Darker(m_palette.trim, 0.24));
        p.setPen(QPen(Faded(Darker(m_palette.trim, 0.5), 0.5), 1));
        p.setBrush(round);
        p.drawRect(post);
        p.drawRect(QRectF(post.left() - 5, roof, 28, 10));
        p.drawRect(QRectF(post.left() - 5, floor - 14, 28, 12));
    }
}

void Facade::Balcony(const QRectF& opening)
{
    QPainter& p = m_painter;
    p.fillRect(opening, Faded(m_scene.air.shadow, 0.42));
    SlidingDoor(QRectF(opening.left() + opening.width() * 0.18, opening.top() + 14, opening.width() * 0.64,
                       opening.height() - 18));
    if (m_scene.dice.Chance(0.5)) { // somebody lives here
        static const QList<QColor> cloths{QColor(206, 86, 66), QColor(70, 122, 164), QColor(222, 180, 70)};
        p.setPen(Qt::NoPen);
        p.setBrush(m_scene.dice.Pick(cloths));
        p.drawRoundedRect(QRectF(opening.left() + opening.width() * 0.1, opening.bottom() - 42, 34, 40), 6,
                          6);
    }
    p.setPen(QPen(Darker(m_palette.trim, 0.5), 1));
    p.setBrush(Darker(m_palette.trim, 0.08));
    p.drawRect(QRectF(opening.left() - 8, opening.bottom() - 2, opening.width() + 16, 12));
    p.setPen(QPen(QColor(58, 60, 66), 2));
    for (double x = opening.left(); x <= opening.right(); x += 9)
        p.drawLine(QPointF(x, opening.bottom() - 46), QPointF(x, opening.bottom()));
    p.setPen(QPen(QColor(48, 50, 56), 5));
    p.drawLine(QPointF(opening.left() - 4, opening.bottom() - 47),
               QPointF(opening.right() + 4, opening.bottom() - 47));
}

void Facade::Deck(double left, double right, double floor, double ground)
{
    QPainter& p = m_painter;
    const QColor wood(164, 118, 78);
    p.fillRect(QRectF(left, floor, right - left, ground - floor + 4), Faded(m_scene.air.shadow, 0.6));
    for (double x = left + 4; x < right; x += 12)
        p.fillRect(QRectF(x, floor, 8, ground - floor + 2),
                   Mix(wood, QColor(120, 88, 60), m_scene.dice.Real()));
    p.setPen(QPen(Darker(wood, 0.4), 1));
    p.setBrush(Lighter(wood, 0.16));
    p.drawRect(QRectF(left - 8, floor - 8, right - left + 16, 14));
    p.setPen(QPen(wood, 4));
    for (double x = left; x <= right; x += 15)
        p.drawLine(QPointF(x, floor - 66), QPointF(x, floor - 8));
    p.setPen(QPen(Lighter(wood, 0.16), 8));
    p.drawLine(QPointF(left - 6, floor - 68), QPointF(right + 6, floor - 68));
}

} // namespace vasclip::demo
