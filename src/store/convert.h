#pragma once

#include "platform/engine/convert.h"
#include "platform/engine/health.h"

namespace vasclip::store {

/// engine::ConvertDatabase, for files of this program: what their fields hold is known here, and files of the old
/// engine do not tell it.
std::optional<engine::Converted> ConvertDatabase(engine::Engine& engine, engine::Conversion conversion);

/// engine::CopyReadable, of a file of either kind.
std::optional<engine::Rescued> CopyReadable(engine::Engine& engine, const QString& source, const QString& target,
                                            const std::function<bool(qint64 records)>& step = {});

/// A free name for an Access file that a Vasclip one takes the place of: OLD_ACCESS.MDB beside OLD.MDB.
[[nodiscard]] QString KeptName(const files::Disk& disk, const QString& path);

} // namespace vasclip::store
