#pragma once

#include "store/data_source.h"

namespace vasclip::store {

/// Runs statements of the kinds SELECT ... INTO and INSERT ... SELECT, in one transaction, in a file that nobody
/// watches: one that is being made.
/// @return rows stored. @throws RuntimeError as engine::Database::Execute, 3219 for any other statement
qint64 CopyRows(engine::Database& database, const QStringList& statements);

/// Runs INSERT ... SELECT into the table of a source; a row whose key is empty or there already stays out.
/// @param keys  of the rows that will come in: the watcher hears of each
/// @return rows stored. @throws RuntimeError as engine::Database::Execute
qint64 AppendRows(DataSource& source, const QString& statement, const QStringList& keys, const QString& words);

} // namespace vasclip::store
