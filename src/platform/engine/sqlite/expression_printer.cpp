#include "platform/engine/sqlite/expression_printer.h"

#include "platform/engine/sqlite/sql_printer.h"

#include <array>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

QLatin1StringView Symbol(Operator operation)
{
    static constexpr std::array kSymbols = {"+"_L1, "-"_L1, "*"_L1,  "/"_L1, "="_L1,
                                            "<>"_L1, "<"_L1, "<="_L1, ">"_L1, ">="_L1};
    return kSymbols[static_cast<std::size_t>(operation)];
}

QLatin1StringView Name(Aggregate aggregate)
{
    static constexpr std::array kNames = {"count"_L1, "sum"_L1, "avg"_L1, "min"_L1, "max"_L1};
    return kNames[static_cast<std::size_t>(aggregate)];
}

/// SQLite's own functions and those of functions.cpp.
QString Name(Function function)
{
    switch (function) {
    case Function::Upper:
        return u"vas_upper"_s;
    case Function::Lower:
        return u"vas_lower"_s;
    case Function::Trim:
        return u"trim"_s;
    case Function::LeftTrim:
        return u"ltrim"_s;
    case Function::RightTrim:
        return u"rtrim"_s;
    case Function::Val:
        return u"vas_num"_s;
    case Function::IsDate:
        return u"vas_isdate"_s;
    case Function::Len:
        return u"vas_len"_s;
    case Function::Left:
        return u"vas_left"_s;
    case Function::Right:
        return u"vas_right"_s;
    case Function::Mid:
        return u"vas_mid"_s;
    case Function::InStr:
        return u"vas_instr"_s;
    case Function::Str:
        return u"vas_str"_s;
    case Function::Absolute:
        return u"abs"_s;
    case Function::Int:
        return u"vas_int"_s;
    case Function::FormatNumber:
    case Function::FormatDate:
        return u"vas_format"_s;
    case Function::Coalesce:
        return u"coalesce"_s;
    case Function::If:
        return u"iif"_s;
    }
    return {};
}

QString Negation(const Typed& node)
{
    return node.negated ? u"NOT "_s : QString();
}

} // namespace

QString ExpressionPrinter::Bind(const QVariant& value)
{
    m_bindings.append(value);
    return u"?%1"_s.arg(m_next++);
}

QString ExpressionPrinter::Literal(const Typed& node)
{
    if (node.yield == Yield::Null)
        return u"NULL"_s;
    if (node.yield == Yield::Truth)
        return node.value.toBool() ? u"1"_s : u"0"_s;
    QString& place = m_bound[&node];
    if (place.isEmpty())
        place = Bind(node.value);
    return place;
}

QString ExpressionPrinter::Converted(const Typed& node)
{
    const Typed& inner = *node.arguments[0];
    const QString sql = Print(inner);
    if (node.yield == Yield::Truth)
        return u"(%1 <> 0)"_s.arg(sql);
    const QString number = inner.yield == Yield::Truth ? u"(-(%1))"_s.arg(sql) : sql;
    switch (node.yield) {
    case Yield::Number:
        return inner.yield == Yield::Text ? u"vas_num(%1)"_s.arg(sql) : number;
    case Yield::Date:
        return inner.yield == Yield::Text ? u"vas_date(%1)"_s.arg(sql) : number;
    case Yield::Text:
        if (inner.yield == Yield::Truth)
            return u"vas_text(-(%1))"_s.arg(sql);
        if (inner.yield == Yield::Number)
            return u"vas_text(%1)"_s.arg(sql);
        return inner.yield == Yield::Date ? u"vas_datetext(%1)"_s.arg(sql) : sql;
    default:
        return sql;
    }
}

QString ExpressionPrinter::Compared(const Typed& node, Yield as)
{
    const QString sql = Print(node);
    return as == Yield::Text ? sql + u" COLLATE VAS"_s : sql;
}

QString ExpressionPrinter::Arithmetic(const Typed& node)
{
    const QString left = Argument(node, 0);
    const QString right = Argument(node, 1);
    if (node.operation == Operator::Divide)
        return u"(%1 * 1.0 / %2)"_s.arg(left, right);
    return u"(%1 %2 %3)"_s.arg(left, Symbol(node.operation), right);
}

QString ExpressionPrinter::List(const Typed& node, const QString& between)
{
    QStringList terms;
    for (const TypedPtr& argument : node.arguments)
        terms.append(Print(*argument));
    return terms.join(between);
}

QString ExpressionPrinter::Call(const Typed& node)
{
    QString arguments = List(node, u", "_s);
    if (node.function == Function::FormatNumber || node.function == Function::FormatDate)
        arguments += node.function == Function::FormatDate ? u", 1"_s : u", 0"_s;
    return u"%1(%2)"_s.arg(Name(node.function), arguments);
}

QString ExpressionPrinter::Print(const Typed& node)
{
    using Kind = Typed::Kind;
    switch (node.kind) {
    case Kind::Literal:
        return Literal(node);
    case Kind::Column:
        return QuoteName(m_table->fields[node.field].name);
    case Kind::Convert:
        return Converted(node);
    case Kind::Whole:
        return u"CAST(round(%1) AS INTEGER)"_s.arg(Argument(node, 0));
    case Kind::Negate:
        return u"(-%1)"_s.arg(Argument(node, 0));
    case Kind::Not:
        return u"(NOT %1)"_s.arg(Argument(node, 0));
    case Kind::And:
        return u'(' + List(node, u" AND "_s) + u')';
    case Kind::Or:
        return u'(' + List(node, u" OR "_s) + u')';
    case Kind::Compare: {
        const QString left = Compared(*node.arguments[0], node.common);
        return u"(%1 %2 %3)"_s.arg(left, Symbol(node.operation), Compared(*node.arguments[1], node.common));
    }
    case Kind::Between: {
        const QString value = Compared(*node.arguments[0], node.common);
        const QString low = Compared(*node.arguments[1], node.common);
        const QString high = Compared(*node.arguments[2], node.common);
        const QString bounds = node.ordered ? u"%1 AND %2"_s : u"min(%1, %2) AND max(%1, %2)"_s;
        return u"(%1 %2BETWEEN %3)"_s.arg(value, Negation(node), bounds.arg(low, high));
    }
    case Kind::Like: {
        const QString text = Argument(node, 0);
        const QString pattern = Argument(node, 1);
        // One that is written down was looked at; another is looked at row by row.
        const bool written = node.arguments[1]->kind == Kind::Literal;
        return u"(%1vas_like(%2, %3))"_s.arg(Negation(node), text,
                                             written ? pattern : u"vas_pattern(%1)"_s.arg(pattern));
    }
    case Kind::IsNull:
        return u"(%1 IS %2NULL)"_s.arg(Argument(node, 0), Negation(node));
    case Kind::Join:
        return u"(%1)"_s.arg(List(node, u" || "_s));
    case Kind::Concat: {
        const QString left = Argument(node, 0);
        return u"(coalesce(%1, '') || coalesce(%2, ''))"_s.arg(left, Argument(node, 1));
    }
    case Kind::Arithmetic:
        return Arithmetic(node);
    case Kind::Call:
        return Call(node);
    case Kind::Aggregated:
        return u"%1(%2)"_s.arg(Name(node.aggregate), Argument(node, 0));
    case Kind::CountAll:
        return u"count(*)"_s;
    case Kind::Fit: {
        const QString text = Argument(node, 0);
        return u"vas_fit(%1, %2, %3)"_s.arg(text, QString::number(node.size), Bind(node.value));
    }
    case Kind::Need: {
        const QString value = Argument(node, 0);
        return u"vas_need(%1, %2)"_s.arg(value, Bind(node.value));
    }
    }
    return {};
}

} // namespace vasclip::engine::sql
