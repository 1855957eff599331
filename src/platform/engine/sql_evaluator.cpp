#include "platform/engine/sql_evaluator.h"

#include "platform/engine/collation.h"
#include "platform/engine/values.h"

#include <algorithm>
#include <cmath>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

QVariant Negated(const QVariant& truth, bool negated)
{
    return truth.isValid() ? QVariant(truth.toBool() != negated) : QVariant();
}

bool Agrees(Operator operation, int order)
{
    switch (operation) {
    case Operator::Equal:
        return order == 0;
    case Operator::NotEqual:
        return order != 0;
    case Operator::Less:
        return order < 0;
    case Operator::LessEqual:
        return order <= 0;
    case Operator::Greater:
        return order > 0;
    default:
        return order >= 0;
    }
}

QVariant LiteralOf(const Typed& node)
{
    return node.yield == Yield::Null ? QVariant() : FromField(node.value);
}

} // namespace

bool Evaluator::Holds(const TypedPtr& condition) const
{
    return !condition || Evaluate(*condition).toBool();
}

QVariant Evaluator::Converted(const Typed& node) const
{
    const QVariant value = Argument(node, 0);
    if (!value.isValid())
        return {};
    const Yield from = node.arguments[0]->yield;
    switch (node.yield) {
    case Yield::Truth:
        return value.toDouble() != 0;
    case Yield::Number:
        return AsNumber(value);
    case Yield::Date:
        return AsSerial(value, m_time);
    case Yield::Text:
        return from == Yield::Binary ? value : QVariant(AsText(value, from == Yield::Date));
    default:
        return value;
    }
}

/// AND and OR of three truths: the deciding one wins over an unknown one.
QVariant Evaluator::Chain(const Typed& node, bool deciding) const
{
    bool unknown = false;
    for (const TypedPtr& argument : node.arguments) {
        const QVariant truth = Evaluate(*argument);
        if (truth.isValid() && truth.toBool() == deciding)
            return deciding;
        unknown = unknown || !truth.isValid();
    }
    return unknown ? QVariant() : QVariant(!deciding);
}

QVariant Evaluator::Compared(const Typed& node) const
{
    const QVariant left = Argument(node, 0);
    const QVariant right = Argument(node, 1);
    if (!left.isValid() || !right.isValid())
        return {};
    return Agrees(node.operation, Compare(left, right));
}

QVariant Evaluator::Between(const Typed& node) const
{
    const QVariant value = Argument(node, 0);
    QVariant low = Argument(node, 1);
    QVariant high = Argument(node, 2);
    if (!node.ordered) {
        // An unknown bound leaves the order unknown, and with it both.
        if (!low.isValid() || !high.isValid())
            return {};
        if (Compare(high, low) < 0)
            std::swap(low, high);
    }
    if (!value.isValid())
        return {};
    return (Compare(value, low) >= 0 && Compare(value, high) <= 0) != node.negated;
}

QVariant Evaluator::Joined(const Typed& node) const
{
    QString joined;
    for (const TypedPtr& argument : node.arguments) {
        const QVariant text = Evaluate(*argument);
        if (!text.isValid() && node.kind == Typed::Kind::Join)
            return {};
        joined += text.toString();
    }
    return joined.isNull() ? QString(u""_s) : joined;
}

QVariant Evaluator::Arithmetic(const Typed& node) const
{
    const QVariant left = Argument(node, 0);
    const QVariant right = Argument(node, 1);
    if (!left.isValid() || !right.isValid())
        return {};
    const double l = left.toDouble();
    const double r = right.toDouble();
    switch (node.operation) {
    case Operator::Plus:
        return l + r;
    case Operator::Minus:
        return l - r;
    case Operator::Times:
        return l * r;
    default:
        return r == 0 ? QVariant() : QVariant(l / r);
    }
}

QVariant Evaluator::Called(const Typed& node) const
{
    if (node.function == Function::If)
        return Argument(node, Argument(node, 0).toBool() ? 1 : 2);
    if (node.function == Function::Coalesce) {
        const QVariant first = Argument(node, 0);
        return first.isValid() ? first : Argument(node, 1);
    }
    QVariantList arguments;
    for (const TypedPtr& argument : node.arguments)
        arguments.append(Evaluate(*argument));
    return Call(node.function, arguments, m_time);
}

QVariant Evaluator::Aggregated(const Typed& node) const
{
    if (node.kind == Typed::Kind::CountAll)
        return static_cast<double>(m_rows.size());
    QVariantList values;
    for (const RowValues& row : m_rows) {
        QVariant value = Evaluator(row, m_time).Argument(node, 0);
        if (value.isValid())
            values.append(std::move(value));
    }
    if (node.aggregate == Aggregate::Count)
        return static_cast<double>(values.size());
    if (values.isEmpty())
        return {};
    const auto less = [](const QVariant& left, const QVariant& right) { return Compare(left, right) < 0; };
    if (node.aggregate == Aggregate::Least)
        return *std::min_element(values.begin(), values.end(), less);
    if (node.aggregate == Aggregate::Greatest)
        return *std::max_element(values.begin(), values.end(), less);
    double sum = 0;
    for (const QVariant& value : std::as_const(values))
        sum += value.toDouble();
    return node.aggregate == Aggregate::Sum ? sum : sum / static_cast<double>(values.size());
}

QVariant Evaluator::Evaluate(const Typed& node) const
{
    using Kind = Typed::Kind;
    switch (node.kind) {
    case Kind::Literal:
        return LiteralOf(node);
    case Kind::Column:
        return m_row ? FromField(m_row(node.field)) : QVariant();
    case Kind::Convert:
        return Converted(node);
    case Kind::Whole: {
        const QVariant number = Argument(node, 0);
        return number.isValid() ? QVariant(std::round(number.toDouble())) : QVariant();
    }
    case Kind::Negate: {
        const QVariant number = Argument(node, 0);
        return number.isValid() ? QVariant(-number.toDouble()) : QVariant();
    }
    case Kind::Not:
        return Negated(Argument(node, 0), true);
    case Kind::And:
        return Chain(node, false);
    case Kind::Or:
        return Chain(node, true);
    case Kind::Compare:
        return Compared(node);
    case Kind::Between:
        return Between(node);
    case Kind::Like: {
        const QVariant text = Argument(node, 0);
        const QVariant pattern = Argument(node, 1);
        if (!text.isValid() || !pattern.isValid())
            return {};
        const std::string wanted = pattern.toString().toStdString();
        if (HasOpenSet(wanted))
            ThrowOpenSet();
        return Negated(MatchesPattern(text.toString().toStdString(), wanted), node.negated);
    }
    case Kind::IsNull:
        return Argument(node, 0).isValid() == node.negated;
    case Kind::Join:
    case Kind::Concat:
        return Joined(node);
    case Kind::Arithmetic:
        return Arithmetic(node);
    case Kind::Call:
        return Called(node);
    case Kind::Aggregated:
    case Kind::CountAll:
        return Aggregated(node);
    case Kind::Fit: {
        const QVariant text = Argument(node, 0);
        if (text.toString().size() > node.size)
            ThrowTooLong(node.value.toString(), node.size);
        return text;
    }
    case Kind::Need: {
        const QVariant value = Argument(node, 0);
        if (!value.isValid())
            ThrowNeeded(node.value.toString());
        return value;
    }
    }
    return {};
}

} // namespace vasclip::engine::sql
