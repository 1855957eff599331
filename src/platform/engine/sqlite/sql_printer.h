#pragma once

#include "platform/engine/sql_typer.h"

#include <QVariantList>

#include <functional>

namespace vasclip::engine::sql {

/// The columns that every stored table has besides its fields: the row's identity and its version, which
/// every change raises.
inline constexpr char16_t kIdColumn[] = u"vas_id";
inline constexpr char16_t kVersionColumn[] = u"vas_version";

/// A column that a SELECT shows.
struct OutputColumn
{
    Field field;
    int source = -1; ///< field of the table, -1 for a computed column
    QString sql;     ///< its text may use the bindings from ?2 on
};

/// A statement as SQLite takes it.
struct Plan
{
    Statement::Kind kind = Statement::Kind::Select;
    TableDef table;   ///< the table read from or changed (of INSERT: the target), as it was found
    QString tableSql; ///< the same with its schema, quoted

    // SELECT: `sql` gives row identities (of a computed row such as COUNT(*): that row itself).
    QList<OutputColumn> columns;
    QVariantList columnBindings; ///< for ?2 and on
    bool ordered = false;
    bool computed = false;
    bool updatable = true;
    bool whole = false; ///< every row of the table, in the order of insertion

    // Action: `sql` does the work; for SELECT INTO `newTable` must be made first.
    QString targetSchema; ///< of the table that it changes
    TableDef newTable;

    QString sql;
    QVariantList bindings;
};

/// A name in double quotes.
[[nodiscard]] QString QuoteName(const QString& name);

/// Says a statement in SQLite's words. Literals become bindings.
/// @param schemaOf  the SQLite schema of a database that the statement names; "" is the open one
[[nodiscard]] Plan Print(const TypedStatement& statement,
                         const std::function<QString(const QString& database)>& schemaOf);

} // namespace vasclip::engine::sql
