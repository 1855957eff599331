#pragma once

#include <chrono>
#include <functional>

namespace vasclip::engine {

/// How long a call waits for others (another user's lock, a server's answer), and what is done meanwhile.
struct CallWait
{
    std::chrono::milliseconds deadline{5000};
    /// Called again and again while a call waits, with the time that it has waited; false gives the wait up. It may
    /// paint and look for a wish to cancel; a call of the engine from within is refused. It throws nothing.
    std::function<bool(std::chrono::milliseconds waited)> hook;
};

/// The waiting of all calls of one engine, shared by its back ends.
class Waits
{
public:
    [[nodiscard]] const CallWait& Now() const { return m_wait; }
    void Set(CallWait wait) { m_wait = std::move(wait); }

    /// What a back end asks between two looks.
    /// @return false when the deadline is over or the hook has given up; GivenUp tells which
    [[nodiscard]] bool GoOn(std::chrono::milliseconds waited);
    /// Was the last wait given up by the hook? Asking forgets it.
    [[nodiscard]] bool TakeGivenUp();
    /// What a back end asks when a call begins. @throws 3001 from within the hook: the call that waits is not
    /// finished, and no other may come between
    void NeedFree() const;

private:
    CallWait m_wait;
    bool m_within = false, m_givenUp = false;
};

class Engine;

/// Another deadline or hook for the calls of a scope.
class WaitScope
{
public:
    WaitScope(Engine& engine, CallWait wait);
    ~WaitScope();
    WaitScope(const WaitScope&) = delete;
    WaitScope& operator=(const WaitScope&) = delete;

private:
    Waits& m_waits;
    CallWait m_before;
};

} // namespace vasclip::engine
