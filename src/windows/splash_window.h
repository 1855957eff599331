#pragma once

#include "windows/binder.h"

#include <QWidget>

#include <memory>

namespace Ui {
class frm_Splash;
}

namespace vasclip::windows {

/// The window of frm_Splash: what the start is doing, line by line.
class SplashWindow : public QWidget
{
    Q_OBJECT
public:
    SplashWindow(forms::ControlSet& controls, EventGuard& guard, QWidget* parent = nullptr);
    ~SplashWindow() override;
    [[nodiscard]] QStringList Leftovers() const { return m_binder.Leftovers(*this); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<Ui::frm_Splash> m_ui;
    Binder m_binder;
};

} // namespace vasclip::windows
