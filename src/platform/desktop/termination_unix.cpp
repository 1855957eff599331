#include "platform/desktop/termination.h"

#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <optional>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace vasclip::desktop {

namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};
int wakeUp = -1; ///< the end of the pipe that a signal writes to: it may do nothing else

void Note(int)
{
    const char byte = 0;
    [[maybe_unused]] const auto written = write(wakeUp, &byte, 1);
}

} // namespace

struct Termination::Private
{
    std::function<void()> wanted;
    std::array<int, 2> pipe{-1, -1};
    std::array<struct sigaction, kSignals.size()> before{};
    std::optional<QSocketNotifier> notifier;

    void Read() const
    {
        char bytes[16];
        while (read(pipe[0], bytes, sizeof bytes) > 0) {
        }
        wanted();
    }
};

Termination::Termination(std::function<void()> wanted)
    : d(std::make_unique<Private>())
{
    d->wanted = std::move(wanted);
    if (pipe2(d->pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0)
        return;
    wakeUp = d->pipe[1];
    d->notifier.emplace(d->pipe[0], QSocketNotifier::Read);
    QObject::connect(&*d->notifier, &QSocketNotifier::activated, [this] { d->Read(); });
    struct sigaction action = {};
    action.sa_handler = &Note;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &action, &d->before[i]);
}

Termination::~Termination()
{
    if (!d->notifier)
        return;
    for (std::size_t i = 0; i < kSignals.size(); ++i)
        sigaction(kSignals[i], &d->before[i], nullptr);
    wakeUp = -1;
    d->notifier.reset();
    close(d->pipe[0]);
    close(d->pipe[1]);
}

} // namespace vasclip::desktop
