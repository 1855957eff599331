#include "mapdata/stop.h"

#include <QFile>

#include <atomic>
#include <csignal>
#include <thread>

namespace vasclip::mapdata {

namespace {

std::atomic<bool> g_stopped = false;
static_assert(std::atomic<bool>::is_always_lock_free, "a signal handler sets it");

void Hear(int)
{
    g_stopped = true;
}

} // namespace

void StopOnSignals()
{
    std::signal(SIGTERM, &Hear);
    std::signal(SIGINT, &Hear);
}

void StopWithInput()
{
    // It waits in a read that nothing else ends, so the program leaves it behind when it ends itself.
    std::thread([] {
        // Past the C library's own buffer, whose lock would hold up the program's end.
        QFile input;
        char piece[256];
        if (input.open(0, QIODevice::ReadOnly | QIODevice::Unbuffered)) {
            while (input.read(piece, sizeof piece) > 0) {
            }
        }
        g_stopped = true;
    }).detach();
}

bool Stopped()
{
    return g_stopped;
}

} // namespace vasclip::mapdata
