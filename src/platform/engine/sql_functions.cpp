#include "platform/engine/sql_functions.h"

#include "platform/engine/collation.h"
#include "platform/engine/text_values.h"
#include "platform/engine/values.h"
#include "platform/text/dates.h"
#include "platform/text/text.h"

#include <algorithm>
#include <cmath>

namespace vasclip::engine::sql {

using namespace Qt::Literals::StringLiterals;

namespace {

bool IsText(const QVariant& value)
{
    return value.typeId() == QMetaType::QString;
}

QString TextOf(const QVariant& value)
{
    return IsText(value) ? value.toString() : text::Str(value.toDouble()).trimmed();
}

/// A count of characters, never below 0 and never beyond what a text can hold.
qsizetype CountOf(const QVariant& value)
{
    constexpr double kMost = 1e9;
    return static_cast<qsizetype>(std::nearbyint(std::clamp(AsNumber(value), 0.0, kMost)));
}

/// Takes off blanks alone.
QString WithoutBlanks(const QString& text, bool front, bool back)
{
    qsizetype first = 0;
    qsizetype last = text.size();
    while (front && first < last && text[first] == u' ')
        ++first;
    while (back && last > first && text[last - 1] == u' ')
        --last;
    return text.mid(first, last - first);
}

/// 1-based place without regard to case, 0 for none; the first of three arguments is where to begin.
double PlaceOf(const QVariantList& arguments)
{
    const qsizetype start = arguments.size() > 2 ? std::max<qsizetype>(CountOf(arguments[0]), 1) - 1 : 0;
    const QString text = TextOf(arguments[arguments.size() - 2]);
    return static_cast<double>(text.indexOf(TextOf(arguments.back()), start, Qt::CaseInsensitive) + 1);
}

QVariant FormatDate(const QVariantList& arguments, const text::TimeSource& time)
{
    const QVariant serial = AsSerial(arguments[0], time);
    return serial.isValid() ? text::Format(FromSerial(serial.toDouble()), TextOf(arguments[1]))
                            : TextOf(arguments[0]);
}

} // namespace

QVariant FromField(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
    case QMetaType::QString:
    case QMetaType::QByteArray:
    case QMetaType::Bool:
        return value;
    case QMetaType::QDateTime:
        return ToSerial(value.toDateTime());
    default:
        return value.toDouble();
    }
}

QVariant ToField(const QVariant& value, FieldType type)
{
    if (!value.isValid())
        return {};
    switch (type) {
    case FieldType::Byte:
    case FieldType::Integer:
    case FieldType::Long:
        return QVariant::fromValue(static_cast<qlonglong>(value.toDouble()));
    case FieldType::Date:
        return FromSerial(value.toDouble());
    case FieldType::Boolean:
        return value.toBool();
    case FieldType::Currency:
    case FieldType::Single:
    case FieldType::Double:
        return AsNumber(value);
    case FieldType::Text:
    case FieldType::Memo:
        return TextOf(value);
    case FieldType::Binary:
    case FieldType::LongBinary:
        break;
    }
    return value;
}

double AsNumber(const QVariant& value)
{
    if (IsText(value))
        return NumberOf(value.toString().toStdString());
    return value.typeId() == QMetaType::Bool ? (value.toBool() ? -1 : 0) : value.toDouble();
}

QVariant AsSerial(const QVariant& value, const text::TimeSource& time)
{
    if (!IsText(value))
        return value.isValid() ? QVariant(AsNumber(value)) : QVariant();
    double serial = 0;
    return SerialOf(value.toString().toStdString(), time, serial) ? QVariant(serial) : QVariant();
}

QString AsText(const QVariant& value, bool date)
{
    if (IsText(value))
        return value.toString();
    return date ? DateToText(FromSerial(value.toDouble())) : text::Str(AsNumber(value)).trimmed();
}

int Compare(const QVariant& left, const QVariant& right)
{
    if (!left.isValid() || !right.isValid())
        return int{left.isValid()} - int{right.isValid()};
    if (IsText(left))
        return CompareText(left.toString().toStdString(), right.toString().toStdString());
    if (left.typeId() == QMetaType::QByteArray)
        return left.toByteArray().compare(right.toByteArray());
    const double l = left.toDouble();
    const double r = right.toDouble();
    return l < r ? -1 : l > r ? 1 : 0;
}

QVariant Call(Function function, const QVariantList& arguments, const text::TimeSource& time)
{
    const bool anyNull = std::any_of(arguments.begin(), arguments.end(),
                                     [](const QVariant& argument) { return !argument.isValid(); });
    if (function == Function::IsDate)
        return AsSerial(arguments[0], time).isValid();
    if (anyNull)
        return {};
    const auto text = [&](int index) { return TextOf(arguments[index]); };
    switch (function) {
    case Function::Upper:
        return text(0).toUpper();
    case Function::Lower:
        return text(0).toLower();
    case Function::Trim:
        return WithoutBlanks(text(0), true, true);
    case Function::LeftTrim:
        return WithoutBlanks(text(0), true, false);
    case Function::RightTrim:
        return WithoutBlanks(text(0), false, true);
    case Function::Val:
        return AsNumber(arguments[0]);
    case Function::Len:
        return static_cast<double>(text(0).size());
    case Function::Left:
        return text(0).left(CountOf(arguments[1]));
    case Function::Right:
        return text(0).right(CountOf(arguments[1]));
    case Function::Mid:
        return text(0).mid(std::max<qsizetype>(CountOf(arguments[1]), 1) - 1,
                           arguments.size() > 2 ? CountOf(arguments[2]) : -1);
    case Function::InStr:
        return PlaceOf(arguments);
    case Function::Str:
        return text::Str(AsNumber(arguments[0]));
    case Function::Absolute:
        return std::abs(AsNumber(arguments[0]));
    case Function::Int:
        return std::floor(AsNumber(arguments[0]));
    case Function::FormatNumber:
        return text::Format(AsNumber(arguments[0]), text(1));
    case Function::FormatDate:
        return FormatDate(arguments, time);
    case Function::IsDate:
    case Function::Coalesce:
    case Function::If:
        break;
    }
    return {};
}

} // namespace vasclip::engine::sql
