#pragma once

#include "demo/market.h"
#include "platform/engine/database.h"

#include <functional>

namespace vasclip::demo {

/// Makes the Databook with these comps, in one transaction.
/// @throws RuntimeError, also for a value that is longer than its field
void MakeDatabook(engine::Engine& engine, const QString& path, const QList<Comp>& comps);

/// Appends comps to the table COMPS of a database.
/// @param more  fills what else a row has. @throws as MakeDatabook
void AddComps(engine::Database& database, const QList<Comp>& comps,
              const std::function<void(engine::Recordset& row, const Comp& comp)>& more = {});

/// Makes the comment library with phrases for the fields that appraisers fill by key, and its city list.
void MakeComments(engine::Engine& engine, const QString& path);

/// The PHOTOS text of a record: a line of view, "|", stem, CR LF for each picture; a blank without any.
[[nodiscard]] QString PhotosText(const QList<Photo>& photos);

} // namespace vasclip::demo
