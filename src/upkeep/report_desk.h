#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/engine/database.h"

namespace vasclip::upkeep {

/// What the screens of printing work on; all of it outlives them.
struct ReportDesk
{
    const forms::Ports& ports;
    engine::Engine& engine;
    const files::Disk& disk;
    const common::Globals& globals;
    QString databook; ///< drive path of the file that is open
};

} // namespace vasclip::upkeep
