#pragma once

#include "house/include_graph.h"

namespace vasclip::house {

/// What breaks the rules of the program and its main screen, one sentence each: a menu entry that is told by its number
/// or its menu's name outside the table of menus, a screen in vasctl, a disk or an engine made beside the program's, a main
/// screen or window that has grown large.
[[nodiscard]] QStringList ProgramViolations(const Sources& sources);

} // namespace vasclip::house
