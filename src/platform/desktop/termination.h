#pragma once

#include <functional>
#include <memory>

namespace vasclip::desktop {

/// The system's wish that this process ends (SIGTERM, SIGINT, SIGHUP), told in the event loop as long as the object
/// lives, so that the program can close in order. Where the system has no such signal, nothing is ever told. One
/// object a process.
class Termination
{
public:
    explicit Termination(std::function<void()> wanted);
    ~Termination();
    Termination(const Termination&) = delete;
    Termination& operator=(const Termination&) = delete;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace vasclip::desktop
