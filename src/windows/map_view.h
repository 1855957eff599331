#pragma once

#include "platform/street/types.h"

#include <QPointF>
#include <QWidget>

namespace vasclip::map {
class MapPort;
}

namespace vasclip::windows {

class EventGuard;

/// The drawn map: shows the engine's scene, moves it by pointer, wheel, touch pad and keys, and tells what is done on
/// its points. It never waits for drawing.
///
/// Keys: the arrows move the map, plus and minus change its size, Page Up and Page Down go from point to point; the
/// rest is asked of the rules.
class MapView : public QWidget
{
    Q_OBJECT
public:
    /// @param port, guard  outlive the view
    MapView(map::MapPort& port, EventGuard& guard, QWidget* parent = nullptr);
    ~MapView() override;

    [[nodiscard]] QSize sizeHint() const override { return {640, 480}; }
    [[nodiscard]] QSize minimumSizeHint() const override { return {240, 180}; }

Q_SIGNALS:
    void DragWanted(); ///< a point is pulled out of the map

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    enum class Gesture { None, Press, Pan, MovePoint };

    void FollowPalette();
    void MoveGrabbed(QPointF pointer);
    void PullOut();
    void GiveUpGesture();
    /// Is the point that is held still where it was pulled to? Else others have put it somewhere since.
    [[nodiscard]] bool Holds() const;
    void NextPoint(int step);
    [[nodiscard]] bool OwnKey(const QKeyEvent& event);

    map::MapPort& m_port;
    EventGuard& m_guard;
    Gesture m_gesture = Gesture::None;
    qint32 m_grabbed = 0;      ///< the point under the press, 0 for the ground
    street::Place m_grabbedAt; ///< where it stood
    street::Place m_pulledTo;  ///< where it was pulled to last
    QPointF m_hold;            ///< from the pointer to the point's place
    QPointF m_pressed, m_last;
    bool m_whole = false; ///< nothing of the view is still being drawn
};

} // namespace vasclip::windows
