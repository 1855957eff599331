#pragma once

#include "upkeep/layout_words.h"
#include "upkeep/report_layout.h"

namespace vasclip::upkeep {

/// May a template name columns of the record?
enum class Columns { No, Yes };

// What stands within the lines of a layout. All throw LayoutError.

/// A text in quotes with fields in it. @throws LayoutError at the column of what is wrong within it
[[nodiscard]] Template ReadTemplate(LineReader& line, Columns columns);
/// The name of a column of COMPS, in capitals.
[[nodiscard]] QString ReadField(LineReader& line);
/// "as money", if it is there.
[[nodiscard]] Format ReadFormat(LineReader& line, Format otherwise);
/// What people call a column; "" for one that is not there.
[[nodiscard]] QString HeadingOf(const QString& field);

} // namespace vasclip::upkeep
