#pragma once

#include "platform/engine/file_owner.h"

namespace vasclip::tests {

/// A process of this machine that is no more.
inline const engine::FileOwner kKilledHere{999999999, engine::FileOwner::Own().machine};

} // namespace vasclip::tests
