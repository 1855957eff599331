#pragma once

#include "forms/system_ports.h"

#include <QObject>
#include <QPointer>

#include <functional>

class QWindow;

namespace vasclip::windows {

/// The queue of a program with windows.
class WindowPump : public QObject, public forms::QtEventPump
{
    Q_OBJECT
public:
    /// @param stop  what Esc does within a held turn
    void SetStop(std::function<void()> stop) { m_stop = std::move(stop); }

    void DoEvents() override;
    /// While it is held, a turn paints, and takes Cancel alone of what the user does; the rest of it is dropped,
    /// but for a wish to close the window, which comes back at the end. Holds nest.
    void Hold(bool on);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] bool ForCancel(QObject* watched) const;

    std::function<void()> m_stop;
    QPointer<QWindow> m_closeWanted;
    int m_holds = 0;
};

} // namespace vasclip::windows
