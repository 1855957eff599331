#pragma once

#include "platform/engine/health.h"

namespace vasclip::engine {

class Connection;

/// Looks whether the connection's file is whole; reads only. What is found is in words, the first of it first.
///
/// Opening: every page and row of a small file, samples of a large one (some records, each looked up again
/// through its key). Quiet: every page of a file of up to 16 MB, for a moment when nobody waits. Whole: pages,
/// indexes, and every value of every record.
/// @throws 3187 locked by others, 57 the disk failed
[[nodiscard]] QStringList CheckFile(Connection& connection, CheckDepth depth);

/// Can the full-text index of a table be read to its end? True if there is none.
[[nodiscard]] bool IndexReads(Connection& connection, const QString& table);

} // namespace vasclip::engine
