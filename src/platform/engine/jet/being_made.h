#pragma once

#include "platform/engine/database.h"

namespace vasclip::engine::jet {

// New files while they are being made: a statement that names one by its path finds it here, before there is
// anything under its name.

/// nullptr if there is none at that native path.
[[nodiscard]] std::shared_ptr<Database> BeingMade(const QString& native);
/// @param database  nullptr when it is made or given up
void SetBeingMade(const QString& native, const std::shared_ptr<Database>& database);

} // namespace vasclip::engine::jet
