#pragma once

#include "platform/engine/types.h"

namespace vasclip::engine {

class Connection;

/// Makes the engine's own tables in an empty database.
void MakeSchema(Connection& connection);

/// @param schema  SQLite schema name of an attached file, or "main"
[[nodiscard]] QList<TableDef> ReadSchema(Connection& connection, const QString& schema);

// Changes of the schema; each must stand in a transaction. They trust their caller to have checked for
// duplicates.
void StoreTable(Connection& connection, const QString& schema, const TableDef& table);
void StoreField(Connection& connection, const QString& schema, const TableDef& table, const Field& field);
void StoreIndex(Connection& connection, const QString& schema, const TableDef& table, const IndexDef& index);
void DropTable(Connection& connection, const QString& schema, const QString& table);

} // namespace vasclip::engine
