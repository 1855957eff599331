#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/engine/types.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>

namespace vasclip::engine::sql {

/// The columns that every stored table has besides its fields: the row's identity and its version, which
/// every change raises.
inline constexpr char16_t kIdColumn[] = u"vas_id";
inline constexpr char16_t kVersionColumn[] = u"vas_version";

/// What a statement may name.
class Catalog
{
public:
    virtual ~Catalog() = default;
    /// The SQLite schema name of a database; "" is the open one. @throws as OpenDatabase
    [[nodiscard]] virtual QString Schema(const QString& database) = 0;
    /// nullptr if the database has no such table
    [[nodiscard]] virtual const TableDef* Find(const QString& database, const QString& table) = 0;
};

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

    // Action: `sql` does the work; for SELECT INTO `newTable` must be made first.
    TableName target;
    QString targetSchema;
    TableDef newTable;

    QString sql;
    QVariantList bindings;
};

/// A name in double quotes.
[[nodiscard]] QString QuoteName(const QString& name);

/// Reads and translates one statement. Depends on nothing but its arguments.
/// @param now  what NOW() and DATE() mean
/// @throws 3075 syntax, 3061 unknown names, 3078 unknown table, 3127 unknown field to insert into, 3346
/// number of
///         values, 3421 a value that its field cannot hold
[[nodiscard]] Plan Translate(const QString& text, Catalog& catalog, const QDateTime& now);

} // namespace vasclip::engine::sql
