#include "forms/system_ports.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QThread>
#include <QTimer>

#include <cmath>

namespace vasclip::forms {

void QtEventPump::DoEvents()
{
    if (QCoreApplication::instance())
        QCoreApplication::processEvents();
}

QDateTime SystemClock::Now() const
{
    return QDateTime::currentDateTime();
}

void SystemClock::Wait(double seconds)
{
    if (!(seconds > 0))
        return;
    const auto milliseconds = static_cast<qint64>(std::ceil(std::min(seconds, 1e6) * 1000));
    if (!QCoreApplication::instance()) {
        QThread::msleep(static_cast<unsigned long>(milliseconds));
        return;
    }
    const QDeadlineTimer end(milliseconds, Qt::PreciseTimer);
    while (!end.hasExpired()) {
        QTimer wakeUp; // else the queue would sleep past the end when nothing else happens
        wakeUp.setSingleShot(true);
        wakeUp.setTimerType(Qt::PreciseTimer);
        wakeUp.start(static_cast<int>(std::min<qint64>(end.remainingTime(), 60'000)));
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

SystemRandom::SystemRandom()
    : m_engine(std::random_device{}())
{}

double SystemRandom::Rnd()
{
    constexpr double kSteps = 1 << 24;
    return static_cast<double>(m_engine() >> 8) / kSteps;
}

} // namespace vasclip::forms
