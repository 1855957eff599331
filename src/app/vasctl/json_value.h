#pragma once

#include <QJsonValue>
#include <QString>

namespace vasclip::vasctl {

/// What a column holds, for --json.
enum class Kind { Text, Number, Date };

/// Of a column of the Databook, by the schema; text for every other one.
[[nodiscard]] Kind KindOf(const QString& column);

/// A stored text as a program wants it: a number as such, a whole date as YYYY-MM-DD, null for a blank one of
/// either. A text that is none of its kind stays as it is stored, so that nothing is lost.
[[nodiscard]] QJsonValue AsJson(Kind kind, const QString& text);

} // namespace vasclip::vasctl
