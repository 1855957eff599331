#pragma once

#include "platform/engine/database.h"

#include <span>

namespace vasclip::store {

/// One column of COMPS as the schema table has it.
struct CompsColumn
{
    QLatin1StringView name;
    int size; ///< characters; 0 for memo and long binary
    engine::SortsAs sorts;
    QLatin1StringView heading; ///< what people call it
};

/// The COMPS columns in the order of the table. A column of size 0 is memo, but FRONTPHOTO, which is long
/// binary.
[[nodiscard]] std::span<const CompsColumn> CompsColumns();
/// A column by name without regard to case; nullptr if COMPS has none of that name.
[[nodiscard]] const CompsColumn* FindCompsColumn(const QString& name);

/// The COMPS table: the one place that knows every field with its type and size. Templates, report databases
/// and new Databooks are built from it.
[[nodiscard]] const engine::TableDef& CompsTable();
/// The comment file: COMPS with the columns that take phrases, and CITIES.
[[nodiscard]] QList<engine::TableDef> CommentTables();
[[nodiscard]] const engine::TableDef& MappingTable();   ///< Comp2Kel
[[nodiscard]] const engine::TableDef& AppraisalTable(); ///< appraisal, of the map export

/// Rows of a new comment file: the six keys and the places of the free list.
inline constexpr int kCommentKeyRows = 6;
inline constexpr int kCommentListRows = 100;

/// Makes the file if it is not there: NEWDATA.MDB, NEWCMTS.MDB, appraisal.mbk and the four report databases
/// by their names, any other name as a Databook. COMMENTS.MDB and TEMPCMTS.MDB are made as the comment file
/// is, APPRAISAL.MDB as appraisal.mbk, Comp2Kel.mdb with its empty table. The new file appears whole or not
/// at all.
/// @throws RuntimeError 58 if a file of that name appeared meanwhile, 61, 75, 76
void MakeDatabase(engine::Engine& engine, const QString& path);

} // namespace vasclip::store
