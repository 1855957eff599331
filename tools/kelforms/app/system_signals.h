#pragma once

#include <functional>
#include <memory>

namespace kelforms {

/// Turns the system's requests to end (SIGTERM, SIGINT, SIGHUP) and to take a picture (SIGUSR1) into calls in
/// the event loop. One at a time.
class SystemSignals
{
public:
    SystemSignals(std::function<void()> onEnd, std::function<void()> onShoot);
    ~SystemSignals();
    SystemSignals(const SystemSignals&) = delete;
    SystemSignals& operator=(const SystemSignals&) = delete;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

/// Ends the process at once, as a crash would: nothing is saved, nothing is taken away.
[[noreturn]] void DieNow();

} // namespace kelforms
