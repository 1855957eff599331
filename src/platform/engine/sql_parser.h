#pragma once

#include "platform/engine/sql_ast.h"
#include "platform/text/time_source.h"

namespace vasclip::engine::sql {

/// Reads one statement. A semicolon may end it; whatever follows is an error.
/// @throws 3075 with the place and the text near it
[[nodiscard]] Statement Parse(const QString& text, const text::TimeSource& time);

} // namespace vasclip::engine::sql
