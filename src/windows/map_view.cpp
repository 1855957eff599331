#include "windows/map_view.h"

#include "forms/controls.h"
#include "map/map_port.h"
#include "windows/guard.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPainter>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace vasclip::windows {

namespace {

constexpr double kZoomOfANotch = 1.25;
constexpr double kPanPixels = 60;

/// The key's number as the rules know it; 0 for one that means nothing to them.
int KeyCode(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_CapsLock:
        return 20;
    default:
        return event.key() >= Qt::Key_A && event.key() <= Qt::Key_Z ? event.key() : 0;
    }
}

int ShiftOf(const QKeyEvent& event)
{
    const auto mask = [&](Qt::KeyboardModifier modifier, int bit) {
        return event.modifiers().testFlag(modifier) ? bit : 0;
    };
    return mask(Qt::ShiftModifier, forms::kShiftMask) | mask(Qt::ControlModifier, forms::kCtrlMask) |
           mask(Qt::AltModifier, forms::kAltMask);
}

} // namespace

MapView::MapView(map::MapPort& port, EventGuard& guard, QWidget* parent)
    : QWidget(parent)
    , m_port(port)
    , m_guard(guard)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAccessibleName(tr("Street map"));
    setAccessibleDescription(tr("Arrows move it, plus and minus change its size, Page Down goes to the next point"));
    m_port.Engine().OnChanged([this] { update(); });
    FollowPalette();
}

MapView::~MapView()
{
    m_port.Engine().OnChanged({});
}

void MapView::FollowPalette()
{
    m_port.Engine().SetDark(palette().color(QPalette::Window).lightness() < 128);
}

bool MapView::event(QEvent* event)
{
    if (event->type() == QEvent::WindowBlocked) // by a box, which gets the release
        GiveUpGesture();
    if (event->type() == QEvent::ShortcutOverride) {
        if (m_gesture == Gesture::MovePoint) { // a point that is held is nowhere yet: nothing is done with it
            event->accept();
            return true;
        }
        // What the map's own keys mean here comes before the same keys of the window.
        const auto& key = static_cast<const QKeyEvent&>(*event);
        const bool own = (key.modifiers() == Qt::ControlModifier && (key.key() == Qt::Key_A || key.key() == Qt::Key_R ||
                                                                     key.key() == Qt::Key_G)) ||
                         (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_C);
        if (own) {
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::NativeGesture) {
        const auto& gesture = static_cast<const QNativeGestureEvent&>(*event);
        if (gesture.gestureType() == Qt::ZoomNativeGesture) {
            m_port.Engine().ZoomAt(gesture.position(), 1 + gesture.value());
            return true;
        }
    }
    return QWidget::event(event);
}

void MapView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    const bool whole = m_port.Engine().Paint(painter);
    if (whole && !std::exchange(m_whole, whole)) // not while it is painted
        QMetaObject::invokeMethod(this, [this] { m_guard.Run([this] { m_port.Drawn(); }); }, Qt::QueuedConnection);
    m_whole = whole;
    if (hasFocus()) {
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
}

void MapView::resizeEvent(QResizeEvent*)
{
    m_port.Engine().SetSize(size(), devicePixelRatioF());
}

void MapView::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange)
        FollowPalette();
    QWidget::changeEvent(event);
}

void MapView::hideEvent(QHideEvent* event)
{
    GiveUpGesture();
    QWidget::hideEvent(event);
}

void MapView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        QWidget::mousePressEvent(event);
        return;
    }
    GiveUpGesture(); // whose release went elsewhere
    street::StreetMap& map = m_port.Engine();
    m_gesture = Gesture::Press;
    m_pressed = m_last = event->position();
    m_grabbed = map.PointAt(m_pressed);
    const auto point = map.Points().find(m_grabbed);
    if (point != map.Points().end()) {
        m_grabbedAt = m_pulledTo = point->second.place;
        m_hold = map.PixelOf(m_grabbedAt) - m_pressed;
    }
}

void MapView::mouseMoveEvent(QMouseEvent* event)
{
    const QPointF pointer = event->position();
    if (m_gesture == Gesture::Press &&
        (pointer - m_pressed).manhattanLength() >= QApplication::startDragDistance())
        m_gesture = m_grabbed > 0 ? Gesture::MovePoint : Gesture::Pan;
    if (m_gesture == Gesture::Pan)
        m_port.Engine().PanBy(pointer - m_last);
    else if (m_gesture == Gesture::MovePoint && rect().contains(pointer.toPoint()))
        MoveGrabbed(pointer);
    else if (m_gesture == Gesture::MovePoint)
        PullOut();
    m_last = pointer;
}

void MapView::MoveGrabbed(QPointF pointer)
{
    if (!Holds()) {
        m_gesture = Gesture::None;
        return;
    }
    street::StreetMap& map = m_port.Engine();
    m_pulledTo = map.PlaceAt(pointer + m_hold);
    map.MovePoint(m_grabbed, m_pulledTo, false);
}

bool MapView::Holds() const
{
    const auto& points = m_port.Engine().Points();
    const auto point = points.find(m_grabbed);
    return point != points.end() && point->second.place == m_pulledTo;
}

/// The point goes back, and its address is carried to wherever it is dropped.
void MapView::PullOut()
{
    const bool holds = Holds();
    GiveUpGesture();
    if (!holds)
        return;
    const qint32 id = m_grabbed;
    bool chosen = false;
    m_guard.Run([&] { chosen = m_port.PointClicked(id); });
    if (chosen) // else the address on show is another point's
        Q_EMIT DragWanted();
}

void MapView::GiveUpGesture()
{
    if (std::exchange(m_gesture, Gesture::None) == Gesture::MovePoint && Holds())
        m_port.Engine().MovePoint(m_grabbed, m_grabbedAt, true);
}

void MapView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const Gesture gesture = std::exchange(m_gesture, Gesture::None);
    street::StreetMap& map = m_port.Engine();
    if (gesture == Gesture::MovePoint && Holds()) {
        const street::Place there = map.PlaceAt(event->position() + m_hold);
        // Put back first: what the rule refuses stays where it was.
        map.MovePoint(m_grabbed, m_grabbedAt, true);
        m_guard.Run([&] {
            m_port.PointClicked(m_grabbed);
            m_port.PointDropped(m_grabbed, there);
        });
    } else if (gesture == Gesture::Press && m_grabbed > 0) {
        if (map.Points().contains(m_grabbed))
            m_guard.Run([&] { m_port.PointClicked(m_grabbed); });
    } else if (gesture == Gesture::Press) {
        m_guard.Run([&] { m_port.GroundClicked(map.PlaceAt(event->position())); });
    }
    update();
}

void MapView::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton)
        m_port.Engine().ZoomAt(event->position(), 2);
}

void MapView::wheelEvent(QWheelEvent* event)
{
    const QPointF pixels = event->pixelDelta();
    const bool pad = !pixels.isNull() && event->source() == Qt::MouseEventSynthesizedBySystem;
    if (pad && !event->modifiers().testFlag(Qt::ControlModifier))
        m_port.Engine().PanBy(pixels);
    else
        m_port.Engine().ZoomAt(event->position(), std::pow(kZoomOfANotch, event->angleDelta().y() / 120.0));
    event->accept();
}

void MapView::NextPoint(int step)
{
    const auto& points = m_port.Engine().Points();
    if (points.empty() || m_gesture != Gesture::None)
        return;
    auto at = points.find(m_grabbed);
    if (at == points.end())
        at = step > 0 ? points.begin() : std::prev(points.end());
    else if (step > 0)
        at = std::next(at) == points.end() ? points.begin() : std::next(at);
    else
        at = std::prev(at == points.begin() ? points.end() : at);
    m_grabbed = at->first;
    m_guard.Run([&] { m_port.PointClicked(m_grabbed); });
    update();
}

bool MapView::OwnKey(const QKeyEvent& event)
{
    if ((event.modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier)) != Qt::NoModifier)
        return false;
    street::StreetMap& map = m_port.Engine();
    const QPointF middle(width() / 2.0, height() / 2.0);
    switch (event.key()) {
    case Qt::Key_Left:
        map.PanBy({kPanPixels, 0});
        return true;
    case Qt::Key_Right:
        map.PanBy({-kPanPixels, 0});
        return true;
    case Qt::Key_Up:
        map.PanBy({0, kPanPixels});
        return true;
    case Qt::Key_Down:
        map.PanBy({0, -kPanPixels});
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        map.ZoomAt(middle, kZoomOfANotch);
        return true;
    case Qt::Key_Minus:
        map.ZoomAt(middle, 1 / kZoomOfANotch);
        return true;
    case Qt::Key_PageDown:
        NextPoint(1);
        return true;
    case Qt::Key_PageUp:
        NextPoint(-1);
        return true;
    case Qt::Key_Escape:
        if (m_gesture != Gesture::MovePoint)
            return false;
        GiveUpGesture();
        return true;
    default:
        return false;
    }
}

void MapView::keyPressEvent(QKeyEvent* event)
{
    bool heard = OwnKey(*event) || m_gesture == Gesture::MovePoint;
    if (const int code = KeyCode(*event); !heard && code != 0)
        m_guard.Run([&] { heard = m_port.KeyDown(code, ShiftOf(*event)); });
    if (!heard)
        QWidget::keyPressEvent(event);
}

void MapView::keyReleaseEvent(QKeyEvent* event)
{
    if (const int code = KeyCode(*event); code != 0 && !event->isAutoRepeat())
        m_guard.Run([&] { m_port.KeyUp(code); });
    QWidget::keyReleaseEvent(event);
}

void MapView::focusInEvent(QFocusEvent* event)
{
    update();
    QWidget::focusInEvent(event);
}

void MapView::focusOutEvent(QFocusEvent* event)
{
    // A key that comes up elsewhere is not held here any more.
    m_guard.Run([&] { m_port.KeyUp(20); });
    update();
    QWidget::focusOutEvent(event);
}

} // namespace vasclip::windows
