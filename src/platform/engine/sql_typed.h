#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/engine/types.h"

#include <QStringList>
#include <QVariant>

namespace vasclip::engine::sql {

/// What a piece of a statement yields.
enum class Yield { Null, Text, Number, Date, Truth, Binary };

[[nodiscard]] Yield YieldOf(FieldType type);

/// The dialect's functions that take their arguments as they stand here.
enum class Function {
    Upper,
    Lower,
    Trim,
    LeftTrim,
    RightTrim,
    Val,
    IsDate,
    Len,
    Left,
    Right,
    Mid,
    InStr,
    Str,
    Absolute,
    Int,
    FormatNumber,
    FormatDate,
    Coalesce,
    If
};

enum class Aggregate { Count, Sum, Average, Least, Greatest };

enum class Operator { Plus, Minus, Times, Divide, Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };

struct Typed;
/// Nodes are shared where one value is compared several times.
using TypedPtr = std::shared_ptr<const Typed>;

/// One node of a statement after all of the dialect's rules about kinds were applied: what is compared or
/// computed has been converted by nodes of its own, so that a back end only has to say it in its own words.
struct Typed
{
    enum class Kind {
        Literal,   ///< `value`: QString, qlonglong, double (a date's serial); Null and truths by `yield`
        Column,    ///< `field` of the table
        Convert,   ///< argument 0 as `yield`: number, date, text, or truth (anything but 0)
        Whole,     ///< argument 0 rounded to a whole number
        Negate,    ///< of a number
        Not,       ///< of a truth
        And,       ///< two and more truths
        Or,        ///< likewise
        Compare,   ///< `operation` on arguments of the kind `common`
        Between,   ///< arguments value and two bounds of the kind `common`, in either order unless `ordered`
        Like,      ///< text, pattern
        IsNull,
        Join,      ///< two texts, Null if one is
        Concat,    ///< two texts, Null being empty
        Arithmetic,///< `operation` on two numbers or serials
        Call,      ///< `function`
        Aggregated,///< `aggregate` of argument 0
        CountAll,
        Fit,       ///< text that a field of `size` characters must hold; `value` is the field's name
        Need       ///< anything but Null; `value` is the field's name
    };

    Kind kind = Kind::Literal;
    Yield yield = Yield::Null;
    Yield common = Yield::Null;
    Function function = Function::Upper;
    Aggregate aggregate = Aggregate::Count;
    Operator operation = Operator::Equal;
    bool ordered = false; ///< the bounds of BETWEEN are known to stand in order
    bool negated = false; ///< NOT LIKE, NOT BETWEEN, NOT IN, IS NOT NULL
    int field = -1;       ///< of the table, when the node is nothing but a column
    int size = 0;         ///< characters of a text column or of `Fit`
    QVariant value{};
    std::vector<TypedPtr> arguments{};
};

/// A table that a statement names, with the database that it named it in ("" for the open one).
struct TableRef
{
    QString database;
    TableDef table;
};

/// A column that a SELECT shows.
struct TypedColumn
{
    Field field;
    int source = -1; ///< field of the table, -1 for a computed column
    TypedPtr value;
};

struct TypedOrder
{
    TypedPtr key;
    bool descending = false;
};

/// A field of the target and what it takes.
struct TypedAssignment
{
    int field = -1;
    TypedPtr value;
};

/// A statement with everything in it known: tables, fields, kinds, sizes.
struct TypedStatement
{
    Statement::Kind kind = Statement::Kind::Select;
    bool distinct = false;
    bool computed = false;  ///< one row that no table holds (COUNT and its kin)
    bool updatable = true;  ///< the rows of a SELECT are rows of its table
    TableRef from;          ///< read from; of UPDATE, DELETE and DROP: the target
    TableRef into;          ///< target of INSERT; of SELECT INTO the table to make, with its fields
    std::vector<TypedColumn> columns; ///< of the SELECT
    TypedPtr where;                   ///< null without a condition
    std::vector<TypedOrder> order;
    std::vector<TypedAssignment> assignments; ///< of INSERT and UPDATE
    std::vector<TypedPtr> needed; ///< INSERT with SELECT leaves rows out where one of these is Null
};

} // namespace vasclip::engine::sql
