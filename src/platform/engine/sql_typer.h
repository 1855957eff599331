#pragma once

#include "platform/engine/sql_typed.h"
#include "platform/text/time_source.h"

namespace vasclip::engine::sql {

/// What a statement may name.
class Catalog
{
public:
    virtual ~Catalog() = default;
    /// @param database  as the statement names it; "" is the open one
    /// @return nullptr if the database has no such table; it stays where it is as long as the catalog
    /// @throws as OpenDatabase
    [[nodiscard]] virtual const TableDef* Find(const QString& database, const QString& table) = 0;
};

/// Reads one statement and applies the rules of the dialect to it. Depends on nothing but its arguments.
/// @param time  what NOW() and DATE() mean, one moment for the whole statement
/// @throws 3075 syntax, 3061 unknown names, 3078 unknown table, 3127 unknown field to insert into, 3346
/// number of values, 3421 a value that its field cannot hold
[[nodiscard]] TypedStatement Type(const QString& text, Catalog& catalog, const text::TimeSource& time);

/// A whole table, as SELECT * without an order gives it.
[[nodiscard]] TypedStatement WholeTable(const TableDef& table);

} // namespace vasclip::engine::sql
