#pragma once

#include "forms/ports.h"

#include <QPointer>
#include <QWidget>

namespace vasclip::windows {

/// What rules ask of the desktop, on real windows.
class WindowDesktop : public forms::WindowPort
{
public:
    void SetMainWindow(QWidget* window) { m_window = window; }
    void AppActivate() override;
    /// Nested: the pointer is plain again when every caller has taken it off.
    void SetHourglass(bool on) override;

private:
    QPointer<QWidget> m_window;
    int m_hourglasses = 0;
};

} // namespace vasclip::windows
