#pragma once

#include "forms/system_ports.h"

#include <QObject>
#include <QPointer>

#include <functional>
#include <memory>
#include <vector>

class QKeyEvent;
class QWidget;
class QWindow;

namespace vasclip::windows {

/// The queue of a program with windows.
class WindowPump : public QObject, public forms::QtEventPump
{
    Q_OBJECT
public:
    WindowPump();
    ~WindowPump() override;
    /// @param stop  what Esc does within a held turn
    void SetStop(std::function<void()> stop) { m_stop = std::move(stop); }

    void DoEvents() override;
    /// While it is held, a turn paints, and takes Cancel alone of what the user does; the rest of it is dropped,
    /// but for what is typed into a field and a wish to close the window, which come back at the end. A box that
    /// comes up meanwhile can be answered. Holds nest.
    void Hold(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool ForCancel(QObject* watched) const;
    void KeepTyped(QWindow* window, const QKeyEvent& key);

    struct Typed
    {
        QPointer<QWindow> window;
        std::unique_ptr<QKeyEvent> key;
    };

    std::function<void()> m_stop;
    QPointer<QWindow> m_closeWanted;
    int m_holds = 0;
    bool m_turning = false;
    QPointer<QWidget> m_modalBefore; ///< that was up when the turn began
    std::vector<Typed> m_typed;
};

} // namespace vasclip::windows
