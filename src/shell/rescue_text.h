#pragma once

#include "platform/engine/health.h"

namespace vasclip::shell {

/// What came over from a damaged Databook, for people.
[[nodiscard]] QString RescueText(const engine::Rescued& rescued, const QString& source, const QString& target);

} // namespace vasclip::shell
