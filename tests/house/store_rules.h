#pragma once

#include "house/include_graph.h"

namespace vasclip::house {

/// What breaks the rules of the records' store, one sentence each: a column of COMPS that is spelt outside
/// the list of their names.
[[nodiscard]] QStringList StoreViolations(const Sources& sources);

} // namespace vasclip::house
