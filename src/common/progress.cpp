#include "common/progress.h"

namespace vasclip::common {

Progress::Progress(StatusDesk& status, forms::EventPump& pump, int steps)
    : m_status(status)
    , m_pump(pump)
    , m_wish(QObject::connect(&status.cmdStop, &forms::Control::Clicked, [this] { m_stopped = true; }))
{
    InitGauge(status.gauProgress, steps);
    status.cmdStop.SetVisible(true);
}

Progress::~Progress()
{
    QObject::disconnect(m_wish);
    m_status.cmdStop.SetVisible(false);
    InitGauge(m_status.gauProgress, 1);
    m_status.gauProgress.SetCaption(QString());
}

bool Progress::Step(const QString& caption)
{
    SetGaugeValue(m_status.gauProgress, m_done++);
    m_status.gauProgress.SetCaption(caption);
    m_pump.DoEvents();
    return !m_stopped;
}

} // namespace vasclip::common
