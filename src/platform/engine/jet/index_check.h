#pragma once

#include "platform/engine/jet/table_rows.h"

namespace vasclip::engine::jet {

/// Walks the pages of a stored index and compares them with the rows: each entry in its order, with the key that its
/// row has, and none missing. What is wrong is among the findings then.
void CheckIndex(PageFile& file, Findings& findings, TableRows& rows, const Index& index);

} // namespace vasclip::engine::jet
