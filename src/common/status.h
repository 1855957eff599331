#pragma once

#include "forms/controls.h"

namespace vasclip::common {

using namespace Qt::StringLiterals;

/// The status line and the gauge of the main window; rules write them, the window shows them.
struct StatusDesk
{
    explicit StatusDesk(forms::ControlSet& set)
        : lblmsg(set, u"lblmsg"_s)
        , gauProgress(set, u"gauStatus"_s)
        , cmdStop(set, u"cmdStop"_s)
    {
        cmdStop.SetCaption(u"Cancel"_s);
        cmdStop.SetToolTipText(u"Stops after the step at work (Esc)"_s);
        cmdStop.SetVisible(false);
    }
    forms::Label lblmsg;
    forms::Gauge gauProgress; ///< caption is the text of the step at work; hidden when it is empty
    forms::Button cmdStop;    ///< seen while there is work to stop; see progress.h
};

/// Value 0, minimum and maximum; a maximum of 0 is raised so that the bar is valid.
inline void InitGauge(forms::Gauge& gauge, int maximum)
{
    gauge.SetRange(maximum);
}
inline void SetGaugeValue(forms::Gauge& gauge, int value)
{
    gauge.SetValue(value);
}

} // namespace vasclip::common
