#pragma once

#include "platform/engine/sql_typed.h"
#include "platform/text/time_source.h"

namespace vasclip::engine::sql {

// Values while a statement is worked out: an invalid QVariant is Null, else QString, double (numbers, and dates
// as serials), bool or QByteArray by the node's `Yield`.

/// A stored value as expressions take it.
[[nodiscard]] QVariant FromField(const QVariant& value);
/// A worked-out value as a field of that type shows it.
[[nodiscard]] QVariant ToField(const QVariant& value, FieldType type);

[[nodiscard]] double AsNumber(const QVariant& value);                ///< of a text what it begins with
[[nodiscard]] QVariant AsSerial(const QVariant& value, const text::TimeSource& time); ///< Null for a text that is no date
[[nodiscard]] QString AsText(const QVariant& value, bool date);      ///< of a number without a leading blank

/// Below, equal to or above 0; Null lies before everything. Texts without regard to case and trailing blanks.
[[nodiscard]] int Compare(const QVariant& left, const QVariant& right);

/// What a function gives for these arguments; `If` and `Coalesce` are not among them.
[[nodiscard]] QVariant Call(Function function, const QVariantList& arguments, const text::TimeSource& time);

} // namespace vasclip::engine::sql
