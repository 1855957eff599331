#pragma once

#include "forms/ports.h"

#include <random>

namespace vasclip::forms {

/// The ports that need no widget. The prompter and the window port belong to whoever shows something.

/// Turns the queue of the application object; does nothing without one.
class QtEventPump : public EventPump
{
public:
    void DoEvents() override;
};

/// The machine's clock. Waits are measured by a clock that neither midnight nor a change of the time moves.
class SystemClock : public Clock
{
public:
    [[nodiscard]] QDateTime Now() const override;
    void Wait(double seconds) override;
};

/// Numbers of single precision (24 bits), seeded by the system.
class SystemRandom : public RandomSource
{
public:
    SystemRandom();
    [[nodiscard]] double Rnd() override;

private:
    std::mt19937 m_engine;
};

} // namespace vasclip::forms
