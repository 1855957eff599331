#pragma once

#include "house/include_graph.h"

namespace vasclip::house {

/// The .cpp files that no build list names, one sentence each: a test that nobody compiles proves nothing. A list of the
/// file's folder or of one above names it alone, another list with a folder before it; "x_${system}.cpp" names both systems'.
/// @param files  .cpp files and CMakeLists.txt, by their path from the root; the text of the former is not looked at
[[nodiscard]] QStringList NotBuilt(const Sources& files);

/// All of both kinds in the folders that are compiled.
[[nodiscard]] Sources ReadBuildFiles(const QString& projectDirectory);

} // namespace vasclip::house
