#pragma once

#include "databook/record_actions.h"

namespace vasclip::databook {

/// The keys of the rows that are selected in the grid, in its order.
[[nodiscard]] QStringList SelectedKeys(const forms::Grid& grid);
/// The key of the row that comes to stand where the selected rows, or the current one, stood: the next one,
/// else the one before; "" if there is neither.
[[nodiscard]] QString KeyBeside(const forms::Grid& grid);

/// Asks once for all of them, then deletes each record and its pictures as the deletion of one does, with the
/// gauge and its button to stop after the record at work. What cannot be deleted is named at the end; one that
/// somebody else has deleted meanwhile is no failure.
/// @param beside  the record to stand on afterwards
void CompDeleteRecords(const RecordWork& work, const QStringList& keys, const QString& beside);

} // namespace vasclip::databook
