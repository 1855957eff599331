#include "platform/engine/same_value.h"

#include "platform/engine/long_source.h"
#include "platform/engine/values.h"

#include <cmath>

namespace vasclip::engine {

namespace {

QStringView WithoutMark(const QString& text)
{
    return text.startsWith(QChar(u'\uFEFF')) ? QStringView(text).mid(1) : QStringView(text);
}

} // namespace

bool SameValue(const Field& field, const QVariant& left, const QVariant& right)
{
    if (left.isValid() != right.isValid())
        return false;
    if (!left.isValid())
        return true;
    switch (field.type) {
    case FieldType::Text:
    case FieldType::Memo:
        return WithoutMark(left.toString()) == WithoutMark(right.toString());
    case FieldType::Date: {
        constexpr double kMillisecond = 1.0 / 86'400'000;
        return std::abs(ToSerial(left.toDateTime()) - ToSerial(right.toDateTime())) < kMillisecond;
    }
    case FieldType::Currency: {
        constexpr double kUnits = 10'000;
        return std::nearbyint(left.toDouble() * kUnits) == std::nearbyint(right.toDouble() * kUnits);
    }
    case FieldType::Single:
        return static_cast<float>(left.toDouble()) == static_cast<float>(right.toDouble());
    case FieldType::LongBinary: {
        const LongSource* const one = LongSourceOf(left);
        const LongSource* const other = LongSourceOf(right);
        return one != nullptr && other != nullptr ? SameBytes(*one, *other) : WholeValue(left) == WholeValue(right);
    }
    default:
        return left == right;
    }
}

} // namespace vasclip::engine
