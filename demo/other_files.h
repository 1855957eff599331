#pragma once

#include "demo/market.h"
#include "platform/files/disk.h"

namespace vasclip::demo {

/// Comps that the files below need beside those of the Databook.
inline constexpr int kStrangers = 92;

/// What came from elsewhere or lies by:
/// - `DATABOOK\IMPORT\HARBOR.MDB`, an Access file of another office with 60 comps and some pictures: six are in the
///   Databook under the same key with other values, three under another spelling of it, and five are faulty;
/// - `DATABOOK\OLDBOOK.MDB`, a Databook of 24 comps that lacks the fields which later versions added;
/// - `DATABOOK\ARCHIVE\ARCHIVE.MDB`, sales of long ago.
/// @param comps      those of the Databook
/// @param strangers  kStrangers others
/// @throws RuntimeError
void MakeOtherFiles(const files::Disk& disk, const QList<Comp>& comps, const QList<Comp>& strangers);

} // namespace vasclip::demo
