#pragma once

#include "platform/engine/jet/opening.h"

namespace vasclip::engine::jet {

/// Looks at a whole file: every row and value of every table, the stored indexes, how the pages are shared out.
/// What is wrong is among the findings then.
void CheckFile(Opening& opening);

} // namespace vasclip::engine::jet
