#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/text/time_source.h"

namespace vasclip::engine::sql {

/// Reads one statement. A semicolon may end it; whatever follows is an error.
/// @throws 3075 with the place and the text near it
[[nodiscard]] Statement Parse(const QString& text, const text::TimeSource& time);

/// Reads what may stand behind a WHERE, by itself: a condition, and a sort behind it or none. Nothing follows, not even a
/// semicolon.
/// @return `where` and `order` alone. @throws 3075 with the place in this text
[[nodiscard]] Statement ParseCondition(const QString& text, const text::TimeSource& time);

} // namespace vasclip::engine::sql
