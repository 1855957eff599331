#include "kelforms/app/system_signals.h"

#include <QSocketNotifier>

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <utility>

namespace kelforms {

namespace {

std::array<int, 2> g_pipe{-1, -1};

/// Only what a signal handler may do: one byte into a pipe.
void Note(int signal)
{
    const char byte = signal == SIGUSR1 ? 's' : 'e';
    [[maybe_unused]] const ssize_t written = write(g_pipe[1], &byte, 1);
}

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP, SIGUSR1};

} // namespace

struct SystemSignals::Private
{
    std::function<void()> onEnd, onShoot;
    std::unique_ptr<QSocketNotifier> notifier;
};

SystemSignals::SystemSignals(std::function<void()> onEnd, std::function<void()> onShoot)
    : d(std::make_unique<Private>(Private{std::move(onEnd), std::move(onShoot), nullptr}))
{
    if (pipe2(g_pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    d->notifier = std::make_unique<QSocketNotifier>(g_pipe[0], QSocketNotifier::Read);
    QObject::connect(d->notifier.get(), &QSocketNotifier::activated, d->notifier.get(), [this] {
        char byte = 0;
        while (read(g_pipe[0], &byte, 1) == 1)
            byte == 's' ? d->onShoot() : d->onEnd();
    });
    struct sigaction action
    {};
    action.sa_handler = Note;
    action.sa_flags = SA_RESTART;
    for (const int signal : kSignals)
        sigaction(signal, &action, nullptr);
}

SystemSignals::~SystemSignals()
{
    for (const int signal : kSignals)
        std::signal(signal, SIG_DFL);
    for (int& end : g_pipe) {
        if (end >= 0)
            close(std::exchange(end, -1));
    }
}

void DieNow()
{
    _exit(70);
}

} // namespace kelforms
