#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "store/store.h"

#include <functional>

namespace vasclip::databook {

/// Opens another Databook in place of the one that the settings name, whole or not at all; the settings follow.
/// @param directory  with a backslash
/// @param opening    runs before the present one is let go, once the other one is known to be a Databook: what shows its
///                   records has to let go of them
/// @return false if the present one stays, which has been told
bool SwitchDatabook(const forms::Ports& ports, store::Sources& sources, common::Globals& globals,
                    const QString& directory, const QString& file, const std::function<void()>& opening);

} // namespace vasclip::databook
