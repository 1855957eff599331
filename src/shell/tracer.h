#pragma once

#include "forms/ports.h"
#include "shell/start_up.h"

namespace vasclip::shell {

/// Counts the steps of the start and shows a box for each when "/D" asks for it.
class Tracer
{
public:
    Tracer(const Switches& switches, const forms::Ports& ports)
        : m_switches(switches)
        , m_ports(ports)
        , m_allowPump(!switches.silent)
    {}

    /// Called around every step with its routine's name.
    void TraceStep(const QString& text, const QString& detail = {});
    void Pump() const; ///< a turn of the queue, unless "/S" forbids it
    [[nodiscard]] qint16 Steps() const { return m_steps; }

private:
    Switches m_switches;
    forms::Ports m_ports;
    bool m_allowPump;
    qint16 m_steps = 0;
};

} // namespace vasclip::shell
