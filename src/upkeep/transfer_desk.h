#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "store/data_source.h"

#include <functional>

namespace vasclip::upkeep {

/// What export and import work on.
struct TransferDesk
{
    store::DataSource& databook; ///< bound to the open Databook
    const common::Globals& globals;
    forms::Ports ports;

    [[nodiscard]] engine::Engine& Engine() const { return databook.Engine(); }
    [[nodiscard]] const files::Disk& Disk() const { return Engine().Disk(); }
    [[nodiscard]] const QString& Databook() const { return databook.DatabaseName(); }
    /// Where the empty database is looked for.
    [[nodiscard]] QStringList Templates() const { return {globals.G_DataDir, globals.G_ProgramDir}; }
};

/// Told of each step of long work. @return false stops it
using WorkStep = std::function<bool(qint64 done, qint64 of, const QString& words)>;

} // namespace vasclip::upkeep
