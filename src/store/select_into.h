#pragma once

#include "platform/engine/database.h"

namespace vasclip::store {

/// Runs SELECT ... INTO from a database into a file that nobody watches. @return rows stored
/// @throws RuntimeError as engine::Database::Execute
qint64 SelectInto(engine::Engine& engine, const QString& database, const QString& statement);

} // namespace vasclip::store
