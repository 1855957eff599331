#pragma once

#include "kelforms/app/options.h"
#include "kelforms/app/service.h"

namespace kelforms {

/// Shows the program's window and serves the link until it is closed.
/// @return the exit code
/// @throws RuntimeError as Service::Listen
int RunWindow(Service& service, const Options& options);

} // namespace kelforms
