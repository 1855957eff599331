#pragma once

#include <QString>

#include <memory>
#include <vector>

namespace vasclip::engine::sql {

struct Expression;
using ExpressionPtr = std::unique_ptr<Expression>;

/// One node of an expression. `arguments` are its operands in the order of the text.
struct Expression
{
    enum class Kind {
        Null,
        Text,
        Number,
        Date,
        Truth,  ///< literals: `text`, `number` (serial of a date, 0 or 1 of a truth)
        Column, ///< `table` (may be empty) and `text`
        Negate,
        Not,
        Binary, ///< `text` is "+", "-", "*", "/", "&", "=", "<>", "<", "<=", ">", ">=", "AND" or "OR"
        Like,
        Between,
        In,
        IsNull,  ///< `negated` for NOT LIKE, IS NOT NULL and so on
        Call,    ///< `text` is the upper-cased name
        CountAll ///< COUNT(*)
    };

    Kind kind = Kind::Null;
    qsizetype at = 0; ///< place in the statement
    QString table;
    QString text;
    double number = 0;
    bool negated = false;
    std::vector<ExpressionPtr> arguments;
};

struct TableName
{
    QString database; ///< drive path, empty for the open database
    QString table;
    qsizetype at = 0;
};

struct SelectItem
{
    bool star = false;
    ExpressionPtr expression;
    QString alias;
};

struct OrderItem
{
    ExpressionPtr expression;
    bool descending = false;
};

struct Assignment
{
    QString column;
    qsizetype at = 0;
    ExpressionPtr value;
};

struct Statement
{
    enum class Kind { Select, SelectInto, InsertSelect, InsertValues, Update, Delete, Drop };

    Kind kind = Kind::Select;
    bool distinct = false;
    std::vector<SelectItem> items;
    TableName from;
    TableName into; ///< target of SELECT INTO and of INSERT
    QString alias;  ///< another name of `from` inside the statement
    ExpressionPtr where;
    std::vector<OrderItem> order;
    std::vector<Assignment> columns; ///< INSERT: columns without values; UPDATE: assignments
    std::vector<ExpressionPtr> values;
};

} // namespace vasclip::engine::sql
