#pragma once

#include "house/include_graph.h"

namespace vasclip::house {

/// What breaks the rules of the records' store, one sentence each: a column of COMPS that is spelt outside
/// the list of their names, a record set of the engine that is named above the store.
[[nodiscard]] QStringList StoreViolations(const Sources& sources);

} // namespace vasclip::house
