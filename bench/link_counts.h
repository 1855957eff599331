#pragma once

#include <QString>

namespace vasclip::bench {

/// Prints what a drop of a record on the report, a refresh and a transfer ask of the Databook and of the queue, with
/// eight comps in the report before.
/// @param home  an empty directory
/// @return false if a drop asks for more than it may
[[nodiscard]] bool PrintLinkCounts(const QString& home);

} // namespace vasclip::bench
