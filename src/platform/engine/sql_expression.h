#pragma once

#include "platform/engine/sql_typed.h"

#include <QDateTime>

namespace vasclip::engine::sql {

// The node as another kind of value; itself where it is one already.
[[nodiscard]] TypedPtr AsNumber(const TypedPtr& node);
[[nodiscard]] TypedPtr AsDate(const TypedPtr& node);
[[nodiscard]] TypedPtr AsText(const TypedPtr& node);
[[nodiscard]] TypedPtr AsTruth(const TypedPtr& node);

/// Applies the dialect's rules about kinds to the expressions of one statement over one table.
class ExpressionTyper
{
public:
    /// @param names  what may stand before a column's point
    /// @param now    what NOW() and DATE() mean
    ExpressionTyper(const QString& statement, const TableDef* table, QStringList names, const QDateTime& now)
        : m_statement(statement)
        , m_table(table)
        , m_names(std::move(names))
        , m_now(now)
    {}

    [[nodiscard]] TypedPtr Type(const Expression& node);
    [[nodiscard]] TypedPtr Condition(const Expression& node) { return AsTruth(Type(node)); }
    /// An ORDER BY term: a column that holds numbers or dates sorts by value.
    [[nodiscard]] TypedPtr SortKey(const Expression& node);
    /// The column as the statement sees it. @return its index; an unknown one is remembered and gives -1
    [[nodiscard]] int FindColumn(const Expression& node);
    [[nodiscard]] TypedPtr ColumnNode(int field) const;
    [[nodiscard]] static bool HasAggregate(const Expression& node);
    /// @throws 3061 naming every name that was not found
    void ThrowUnknownNames() const;

private:
    [[nodiscard]] TypedPtr Column(const Expression& node);
    [[nodiscard]] TypedPtr Binary(const Expression& node);
    [[nodiscard]] TypedPtr Between(const Expression& node);
    [[nodiscard]] TypedPtr In(const Expression& node);
    [[nodiscard]] TypedPtr Call(const Expression& node);
    [[nodiscard]] TypedPtr Conditional(const Expression& node);
    [[nodiscard]] TypedPtr Format(const Expression& node);
    [[nodiscard]] TypedPtr WithoutCase(const Expression& node);
    [[nodiscard]] TypedPtr Argument(const Expression& node, std::size_t index);
    void NeedArguments(const Expression& node, int least, int most) const;

    const QString& m_statement;
    const TableDef* m_table;
    QStringList m_names;
    QDateTime m_now;
    QStringList m_unknown;
};

} // namespace vasclip::engine::sql
