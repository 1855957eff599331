#include "kelforms/app/system_signals.h"

#include <cstdlib>
#include <utility>

namespace kelforms {

// A Windows program is asked to end through its window, and has no signal for a picture.

struct SystemSignals::Private
{
    std::function<void()> onEnd, onShoot;
};

SystemSignals::SystemSignals(std::function<void()> onEnd, std::function<void()> onShoot)
    : d(std::make_unique<Private>(Private{std::move(onEnd), std::move(onShoot)}))
{}

SystemSignals::~SystemSignals() = default;

void DieNow()
{
    std::_Exit(70);
}

} // namespace kelforms
