#pragma once

#include "map/exports.h"

namespace vasclip::shell {

class Program;

/// What the entries under "Export Address/Comp Data" work on.
[[nodiscard]] map::ExportDesk Exports(Program& program);

} // namespace vasclip::shell
