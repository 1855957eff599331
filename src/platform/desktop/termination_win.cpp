#include "platform/desktop/termination.h"

namespace vasclip::desktop {

struct Termination::Private
{};

// A window is asked to close by a message, which takes the road of its cross.
Termination::Termination(std::function<void()>)
{}

Termination::~Termination() = default;

} // namespace vasclip::desktop
