#include "platform/desktop/one_copy.h"

namespace vasclip::desktop {

// The lock on the home's file is all: it holds on every disk of the system's own.
void OneCopy::TakeName(const QString&) {}

OneCopy::~OneCopy() = default;

} // namespace vasclip::desktop
