#pragma once

#include "platform/engine/jet/findings.h"
#include "platform/engine/jet/page_file.h"

namespace vasclip::engine::jet {

/// Looks at each page by itself: its kind, and whether its rows fit on it.
void CheckPages(PageFile& file, Findings& findings);

} // namespace vasclip::engine::jet
