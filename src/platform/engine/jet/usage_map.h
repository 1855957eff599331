#pragma once

#include "platform/engine/jet/page_file.h"

#include <vector>

namespace vasclip::engine::jet {

/// The pages that a usage map lists, ascending; none of them lies beyond the end of the file.
/// @throws Damaged
[[nodiscard]] std::vector<quint32> ReadUsageMap(PageFile& file, RowPointer map);

} // namespace vasclip::engine::jet
