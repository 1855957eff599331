#pragma once

#include "common/status.h"
#include "forms/ports.h"

namespace vasclip::common {

/// Long work in steps: the gauge shows it with a button that stops it, both gone at the end.
class Progress
{
public:
    Progress(StatusDesk& status, forms::EventPump& pump, int steps);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// Begins the next step: shows its caption and turns the queue. @return false once a stop was wanted
    [[nodiscard]] bool Step(const QString& caption);
    [[nodiscard]] bool Stopped() const { return m_stopped; }

private:
    StatusDesk& m_status;
    forms::EventPump& m_pump;
    QMetaObject::Connection m_wish;
    int m_done = 0;
    bool m_stopped = false;
};

} // namespace vasclip::common
