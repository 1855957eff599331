#pragma once

#include "platform/engine/types.h"

#include <QJsonValue>
#include <QString>
#include <QVariant>

namespace vasclip::vasctl {

/// What a column holds, for --json.
enum class Kind { Text, Number, Date };

/// Of a column of the Databook, by the schema; text for every other one.
[[nodiscard]] Kind KindOf(const QString& column);

/// A stored text as a program wants it: a number as such, a whole date as YYYY-MM-DD, null for a blank one of
/// either. A text that is none of its kind stays as it is stored, so that nothing is lost.
[[nodiscard]] QJsonValue AsJson(Kind kind, const QString& text);

/// A value of a query: null for Null, true or false, numbers as such, a date as YYYY-MM-DD, with a time as
/// YYYY-MM-DDTHH:MM:SS, {"bytes": N} for what is no text. Texts go without the blanks behind them.
/// @param text  the value as people see it. @param kind  what texts of the column hold
[[nodiscard]] QJsonValue AsJson(const engine::Field& field, const QVariant& value, const QString& text, Kind kind);

} // namespace vasclip::vasctl
