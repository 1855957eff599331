#pragma once

#include "platform/engine/types.h"

#include <QDateTime>
#include <QVariant>

struct sqlite3_stmt;

namespace vasclip::engine {

/// Days from 30 December 1899, the time of day as a fraction: how a date field is stored.
[[nodiscard]] double ToSerial(const QDateTime& value);
[[nodiscard]] QDateTime FromSerial(double serial);
/// "M/D/YYYY", with the time behind it unless that is midnight.
[[nodiscard]] QString DateToText(const QDateTime& value);

/// A value as a field of that type and size holds it. A null one stays null.
/// @throws 3163 too long for the field, 3421 of a type that cannot be converted, 3315 empty text where none
/// may be
[[nodiscard]] QVariant FitToField(const Field& field, const QVariant& value);

/// Binds a value as it is stored; an invalid QVariant is Null. @return the code of SQLite
[[nodiscard]] int BindValue(sqlite3_stmt* statement, int index, const QVariant& value);

/// Reads a column of the current row as a value of that type.
[[nodiscard]] QVariant ReadValue(sqlite3_stmt* statement, int column, FieldType type);

/// "Text", "Memo", ...: for messages.
[[nodiscard]] QString TypeName(FieldType type);

} // namespace vasclip::engine
