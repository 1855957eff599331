#pragma once

#include "platform/engine/types.h"
#include "platform/text/time_source.h"

#include <QDateTime>
#include <QVariant>

namespace vasclip::engine {

/// Days from 30 December 1899, the time of day as a fraction: how a date field is stored.
[[nodiscard]] double ToSerial(const QDateTime& value);
[[nodiscard]] QDateTime FromSerial(double serial);
/// "M/D/YYYY", with the time behind it unless that is midnight.
[[nodiscard]] QString DateToText(const QDateTime& value);

/// A value as a field of that type and size holds it. A null one stays null.
/// @throws 3163 too long for the field, 3421 of a type that cannot be converted, 3315 empty text where none
/// may be
[[nodiscard]] QVariant FitToField(const Field& field, const QVariant& value,
                                  const text::TimeSource& time);

// What a statement says of a value that its field cannot take.
[[noreturn]] void ThrowTooLong(const QString& field, int size); ///< @throws 3163
[[noreturn]] void ThrowNeeded(const QString& field);            ///< @throws 3314
[[noreturn]] void ThrowOpenSet();                               ///< of a pattern of LIKE; @throws 3075

/// "Text", "Memo", ...: for messages.
[[nodiscard]] QString TypeName(FieldType type);

} // namespace vasclip::engine
