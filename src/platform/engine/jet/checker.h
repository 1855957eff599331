#pragma once

#include "platform/engine/jet/opening.h"

namespace vasclip::engine::jet {

/// Reads every row and value of every table; what can't be read is among the findings then.
void CheckValues(Opening& opening);

} // namespace vasclip::engine::jet
