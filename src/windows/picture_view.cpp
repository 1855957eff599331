#include "windows/picture_view.h"

#include "windows/icons.h"
#include "windows/theme.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

/// As large as an icon; a picture of this size and no alpha has a ground that stands for none.
constexpr int kMarkSide = 64;

/// A mark of the program directory has one colour around what it shows, since its kind of file knows no
/// transparency. What hangs together with its first pixel is taken away.
QImage WithoutGround(const QImage& picture)
{
    if (picture.hasAlphaChannel() || picture.width() > kMarkSide || picture.height() > kMarkSide)
        return picture;
    QImage mark = picture.convertToFormat(QImage::Format_ARGB32);
    const QRgb ground = mark.pixel(0, 0);
    QList<QPoint> edge{{0, 0},
                       {mark.width() - 1, 0},
                       {0, mark.height() - 1},
                       {mark.width() - 1, mark.height() - 1}};
    while (!edge.isEmpty()) {
        const QPoint at = edge.takeLast();
        if (!mark.valid(at) || mark.pixel(at) != ground)
            continue;
        mark.setPixel(at, 0);
        edge << at + QPoint(1, 0) << at - QPoint(1, 0) << at + QPoint(0, 1) << at - QPoint(0, 1);
    }
    return mark;
}

} // namespace

PictureView::PictureView(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
}

void PictureView::SetPicture(const QImage& picture)
{
    m_picture = picture;
    m_scaled = QPixmap();
    update();
}

void PictureView::SetShown(bool shown)
{
    if (m_shown == shown)
        return;
    m_shown = shown;
    if (m_vanishes)
        setVisible(shown);
    update();
}

void PictureView::SetVanishes(bool vanishes)
{
    m_vanishes = vanishes;
    setVisible(!vanishes || m_shown);
}

void PictureView::SetWithout(forms::NoPicture reason)
{
    if (m_without == reason)
        return;
    m_without = reason;
    update();
}

void PictureView::SetEmptyText(const QString& text)
{
    m_emptyText = text;
    update();
}

void PictureView::SetEmptyIcon(const QString& name)
{
    m_emptyIcon = name;
    update();
}

QSize PictureView::sizeHint() const
{
    return m_lamp ? QSize(32, 32) : QSize(200, 150);
}

QSize PictureView::minimumSizeHint() const
{
    return m_lamp ? QSize(28, 28) : QSize(96, 72);
}

void PictureView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const ThemeColours& colours = Theme::Colours();
    const QRectF ground = QRectF(rect()).adjusted(1, 1, -1, -1);
    const qreal radius = m_lamp ? 6 : 8;
    QPainterPath shape;
    shape.addRoundedRect(ground, radius, radius);
    const bool drop = property("dropHover").toBool();
    const bool wanted = property("dropWanted").toBool();
    const bool empty = m_picture.isNull() || !m_shown;

    if (!m_bare)
        painter.fillPath(shape, drop ? colours.accentSoft : empty || m_lamp ? colours.well : colours.photoGround);
    if (empty) {
        PaintEmpty(painter, ground);
    } else {
        const qreal margin = m_lamp ? 5 : 0;
        const QRectF room = ground.adjusted(margin, margin, -margin, -margin);
        const QSizeF fitted = QSizeF(m_picture.size()).scaled(room.size(), Qt::KeepAspectRatio);
        const QSize pixels = (fitted * devicePixelRatioF()).toSize().expandedTo(QSize(1, 1));
        if (m_scaled.size() != pixels)
            m_scaled = QPixmap::fromImage((m_lamp ? WithoutGround(m_picture) : m_picture)
                                              .scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
        QRectF target(QPointF(), fitted);
        target.moveCenter(room.center());
        painter.save();
        if (!m_bare)
            painter.setClipPath(shape);
        painter.setOpacity(isEnabled() ? 1.0 : 0.45);
        painter.drawPixmap(target, m_scaled, QRectF(m_scaled.rect()));
        painter.restore();
    }

    if (m_bare)
        return;
    QPen pen(colours.border, 1);
    if (drop || hasFocus())
        pen = QPen(colours.accent, 2);
    else if (wanted)
        pen = QPen(colours.accent, 1.5, Qt::DashLine);
    else if (underMouse() && isEnabled())
        pen = QPen(colours.borderStrong, 1);
    else if (empty && !m_lamp)
        pen = QPen(colours.border, 1, Qt::DashLine);
    painter.strokePath(shape, pen);
}

void PictureView::PaintEmpty(QPainter& painter, const QRectF& ground)
{
    const ThemeColours& colours = Theme::Colours();
    const bool broken = m_without == forms::NoPicture::Broken;
    const bool waiting = m_without == forms::NoPicture::Waiting;
    const QString text = broken ? tr("Can't be read") : waiting ? QString() : m_emptyText;
    const bool words = !m_lamp && !text.isEmpty() && ground.height() > 64;
    const int side = m_lamp ? 16 : ground.height() > 120 ? 32 : 24;
    QRectF icon(0, 0, side, side);
    icon.moveCenter(ground.center() - QPointF(0, words ? 10 : 0));
    if (broken)
        PaintIcon(painter, u"photo-broken"_s, icon, colours.red);
    else if (!m_emptyIcon.isEmpty() && !(waiting && m_lamp))
        PaintIcon(painter, m_emptyIcon, icon, isEnabled() && !waiting ? colours.muted : colours.faint);
    if (!words)
        return;
    painter.setPen(isEnabled() ? colours.muted : colours.faint);
    QFont small = font();
    small.setPointSizeF(small.pointSizeF() * 0.9);
    painter.setFont(small);
    const QRectF line(ground.left() + 6, icon.bottom() + 4, ground.width() - 12, 20);
    painter.drawText(
        line, Qt::AlignHCenter | Qt::AlignTop,
        painter.fontMetrics().elidedText(text, Qt::ElideRight, static_cast<int>(line.width())));
}

void PictureView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    m_pressed = true;
    m_pressedAt = event->position().toPoint();
    Q_EMIT Pressed();
}

void PictureView::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint way = event->position().toPoint() - m_pressedAt;
    if (!m_pressed || way.manhattanLength() < QApplication::startDragDistance())
        return;
    m_pressed = false;
    Q_EMIT DragWanted();
}

void PictureView::mouseReleaseEvent(QMouseEvent* event)
{
    const bool inside = rect().contains(event->position().toPoint());
    if (std::exchange(m_pressed, false) && inside)
        Q_EMIT Clicked();
}

void PictureView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        Q_EMIT DoubleClicked();
}

void PictureView::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
        Q_EMIT Clicked();
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Q_EMIT DoubleClicked();
        break;
    default:
        QWidget::keyPressEvent(event);
    }
}

void PictureView::enterEvent(QEnterEvent*)
{
    update();
    Q_EMIT Hovered();
}

void PictureView::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    if (event->reason() != Qt::TabFocusReason && event->reason() != Qt::BacktabFocusReason &&
        event->reason() != Qt::ShortcutFocusReason)
        return;
    Q_EMIT Pressed();
    Q_EMIT Hovered();
}

void PictureView::leaveEvent(QEvent*)
{
    update();
}

bool PictureView::event(QEvent* event)
{
    if (event->type() == QEvent::DynamicPropertyChange)
        update();
    return QWidget::event(event);
}

} // namespace vasclip::windows
