#include "shell/tracer.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void Tracer::TraceStep(const QString& text, const QString& detail)
{
    ++m_steps;
    if (m_switches.pumpAlways) {
        m_allowPump = true;
        m_ports.pump.DoEvents();
    }
    if (!m_switches.trace)
        return;
    const QString upper = detail.toUpper();
    if (m_switches.silent && (upper.contains(u".JPG"_s) || upper.contains(u".BMP"_s)))
        return;
    m_ports.prompter.Box({}, QString::number(m_steps) + u":"_s + text + u","_s + detail);
}

void Tracer::Pump() const
{
    if (m_allowPump)
        m_ports.pump.DoEvents();
}

} // namespace vasclip::shell
