#pragma once

#include "platform/engine/database.h"

namespace vasclip::store {

/// The COMPS table: the one place that knows every field with its type and size. Templates, report databases
/// and new Databooks are built from it.
[[nodiscard]] const engine::TableDef& CompsTable();
/// The comment file: COMPS with the columns that take phrases, and CITIES.
[[nodiscard]] QList<engine::TableDef> CommentTables();
[[nodiscard]] const engine::TableDef& MappingTable();   ///< Comp2Kel
[[nodiscard]] const engine::TableDef& AppraisalTable(); ///< appraisal, of the map export

/// Makes the file if it is not there: NEWDATA.MDB, NEWCMTS.MDB, appraisal.mbk and the four report databases by
/// their names, any other name as a Databook. The new file appears whole or not at all.
void MakeDatabase(engine::Engine& engine, const QString& path);

} // namespace vasclip::store
