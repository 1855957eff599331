#pragma once

#include "platform/engine/jet/page_file.h"

#include <vector>

namespace vasclip::engine::jet {

/// The pages that a usage map lists, ascending; none of them lies beyond the end of the file.
/// @param beyond  takes the number of those that would
/// @throws Damaged
[[nodiscard]] std::vector<quint32> ReadUsageMap(PageFile& file, RowPointer map, qint64* beyond = nullptr);

} // namespace vasclip::engine::jet
