#include "platform/engine/sql_expression.h"

#include "platform/engine/collation.h"
#include "platform/engine/errors.h"
#include "platform/engine/sql_lexer.h"
#include "platform/engine/values.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Functions whose arguments are texts, or numbers as they stand.
struct FunctionRow
{
    QLatin1StringView name;
    int least;
    int most;
    Function function;
    Yield yield;
};

constexpr FunctionRow kFunctions[] = {
    {"UCASE"_L1, 1, 1, Function::Upper, Yield::Text},      {"LCASE"_L1, 1, 1, Function::Lower, Yield::Text},
    {"TRIM"_L1, 1, 1, Function::Trim, Yield::Text},        {"LTRIM"_L1, 1, 1, Function::LeftTrim, Yield::Text},
    {"RTRIM"_L1, 1, 1, Function::RightTrim, Yield::Text},  {"VAL"_L1, 1, 1, Function::Val, Yield::Number},
    {"ISDATE"_L1, 1, 1, Function::IsDate, Yield::Truth},   {"LEN"_L1, 1, 1, Function::Len, Yield::Number},
    {"LEFT"_L1, 2, 2, Function::Left, Yield::Text},        {"RIGHT"_L1, 2, 2, Function::Right, Yield::Text},
    {"MID"_L1, 2, 3, Function::Mid, Yield::Text},          {"INSTR"_L1, 2, 3, Function::InStr, Yield::Number},
};

struct AggregateRow
{
    QLatin1StringView name;
    Aggregate aggregate;
    bool number; ///< works on numbers only
};

constexpr AggregateRow kAggregates[] = {{"COUNT"_L1, Aggregate::Count, false},
                                        {"SUM"_L1, Aggregate::Sum, true},
                                        {"AVG"_L1, Aggregate::Average, true},
                                        {"MIN"_L1, Aggregate::Least, false},
                                        {"MAX"_L1, Aggregate::Greatest, false}};

const AggregateRow* FindAggregate(const QString& name)
{
    const auto found = std::find_if(std::begin(kAggregates), std::end(kAggregates),
                                    [&](const AggregateRow& row) { return name == row.name; });
    return found == std::end(kAggregates) ? nullptr : found;
}

constexpr struct
{
    QLatin1StringView symbol;
    Operator operation;
} kOperators[] = {{"+"_L1, Operator::Plus},   {"-"_L1, Operator::Minus},      {"*"_L1, Operator::Times},
                  {"/"_L1, Operator::Divide}, {"="_L1, Operator::Equal},      {"<>"_L1, Operator::NotEqual},
                  {"<"_L1, Operator::Less},   {"<="_L1, Operator::LessEqual}, {">"_L1, Operator::Greater},
                  {">="_L1, Operator::GreaterEqual}};

Operator OperatorOf(const QString& symbol)
{
    for (const auto& row : kOperators) {
        if (symbol == row.symbol)
            return row.operation;
    }
    Q_UNREACHABLE();
}

TypedPtr Node(Typed node)
{
    return std::make_shared<const Typed>(std::move(node));
}

TypedPtr Literal(const QVariant& value, Yield yield)
{
    return Node({.kind = Typed::Kind::Literal, .yield = yield, .value = value});
}

TypedPtr Convert(const TypedPtr& node, Yield yield)
{
    return Node({.kind = Typed::Kind::Convert, .yield = yield, .arguments = {node}});
}

bool Is(const TypedPtr& node, Yield yield)
{
    return node->yield == yield;
}

/// As it is compared with values of that kind.
TypedPtr Comparable(const TypedPtr& node, Yield as)
{
    switch (as) {
    case Yield::Date:
        return AsDate(node);
    case Yield::Number:
        return AsNumber(node);
    case Yield::Text:
        return AsText(node);
    default:
        return node;
    }
}

Yield CommonYield(Yield left, Yield right)
{
    for (const Yield yield : {Yield::Date, Yield::Number}) {
        if (left == yield || right == yield)
            return yield;
    }
    const bool leftText = left == Yield::Text;
    const bool rightText = right == Yield::Text;
    if (leftText != rightText && (left == Yield::Truth || right == Yield::Truth))
        return Yield::Number;
    return leftText || rightText ? Yield::Text : left;
}

TypedPtr Compare(const TypedPtr& left, Operator operation, const TypedPtr& right)
{
    const Yield common = CommonYield(left->yield, right->yield);
    return Node({.kind = Typed::Kind::Compare,
                 .yield = Yield::Truth,
                 .common = common,
                 .operation = operation,
                 .arguments = {Comparable(left, common), Comparable(right, common)}});
}

/// What a number or a date says that is written down as such; nullopt for anything that has to be worked out.
std::optional<double> LiteralNumber(const Expression& node)
{
    if (node.kind == Expression::Kind::Number || node.kind == Expression::Kind::Date)
        return node.number;
    if (node.kind != Expression::Kind::Negate)
        return std::nullopt;
    const std::optional<double> inner = LiteralNumber(*node.arguments[0]);
    return inner ? std::optional(-*inner) : std::nullopt;
}

TypedPtr CallOf(Function function, Yield yield, std::vector<TypedPtr> arguments)
{
    return Node({.kind = Typed::Kind::Call,
                 .yield = yield,
                 .function = function,
                 .arguments = std::move(arguments)});
}

} // namespace

Yield YieldOf(FieldType type)
{
    switch (type) {
    case FieldType::Boolean:
        return Yield::Truth;
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
        return Yield::Number;
    case FieldType::Date:
        return Yield::Date;
    case FieldType::Binary:
    case FieldType::LongBinary:
        return Yield::Binary;
    case FieldType::Text:
    case FieldType::Memo:
        break;
    }
    return Yield::Text;
}

TypedPtr AsNumber(const TypedPtr& node)
{
    return Is(node, Yield::Text) || Is(node, Yield::Truth) ? Convert(node, Yield::Number) : node;
}

TypedPtr AsDate(const TypedPtr& node)
{
    return Is(node, Yield::Text) ? Convert(node, Yield::Date) : AsNumber(node);
}

TypedPtr AsText(const TypedPtr& node)
{
    const bool other = Is(node, Yield::Number) || Is(node, Yield::Truth) || Is(node, Yield::Date);
    return other ? Convert(node, Yield::Text) : node;
}

TypedPtr AsTruth(const TypedPtr& node)
{
    return Is(node, Yield::Truth) || Is(node, Yield::Null) ? node : Convert(AsNumber(node), Yield::Truth);
}

int ExpressionTyper::FindColumn(const Expression& node)
{
    const auto known = [&](const QString& name) { return m_names.contains(name, Qt::CaseInsensitive); };
    if (m_table && (node.table.isEmpty() || known(node.table))) {
        for (int i = 0; i < m_table->fields.size(); ++i) {
            if (m_table->fields[i].name.compare(node.text, Qt::CaseInsensitive) == 0)
                return i;
        }
    }
    m_unknown.append(u"'%1' (position %2)"_s.arg(
        node.table.isEmpty() ? node.text : node.table + u'.' + node.text, QString::number(node.at + 1)));
    return -1;
}

void ExpressionTyper::ThrowUnknownNames() const
{
    if (m_unknown.isEmpty())
        return;
    throw RuntimeError(error::kParameterUnknown,
                       m_table
                           ? u"The table '%1' has no field %2"_s.arg(m_table->name, m_unknown.join(u", "_s))
                           : u"No field can be named here: %1"_s.arg(m_unknown.join(u", "_s)));
}

bool ExpressionTyper::HasAggregate(const Expression& node)
{
    if (node.kind == Expression::Kind::CountAll ||
        (node.kind == Expression::Kind::Call && FindAggregate(node.text)))
        return true;
    return std::any_of(node.arguments.begin(), node.arguments.end(),
                       [](const ExpressionPtr& argument) { return HasAggregate(*argument); });
}

TypedPtr ExpressionTyper::ColumnNode(int field) const
{
    const Field& column = m_table->fields[field];
    return Node({.kind = Typed::Kind::Column,
                 .yield = YieldOf(column.type),
                 .field = field,
                 .size = column.size});
}

TypedPtr ExpressionTyper::Column(const Expression& node)
{
    const int index = FindColumn(node);
    return index < 0 ? Literal({}, Yield::Null) : ColumnNode(index);
}

TypedPtr ExpressionTyper::SortKey(const Expression& node)
{
    const TypedPtr key = Type(node);
    if (key->field >= 0 && Is(key, Yield::Text)) {
        const SortsAs sorts = m_table->fields[key->field].sortsAs;
        if (sorts == SortsAs::Number)
            return AsNumber(key);
        if (sorts == SortsAs::Date)
            return AsDate(key);
    }
    return Comparable(key, key->yield);
}

/// A piece that is only compared: the folding that comparisons do anyway is left out.
TypedPtr ExpressionTyper::WithoutCase(const Expression& node)
{
    const bool folds = node.kind == Expression::Kind::Call && node.arguments.size() == 1 &&
                       (node.text == u"UCASE" || node.text == u"LCASE");
    if (!folds)
        return Type(node);
    const TypedPtr inner = Type(*node.arguments.front());
    if (Is(inner, Yield::Text))
        return inner;
    // What it yields is a text all the same, Null and binary values too.
    const TypedPtr text = AsText(inner);
    return Is(text, Yield::Text) ? text : Convert(text, Yield::Text);
}

TypedPtr ExpressionTyper::Binary(const Expression& node)
{
    const QString& symbol = node.text;
    if (symbol == u"AND" || symbol == u"OR") {
        // A chain becomes one flat list, however long it is.
        const Expression* chain = &node;
        std::vector<const Expression*> links;
        for (; chain->kind == Expression::Kind::Binary && chain->text == symbol;
             chain = chain->arguments[0].get())
            links.push_back(chain->arguments[1].get());
        std::vector<TypedPtr> terms{Condition(*chain)};
        for (auto link = links.rbegin(); link != links.rend(); ++link)
            terms.push_back(Condition(**link));
        return Node({.kind = symbol == u"AND" ? Typed::Kind::And : Typed::Kind::Or,
                     .yield = Yield::Truth,
                     .arguments = std::move(terms)});
    }
    if (symbol == u"&") {
        const TypedPtr left = AsText(Type(*node.arguments[0]));
        const TypedPtr right = AsText(Type(*node.arguments[1]));
        return Node(
            {.kind = Typed::Kind::Concat, .yield = Yield::Text, .arguments = {left, right}});
    }
    const Operator operation = OperatorOf(symbol);
    if (operation >= Operator::Equal) {
        const TypedPtr left = WithoutCase(*node.arguments[0]);
        return Compare(left, operation, WithoutCase(*node.arguments[1]));
    }
    const TypedPtr left = Type(*node.arguments[0]);
    const TypedPtr right = Type(*node.arguments[1]);
    if (operation == Operator::Plus && Is(left, Yield::Text) && Is(right, Yield::Text))
        return Node(
            {.kind = Typed::Kind::Join, .yield = Yield::Text, .arguments = {left, right}});
    const bool oneDate = Is(left, Yield::Date) != Is(right, Yield::Date);
    const bool date = oneDate && (operation == Operator::Plus || operation == Operator::Minus);
    return Node({.kind = Typed::Kind::Arithmetic,
                 .yield = date ? Yield::Date : Yield::Number,
                 .operation = operation,
                 .arguments = {AsNumber(left), AsNumber(right)}});
}

/// The bounds may stand in either order.
TypedPtr ExpressionTyper::Between(const Expression& node)
{
    const TypedPtr value = WithoutCase(*node.arguments[0]);
    const Expression* first = node.arguments[1].get();
    const Expression* second = node.arguments[2].get();
    const std::optional<double> one = LiteralNumber(*first);
    const std::optional<double> other = LiteralNumber(*second);
    const bool known = one && other;
    if (known && *one > *other)
        std::swap(first, second);
    const TypedPtr low = WithoutCase(*first);
    const TypedPtr high = WithoutCase(*second);
    Yield common = CommonYield(low->yield, high->yield);
    const bool byValue = common == Yield::Number || common == Yield::Date;
    if (!byValue || Is(value, Yield::Date))
        common = CommonYield(value->yield, common);
    return Node({.kind = Typed::Kind::Between,
                 .yield = Yield::Truth,
                 .common = common,
                 .ordered = known,
                 .negated = node.negated,
                 .arguments = {Comparable(value, common), Comparable(low, common), Comparable(high, common)}});
}

TypedPtr ExpressionTyper::In(const Expression& node)
{
    // One comparison per value, so that each goes by its own kind as "=" does.
    const TypedPtr value = WithoutCase(*node.arguments[0]);
    std::vector<TypedPtr> tests;
    for (std::size_t i = 1; i < node.arguments.size(); ++i)
        tests.push_back(Compare(value, Operator::Equal, WithoutCase(*node.arguments[i])));
    const TypedPtr any =
        Node({.kind = Typed::Kind::Or, .yield = Yield::Truth, .arguments = std::move(tests)});
    return node.negated
               ? Node({.kind = Typed::Kind::Not, .yield = Yield::Truth, .arguments = {any}})
               : any;
}

TypedPtr ExpressionTyper::Argument(const Expression& node, std::size_t index)
{
    return Type(*node.arguments[index]);
}

void ExpressionTyper::NeedArguments(const Expression& node, int least, int most) const
{
    const auto count = static_cast<int>(node.arguments.size());
    if (count >= least && count <= most)
        return;
    ThrowSyntax(m_statement, node.at,
                u"the function %1 takes %2"_s.arg(node.text,
                                                  least == 0                    ? u"no arguments"_s
                                                  : least == most && least == 1 ? u"one argument"_s
                                                  : least == most               ? u"%1 arguments"_s.arg(least)
                                                                  : u"%1 to %2 arguments"_s.arg(least).arg(most)));
}

/// NZ and IIF: both answers of one kind; of two kinds, texts.
TypedPtr ExpressionTyper::Conditional(const Expression& node)
{
    const bool nz = node.text == u"NZ";
    NeedArguments(node, nz ? 1 : 3, nz ? 2 : 3);
    const TypedPtr test = nz ? nullptr : AsTruth(Argument(node, 0));
    const TypedPtr first = Argument(node, nz ? 0 : 1);
    const TypedPtr second =
        nz && node.arguments.size() == 1 ? Literal(u""_s, Yield::Text) : Argument(node, nz ? 1 : 2);
    const bool same =
        first->yield == second->yield || Is(second, Yield::Null) || Is(first, Yield::Null);
    const Yield yield = !same                      ? Yield::Text
                        : Is(first, Yield::Null) ? second->yield
                                                   : first->yield;
    const TypedPtr one = same ? first : AsText(first);
    const TypedPtr two = same ? second : AsText(second);
    return nz ? CallOf(Function::Coalesce, yield, {one, two}) : CallOf(Function::If, yield, {test, one, two});
}

TypedPtr ExpressionTyper::Format(const Expression& node)
{
    NeedArguments(node, 2, 2);
    const TypedPtr value = Argument(node, 0);
    const TypedPtr picture = Argument(node, 1);
    const Expression& pictureNode = *node.arguments[1];
    // A text is taken as a date or a number by what its picture speaks of.
    bool date = Is(value, Yield::Date);
    if (Is(value, Yield::Text) && pictureNode.kind == Expression::Kind::Text)
        date = !pictureNode.text.contains(u'0') && !pictureNode.text.contains(u'#');
    return CallOf(date ? Function::FormatDate : Function::FormatNumber, Yield::Text,
                  {Is(value, Yield::Truth) ? AsNumber(value) : value, AsText(picture)});
}

TypedPtr ExpressionTyper::Call(const Expression& node)
{
    if (const AggregateRow* row = FindAggregate(node.text)) {
        NeedArguments(node, 1, 1);
        const TypedPtr inner = Argument(node, 0);
        const bool number = row->number || row->aggregate == Aggregate::Count;
        return Node({.kind = Typed::Kind::Aggregated,
                     .yield = number ? Yield::Number : inner->yield,
                     .aggregate = row->aggregate,
                     .arguments = {row->number ? AsNumber(inner) : inner}});
    }
    if (node.text == u"ISNULL") {
        NeedArguments(node, 1, 1);
        return Node({.kind = Typed::Kind::IsNull,
                     .yield = Yield::Truth,
                     .arguments = {Argument(node, 0)}});
    }
    if (node.text == u"NOW" || node.text == u"DATE") {
        NeedArguments(node, 0, 0);
        const double serial = ToSerial(m_now);
        return Literal(node.text == u"DATE" ? std::floor(serial) : serial, Yield::Date);
    }
    if (node.text == u"CDATE") {
        NeedArguments(node, 1, 1);
        const TypedPtr date = AsDate(Argument(node, 0));
        // Even of a date column it is a computed value, which can't be written through.
        return Is(date, Yield::Date) && date->field < 0 ? date : Convert(date, Yield::Date);
    }
    if (node.text == u"ABS" || node.text == u"INT" || node.text == u"STR") {
        NeedArguments(node, 1, 1);
        const TypedPtr number = AsNumber(Argument(node, 0));
        if (node.text == u"STR")
            return CallOf(Function::Str, Yield::Text, {number});
        return CallOf(node.text == u"ABS" ? Function::Absolute : Function::Int, Yield::Number, {number});
    }
    if (node.text == u"NZ" || node.text == u"IIF")
        return Conditional(node);
    if (node.text == u"FORMAT")
        return Format(node);
    for (const FunctionRow& row : kFunctions) {
        if (node.text != row.name)
            continue;
        NeedArguments(node, row.least, row.most);
        std::vector<TypedPtr> arguments;
        for (std::size_t i = 0; i < node.arguments.size(); ++i) {
            const TypedPtr argument = Argument(node, i);
            const bool asIs = Is(argument, Yield::Number) || row.yield == Yield::Truth;
            arguments.push_back(asIs ? argument : AsText(argument));
        }
        return CallOf(row.function, row.yield, std::move(arguments));
    }
    ThrowSyntax(m_statement, node.at, u"there is no function %1"_s.arg(node.text));
}

TypedPtr ExpressionTyper::Type(const Expression& node)
{
    using Kind = Expression::Kind;
    switch (node.kind) {
    case Kind::Null:
        return Literal({}, Yield::Null);
    case Kind::Text:
        return Literal(node.text.isNull() ? QString(u""_s) : node.text, Yield::Text);
    case Kind::Number: {
        const bool whole = std::floor(node.number) == node.number && std::abs(node.number) < 9e15;
        return Literal(
            whole ? QVariant::fromValue(static_cast<qlonglong>(node.number)) : QVariant(node.number),
            Yield::Number);
    }
    case Kind::Date:
        return Literal(node.number, Yield::Date);
    case Kind::Truth:
        return Literal(node.number != 0, Yield::Truth);
    case Kind::Column:
        return Column(node);
    case Kind::Negate:
        return Node({.kind = Typed::Kind::Negate,
                     .yield = Yield::Number,
                     .arguments = {AsNumber(Argument(node, 0))}});
    case Kind::Not:
        return Node({.kind = Typed::Kind::Not,
                     .yield = Yield::Truth,
                     .arguments = {Condition(*node.arguments[0])}});
    case Kind::Binary:
        return Binary(node);
    case Kind::Like: {
        const TypedPtr text = AsText(WithoutCase(*node.arguments[0]));
        const TypedPtr pattern = AsText(WithoutCase(*node.arguments[1]));
        if (pattern->kind == Typed::Kind::Literal && HasOpenSet(pattern->value.toString().toStdString()))
            ThrowSyntax(m_statement, node.arguments[1]->at, QString::fromLatin1(kOpenSetWords));
        return Node({.kind = Typed::Kind::Like,
                     .yield = Yield::Truth,
                     .negated = node.negated,
                     .arguments = {text, pattern}});
    }
    case Kind::Between:
        return Between(node);
    case Kind::In:
        return In(node);
    case Kind::IsNull:
        return Node({.kind = Typed::Kind::IsNull,
                     .yield = Yield::Truth,
                     .negated = node.negated,
                     .arguments = {Argument(node, 0)}});
    case Kind::Call:
        return Call(node);
    case Kind::CountAll:
        return Node({.kind = Typed::Kind::CountAll, .yield = Yield::Number});
    }
    return {};
}

} // namespace vasclip::engine::sql
