#pragma once

#include "platform/engine/types.h"

#include <QVariant>

struct sqlite3_stmt;

namespace vasclip::engine {

/// Binds a value as it is stored; an invalid QVariant is Null. @return the code of SQLite
[[nodiscard]] int BindValue(sqlite3_stmt* statement, int index, const QVariant& value);

/// Reads a column of the current row as a value of that type.
[[nodiscard]] QVariant ReadValue(sqlite3_stmt* statement, int column, FieldType type);

} // namespace vasclip::engine
