#include "windows/window_desktop.h"

#include <QApplication>

namespace vasclip::windows {

void WindowDesktop::AppActivate()
{
    if (m_window == nullptr || !m_window->isVisible())
        return;
    if (m_window->isMinimized())
        m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    if (QGuiApplication::platformName() == QLatin1StringView("offscreen"))
        return; // there is no stack of windows to come up in
    m_window->raise();
    m_window->activateWindow();
}

void WindowDesktop::SetHourglass(bool on)
{
    if (on) {
        if (m_hourglasses++ == 0)
            QApplication::setOverrideCursor(Qt::WaitCursor);
    } else if (m_hourglasses > 0 && --m_hourglasses == 0) {
        QApplication::restoreOverrideCursor();
    }
}

} // namespace vasclip::windows
