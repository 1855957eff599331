#pragma once

#include "platform/engine/convert.h"
#include "platform/engine/health.h"

namespace vasclip::store {

using namespace Qt::StringLiterals;

/// engine::ConvertDatabase, for files of this program: what their fields hold is known here, and files of the old
/// engine do not tell it.
std::optional<engine::Converted> ConvertDatabase(engine::Engine& engine, engine::Conversion conversion);

/// engine::CopyReadable, of a file of either kind.
std::optional<engine::Rescued> CopyReadable(engine::Engine& engine, const QString& source, const QString& target,
                                            const std::function<bool(qint64 records)>& step = {});

/// What only the old file has, in a sentence without its full stop; "" where that is nothing.
/// @param file  the old one's path, under which it is afterwards
[[nodiscard]] QString OnlyInOld(const engine::Converted& made, const QString& file);
/// Things one after the other, of many only the first.
[[nodiscard]] QString Listed(const QStringList& things, const QString& between = u", "_s);

/// A free name for an Access file that a Vasclip one takes the place of: OLD_ACCESS.MDB beside OLD.MDB.
[[nodiscard]] QString KeptName(const files::Disk& disk, const QString& path);

} // namespace vasclip::store
