#pragma once

#include "platform/engine/sql_typed.h"

#include <QHash>
#include <QVariantList>

namespace vasclip::engine::sql {

/// Says typed expressions in SQLite's words. A truth is 1 or 0 there, and -1 or 0 where it is taken for a
/// number.
class ExpressionPrinter
{
public:
    /// @param table     whose columns are named; may be null where none is
    /// @param bindings  where literals go
    /// @param first     the number of the first of them
    ExpressionPrinter(const TableDef* table, QVariantList& bindings, int first)
        : m_table(table)
        , m_bindings(bindings)
        , m_next(first)
    {}

    [[nodiscard]] QString Print(const Typed& node);
    /// As it stands beside another one of that kind in a comparison or an order.
    [[nodiscard]] QString Compared(const Typed& node, Yield as);

private:
    [[nodiscard]] QString Bind(const QVariant& value);
    [[nodiscard]] QString Literal(const Typed& node);
    [[nodiscard]] QString Converted(const Typed& node);
    [[nodiscard]] QString Arithmetic(const Typed& node);
    [[nodiscard]] QString Call(const Typed& node);
    [[nodiscard]] QString List(const Typed& node, const QString& between);
    [[nodiscard]] QString Argument(const Typed& node, std::size_t index)
    {
        return Print(*node.arguments[index]);
    }

    const TableDef* m_table;
    QVariantList& m_bindings;
    int m_next;
    QHash<const Typed*, QString> m_bound; ///< a literal that is compared several times is bound once
};

} // namespace vasclip::engine::sql
