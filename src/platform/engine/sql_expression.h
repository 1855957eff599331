#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/engine/types.h"

#include <QDateTime>
#include <QStringList>
#include <QVariantList>

namespace vasclip::engine::sql {

/// What a translated piece yields. A truth is 1 or 0 in SQLite and -1 or 0 where it is taken for a number.
enum class Yield { Null, Text, Number, Date, Truth, Binary };

struct Piece
{
    QString sql;
    Yield yield = Yield::Null;
    int field = -1; ///< of the table, when the piece is nothing but a column
};

[[nodiscard]] Yield YieldOf(FieldType type);

// The piece as another kind of value.
[[nodiscard]] QString AsNumber(const Piece& piece);
[[nodiscard]] QString AsDate(const Piece& piece);
[[nodiscard]] QString AsText(const Piece& piece);
[[nodiscard]] QString AsTruth(const Piece& piece);

/// Translates the expressions of one statement over one table. Literals become bindings.
class ExpressionTranslator
{
public:
    /// @param names  what may stand before a column's point
    ExpressionTranslator(const QString& statement, const TableDef* table, QStringList names,
                         const QDateTime& now)
        : m_statement(statement)
        , m_table(table)
        , m_names(std::move(names))
        , m_now(now)
    {}

    /// Where the literals met from now on go, and the number of the first.
    void CollectInto(QVariantList& bindings, int first);
    [[nodiscard]] Piece Translate(const Expression& node);
    [[nodiscard]] QString Condition(const Expression& node) { return AsTruth(Translate(node)); }
    /// An ORDER BY term: a column that holds numbers or dates sorts by value.
    [[nodiscard]] QString SortKey(const Expression& node);
    /// The column as the statement sees it. @return its index; an unknown one is remembered and gives -1
    [[nodiscard]] int FindColumn(const Expression& node);
    [[nodiscard]] bool HasAggregate(const Expression& node) const;
    /// @throws 3061 naming every name that was not found
    void ThrowUnknownNames() const;
    [[nodiscard]] QString Bind(const QVariant& value);

private:
    [[nodiscard]] Piece Column(const Expression& node);
    [[nodiscard]] Piece Binary(const Expression& node);
    [[nodiscard]] Piece Between(const Expression& node);
    [[nodiscard]] Piece In(const Expression& node);
    [[nodiscard]] Piece Call(const Expression& node);
    [[nodiscard]] Piece WithoutCase(const Expression& node);
    [[nodiscard]] static QString Comparable(const Piece& piece, Yield as);
    [[nodiscard]] static Yield CommonYield(const Piece& left, const Piece& right);

    const QString& m_statement;
    const TableDef* m_table;
    QStringList m_names;
    QDateTime m_now;
    QStringList m_unknown;
    QVariantList* m_bindings = nullptr;
    int m_next = 1;
};

} // namespace vasclip::engine::sql
