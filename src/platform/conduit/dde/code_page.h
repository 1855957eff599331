#pragma once

#include "platform/conduit/dde/limits.h"

#include <memory>

namespace vasclip::conduit::dde {

/// A code page of the system.
/// @param number  0: the system's own
/// @throws Failure (Why::Refused) if the system has none of that number, or it is not one of plain bytes
[[nodiscard]] std::shared_ptr<const CodePage> SystemCodePage(unsigned number);

} // namespace vasclip::conduit::dde
