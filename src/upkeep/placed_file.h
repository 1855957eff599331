#pragma once

#include "platform/engine/file_mark.h"

namespace vasclip::upkeep {

using engine::FileMark;

/// Do two files hold the same? False where one can't be read.
[[nodiscard]] bool SameBytes(const QString& left, const QString& right);
/// Deletes a file, also one that is write-protected. @return false if it is still there
bool RemoveFile(const QString& native);

} // namespace vasclip::upkeep
