#pragma once

#include "forms/controls.h"
#include "forms/ports.h"

namespace vasclip::shell {

/// The start-up window: one status line a step.
struct frm_Splash
{
    explicit frm_Splash(const forms::Ports& ports);

    /// Appends the time, " - " and the text, selects the new line and moves the gauge on.
    void ShowSplashStatus(const QString& text);
    void ProgressGauge(); ///< adds 2

    forms::ControlSet controls;
    forms::ListBox lstSplash;
    forms::Gauge gauProgress; ///< 0 to 100
    forms::Label lblCompany, lblVersion;
    forms::PictureBox imgLogo;

private:
    forms::Ports m_ports;
};

} // namespace vasclip::shell
