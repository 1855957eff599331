#pragma once

#include "platform/engine/sql_typed.h"

namespace vasclip::engine {

class Database;

/// Runs INSERT with a SELECT, or SELECT INTO, between two databases of different kinds: the source works the
/// values out, the target stores them in one transaction of its own. A row whose key is empty or there already
/// is left out of an INSERT, as an append does.
/// @return rows stored
/// @throws as Database::Execute
qint64 CopyRows(const sql::TypedStatement& statement, Database& source, Database& target);

} // namespace vasclip::engine
