#include "platform/engine/sql_expression.h"

#include "platform/engine/collation.h"
#include "platform/engine/errors.h"
#include "platform/engine/functions.h"
#include "platform/engine/sql_lexer.h"
#include "platform/engine/sql_translate.h"
#include "platform/engine/values.h"

#include <cmath>
#include <optional>
#include <utility>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Functions that are one call of SQLite with their arguments in order.
struct Function
{
    QLatin1StringView name;
    int least;
    int most;
    QLatin1StringView sql; ///< with %1 for the arguments
    Yield yield;
};

constexpr Function kFunctions[] = {
    {"UCASE"_L1, 1, 1, "vas_upper(%1)"_L1, Yield::Text},
    {"LCASE"_L1, 1, 1, "vas_lower(%1)"_L1, Yield::Text},
    {"TRIM"_L1, 1, 1, "trim(%1)"_L1, Yield::Text},
    {"LTRIM"_L1, 1, 1, "ltrim(%1)"_L1, Yield::Text},
    {"RTRIM"_L1, 1, 1, "rtrim(%1)"_L1, Yield::Text},
    {"VAL"_L1, 1, 1, "vas_num(%1)"_L1, Yield::Number},
    {"ISDATE"_L1, 1, 1, "vas_isdate(%1)"_L1, Yield::Truth},
    {"LEN"_L1, 1, 1, "vas_len(%1)"_L1, Yield::Number},
    {"LEFT"_L1, 2, 2, "vas_left(%1)"_L1, Yield::Text},
    {"RIGHT"_L1, 2, 2, "vas_right(%1)"_L1, Yield::Text},
    {"MID"_L1, 2, 3, "vas_mid(%1)"_L1, Yield::Text},
    {"INSTR"_L1, 2, 3, "vas_instr(%1)"_L1, Yield::Number},
};

struct Aggregate
{
    QLatin1StringView name;
    QLatin1StringView sql;
    bool number; ///< works on numbers only
};

constexpr Aggregate kAggregates[] = {{"COUNT"_L1, "count"_L1, false},
                                     {"SUM"_L1, "sum"_L1, true},
                                     {"AVG"_L1, "avg"_L1, true},
                                     {"MIN"_L1, "min"_L1, false},
                                     {"MAX"_L1, "max"_L1, false}};

const Aggregate* FindAggregate(const QString& name)
{
    for (const Aggregate& row : kAggregates) {
        if (name == row.name)
            return &row;
    }
    return nullptr;
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

bool Matters(Yield yield)
{
    return yield == Yield::Number || yield == Yield::Date;
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

QString AsNumber(const Piece& piece)
{
    switch (piece.yield) {
    case Yield::Text:
        return u"vas_num(%1)"_s.arg(piece.sql);
    case Yield::Truth:
        return u"(-(%1))"_s.arg(piece.sql);
    default:
        return piece.sql;
    }
}

QString AsDate(const Piece& piece)
{
    return piece.yield == Yield::Text ? u"vas_date(%1)"_s.arg(piece.sql) : AsNumber(piece);
}

QString AsText(const Piece& piece)
{
    switch (piece.yield) {
    case Yield::Number:
        return u"vas_text(%1)"_s.arg(piece.sql);
    case Yield::Truth:
        return u"vas_text(-(%1))"_s.arg(piece.sql);
    case Yield::Date:
        return u"vas_datetext(%1)"_s.arg(piece.sql);
    default:
        return piece.sql;
    }
}

QString AsTruth(const Piece& piece)
{
    return piece.yield == Yield::Truth || piece.yield == Yield::Null ? piece.sql
                                                                     : u"(%1 <> 0)"_s.arg(AsNumber(piece));
}

void ExpressionTranslator::CollectInto(QVariantList& bindings, int first)
{
    m_bindings = &bindings;
    m_next = first;
}

QString ExpressionTranslator::Bind(const QVariant& value)
{
    m_bindings->append(value);
    return u"?%1"_s.arg(m_next++);
}

int ExpressionTranslator::FindColumn(const Expression& node)
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

void ExpressionTranslator::ThrowUnknownNames() const
{
    if (m_unknown.isEmpty())
        return;
    throw RuntimeError(error::kParameterUnknown,
                       m_table
                           ? u"The table '%1' has no field %2"_s.arg(m_table->name, m_unknown.join(u", "_s))
                           : u"No field can be named here: %1"_s.arg(m_unknown.join(u", "_s)));
}

bool ExpressionTranslator::HasAggregate(const Expression& node) const
{
    if (node.kind == Expression::Kind::CountAll ||
        (node.kind == Expression::Kind::Call && FindAggregate(node.text)))
        return true;
    for (const auto& argument : node.arguments) {
        if (HasAggregate(*argument))
            return true;
    }
    return false;
}

Piece ExpressionTranslator::Column(const Expression& node)
{
    const int index = FindColumn(node);
    if (index < 0)
        return {u"NULL"_s, Yield::Null, -1};
    return {QuoteName(m_table->fields[index].name), YieldOf(m_table->fields[index].type), index};
}

QString ExpressionTranslator::SortKey(const Expression& node)
{
    const Piece piece = Translate(node);
    if (piece.field >= 0 && piece.yield == Yield::Text) {
        const SortsAs sorts = m_table->fields[piece.field].sortsAs;
        if (sorts == SortsAs::Number)
            return AsNumber(piece);
        if (sorts == SortsAs::Date)
            return AsDate(piece);
    }
    return Comparable(piece, piece.yield);
}

/// A piece that is only compared: the folding that comparisons do anyway is left out.
Piece ExpressionTranslator::WithoutCase(const Expression& node)
{
    const bool folds = node.kind == Expression::Kind::Call && node.arguments.size() == 1 &&
                       (node.text == u"UCASE" || node.text == u"LCASE");
    if (folds) {
        Piece inner = Translate(*node.arguments.front());
        return inner.yield == Yield::Text ? inner : Piece{AsText(inner), Yield::Text, -1};
    }
    return Translate(node);
}

QString ExpressionTranslator::Comparable(const Piece& piece, Yield as)
{
    switch (as) {
    case Yield::Date:
        return AsDate(piece);
    case Yield::Number:
        return AsNumber(piece);
    case Yield::Text:
        return AsText(piece) + u" COLLATE VAS"_s;
    default:
        return piece.sql;
    }
}

Yield ExpressionTranslator::CommonYield(const Piece& left, const Piece& right)
{
    for (const Yield yield : {Yield::Date, Yield::Number}) {
        if (left.yield == yield || right.yield == yield)
            return yield;
    }
    const bool leftText = left.yield == Yield::Text;
    const bool rightText = right.yield == Yield::Text;
    if (leftText != rightText && (left.yield == Yield::Truth || right.yield == Yield::Truth))
        return Yield::Number;
    return leftText || rightText ? Yield::Text : left.yield;
}

Piece ExpressionTranslator::Binary(const Expression& node)
{
    const QString& symbol = node.text;
    if (symbol == u"AND" || symbol == u"OR") {
        // A chain becomes one flat list: SQLite takes only so many parentheses inside each other.
        QStringList terms;
        const Expression* chain = &node;
        std::vector<const Expression*> links;
        for (; chain->kind == Expression::Kind::Binary && chain->text == symbol;
             chain = chain->arguments[0].get())
            links.push_back(chain->arguments[1].get());
        terms.append(Condition(*chain));
        for (auto link = links.rbegin(); link != links.rend(); ++link)
            terms.append(Condition(**link));
        return {u'(' + terms.join(u' ' + symbol + u' ') + u')', Yield::Truth, -1};
    }
    const bool compares = symbol.at(0) == u'=' || symbol.at(0) == u'<' || symbol.at(0) == u'>';
    const Piece left = compares ? WithoutCase(*node.arguments[0]) : Translate(*node.arguments[0]);
    const Piece right = compares ? WithoutCase(*node.arguments[1]) : Translate(*node.arguments[1]);
    if (compares) {
        const Yield common = CommonYield(left, right);
        return {u"(%1 %2 %3)"_s.arg(Comparable(left, common), symbol, Comparable(right, common)),
                Yield::Truth, -1};
    }
    if (symbol == u"&")
        return {u"(coalesce(%1, '') || coalesce(%2, ''))"_s.arg(AsText(left), AsText(right)), Yield::Text,
                -1};
    const bool bothText = left.yield == Yield::Text && right.yield == Yield::Text;
    if (symbol == u"+" && bothText)
        return {u"(%1 || %2)"_s.arg(left.sql, right.sql), Yield::Text, -1};
    if (symbol == u"/")
        return {u"(%1 * 1.0 / %2)"_s.arg(AsNumber(left), AsNumber(right)), Yield::Number, -1};
    const bool dates = (left.yield == Yield::Date) != (right.yield == Yield::Date) && symbol != u"*";
    const auto number = [](const Piece& piece) {
        return piece.yield == Yield::Date ? AsDate(piece) : AsNumber(piece);
    };
    return {u"(%1 %2 %3)"_s.arg(number(left), symbol, number(right)), dates ? Yield::Date : Yield::Number,
            -1};
}

/// The bounds may stand in either order.
Piece ExpressionTranslator::Between(const Expression& node)
{
    const Expression* first = node.arguments[1].get();
    const Expression* second = node.arguments[2].get();
    const std::optional<double> one = LiteralNumber(*first);
    const std::optional<double> other = LiteralNumber(*second);
    const bool known = one && other;
    if (known && *one > *other)
        std::swap(first, second);
    const Piece value = WithoutCase(*node.arguments[0]);
    const Piece low = WithoutCase(*first);
    const Piece high = WithoutCase(*second);
    Yield common = CommonYield(low, high);
    if (!Matters(common) || value.yield == Yield::Date)
        common = CommonYield(value, {QString(), common, -1});
    const QString order = known ? u"%1 AND %2"_s : u"min(%1, %2) AND max(%1, %2)"_s;
    return {u"(%1 %2BETWEEN %3)"_s.arg(Comparable(value, common), node.negated ? u"NOT "_s : QString(),
                                       order.arg(Comparable(low, common), Comparable(high, common))),
            Yield::Truth, -1};
}

Piece ExpressionTranslator::In(const Expression& node)
{
    // One comparison per value, so that each goes by its own kind as "=" does.
    const Piece value = WithoutCase(*node.arguments[0]);
    QStringList tests;
    for (std::size_t i = 1; i < node.arguments.size(); ++i) {
        const Piece other = WithoutCase(*node.arguments[i]);
        const Yield common = CommonYield(value, other);
        tests.append(u"%1 = %2"_s.arg(Comparable(value, common), Comparable(other, common)));
    }
    return {u"(%1(%2))"_s.arg(node.negated ? u"NOT "_s : QString(), tests.join(u" OR "_s)), Yield::Truth, -1};
}

Piece ExpressionTranslator::Call(const Expression& node)
{
    const auto count = static_cast<int>(node.arguments.size());
    const auto need = [&](int least, int most) {
        if (count < least || count > most)
            ThrowSyntax(m_statement, node.at,
                        u"the function %1 takes %2"_s.arg(
                            node.text, least == 0                    ? u"no arguments"_s
                                       : least == most && least == 1 ? u"one argument"_s
                                       : least == most               ? u"%1 arguments"_s.arg(least)
                                                       : u"%1 to %2 arguments"_s.arg(least).arg(most)));
    };
    const auto argument = [&](int index) {
        return Translate(*node.arguments[static_cast<std::size_t>(index)]);
    };

    if (const Aggregate* aggregate = FindAggregate(node.text)) {
        need(1, 1);
        const Piece inner = argument(0);
        Yield yield = inner.yield;
        if (aggregate->number || node.text == u"COUNT")
            yield = Yield::Number;
        const QString sql = aggregate->number ? AsNumber(inner) : inner.sql;
        return {u"%1(%2)"_s.arg(aggregate->sql, sql), yield, -1};
    }
    if (node.text == u"ISNULL") {
        need(1, 1);
        return {u"(%1 IS NULL)"_s.arg(argument(0).sql), Yield::Truth, -1};
    }
    if (node.text == u"NOW" || node.text == u"DATE") {
        need(0, 0);
        const double serial = ToSerial(m_now);
        return {Bind(node.text == u"DATE" ? std::floor(serial) : serial), Yield::Date, -1};
    }
    if (node.text == u"CDATE") {
        need(1, 1);
        return {AsDate(argument(0)), Yield::Date, -1};
    }
    if (node.text == u"ABS" || node.text == u"INT" || node.text == u"STR") {
        need(1, 1);
        const QString number = AsNumber(argument(0));
        if (node.text == u"STR")
            return {u"vas_str(%1)"_s.arg(number), Yield::Text, -1};
        return {u"%1(%2)"_s.arg(node.text == u"ABS" ? u"abs"_s : u"vas_int"_s, number), Yield::Number, -1};
    }
    if (node.text == u"NZ" || node.text == u"IIF") {
        const bool nz = node.text == u"NZ";
        need(nz ? 1 : 3, nz ? 2 : 3);
        const QString test = nz ? QString() : AsTruth(argument(0));
        const Piece first = argument(nz ? 0 : 1);
        const Piece second = nz && count == 1 ? Piece{Bind(u""_s), Yield::Text, -1} : argument(nz ? 1 : 2);
        // Both answers of one kind; of two kinds, texts.
        const bool same =
            first.yield == second.yield || second.yield == Yield::Null || first.yield == Yield::Null;
        const Yield yield = !same ? Yield::Text : first.yield == Yield::Null ? second.yield : first.yield;
        const QString one = same ? first.sql : AsText(first);
        const QString two = same ? second.sql : AsText(second);
        return {nz ? u"coalesce(%1, %2)"_s.arg(one, two) : u"iif(%1, %2, %3)"_s.arg(test, one, two), yield,
                -1};
    }
    if (node.text == u"FORMAT") {
        need(2, 2);
        const Piece value = argument(0);
        const Piece picture = argument(1);
        const Expression& pictureNode = *node.arguments[1];
        // A text is taken as a date or a number by what its picture speaks of.
        bool date = value.yield == Yield::Date;
        if (value.yield == Yield::Text && pictureNode.kind == Expression::Kind::Text)
            date = !pictureNode.text.contains(u'0') && !pictureNode.text.contains(u'#');
        return {u"vas_format(%1, %2, %3)"_s.arg(value.yield == Yield::Truth ? AsNumber(value) : value.sql,
                                                AsText(picture), date ? u"1"_s : u"0"_s),
                Yield::Text, -1};
    }
    for (const Function& row : kFunctions) {
        if (node.text != row.name)
            continue;
        need(row.least, row.most);
        QStringList arguments;
        for (int i = 0; i < count; ++i) {
            const Piece piece = argument(i);
            const bool asIs = piece.yield == Yield::Number || row.yield == Yield::Truth;
            arguments.append(asIs ? piece.sql : AsText(piece));
        }
        return {QString(row.sql).arg(arguments.join(u", "_s)), row.yield, -1};
    }
    ThrowSyntax(m_statement, node.at, u"there is no function %1"_s.arg(node.text));
}

Piece ExpressionTranslator::Translate(const Expression& node)
{
    using Kind = Expression::Kind;
    switch (node.kind) {
    case Kind::Null:
        return {u"NULL"_s, Yield::Null, -1};
    case Kind::Text:
        return {Bind(node.text.isNull() ? QString(u""_s) : node.text), Yield::Text, -1};
    case Kind::Number: {
        const bool whole = std::floor(node.number) == node.number && std::abs(node.number) < 9e15;
        return {
            Bind(whole ? QVariant::fromValue(static_cast<qlonglong>(node.number)) : QVariant(node.number)),
            Yield::Number, -1};
    }
    case Kind::Date:
        return {Bind(node.number), Yield::Date, -1};
    case Kind::Truth:
        return {node.number != 0 ? u"1"_s : u"0"_s, Yield::Truth, -1};
    case Kind::Column:
        return Column(node);
    case Kind::Negate:
        return {u"(-%1)"_s.arg(AsNumber(Translate(*node.arguments[0]))), Yield::Number, -1};
    case Kind::Not:
        return {u"(NOT %1)"_s.arg(Condition(*node.arguments[0])), Yield::Truth, -1};
    case Kind::Binary:
        return Binary(node);
    case Kind::Like: {
        const Expression& wanted = *node.arguments[1];
        if (wanted.kind == Kind::Text && HasOpenSet(wanted.text.toUtf8().constData()))
            ThrowSyntax(m_statement, wanted.at, QString::fromLatin1(kOpenSetWords));
        const Piece text = WithoutCase(*node.arguments[0]);
        const Piece pattern = WithoutCase(*node.arguments[1]);
        const bool written = wanted.kind == Kind::Text; // another is looked at row by row
        return {u"(%1vas_like(%2, %3))"_s.arg(node.negated ? u"NOT "_s : QString(), AsText(text),
                                              (written ? u"%1"_s : u"vas_pattern(%1)"_s).arg(AsText(pattern))),
                Yield::Truth, -1};
    }
    case Kind::Between:
        return Between(node);
    case Kind::In:
        return In(node);
    case Kind::IsNull:
        return {
            u"(%1 IS %2NULL)"_s.arg(Translate(*node.arguments[0]).sql, node.negated ? u"NOT "_s : QString()),
            Yield::Truth, -1};
    case Kind::Call:
        return Call(node);
    case Kind::CountAll:
        return {u"count(*)"_s, Yield::Number, -1};
    }
    return {};
}

} // namespace vasclip::engine::sql
