#pragma once

#include "forms/controls.h"
#include "store/data_source.h"
#include "store/record.h"

namespace vasclip::store {

/// Binds a source to a table or SQL text of a database file, pumping messages after each step.
/// A file that is not there: a plain box, then the program ends. @throws forms::EndOfProgram, RuntimeError
void Connect2mdb(const forms::Ports& ports, DataSource& source, const QString& path,
                 const QString& tableOrSql, SourceKind kind);

/// True if `path` is a database whose `table` holds CENTRALKEY and GLA with sizes above 0 and PHOTOS as memo.
/// Never throws.
[[nodiscard]] bool Ismdb(engine::Engine& engine, const QString& path, const QString& table) noexcept;

/// Seeks `key` (trimmed) on `index` of a table-type source and stands on the record if it is there; otherwise
/// the position stays. A blank key is not found and touches nothing.
/// @throws forms::EndOfProgram after the boxes "Database Repair Needed" (error 3800) and "Database
/// Compression Needed" (error 91); RuntimeError for all that the central error block does not handle
[[nodiscard]] bool FindRecord(const forms::Ports& ports, DataSource& source, const QString& key,
                              const QString& index);

/// ReadRecord of the one cursor's table, with the boxes of FindRecord for one that can't be looked up in. Nothing moves
/// and the queue does not turn. @throws as FindRecord
[[nodiscard]] std::optional<Record> ReadRecord(const forms::Ports& ports, const DataSource& source, const QString& key);

/// Updates a record that is in edit mode and stands on the record of `key`; a miss shows its box and goes on.
void Updateandfind(const forms::Ports& ports, DataSource& source, const QString& key);

/// Deletes the record of `key` if there is one.
void DeleteRecord(const forms::Ports& ports, DataSource& source, const QString& key);

/// Trimmed text of a field of the current record, "" for Null.
[[nodiscard]] QString GetFieldData(const DataSource& source, const QString& field);

/// A column of the table or query, by its name in any case; nullptr if there is none.
[[nodiscard]] const engine::Field* FindField(const DataSource& source, const QString& field);
/// Its size in characters, 0 if there is none.
[[nodiscard]] int SizeOf(const DataSource& source, const QString& field);

/// Stores a text in a field of the current record, which must be in edit mode.
void SetFieldData(DataSource& source, const QString& value, const QString& field);

/// The value trimmed, padded with blanks and cut to the field's size: always exactly as long as the field.
[[nodiscard]] QString Trim2Size(const DataSource& source, const QString& value, const QString& field);
/// The `Val` of the text so cut.
[[nodiscard]] double TrimNum2Size(const DataSource& source, const QString& value, const QString& field);

void DropTheTable(engine::Engine& engine, const QString& path, const QString& table);
/// Primary index `Centralkey` on the field `Centralkey`.
void CreateIndex(engine::Engine& engine, const QString& path, const QString& table);
/// Every user table of the database; system names are left out.
void ListTables(engine::Engine& engine, const QString& path, forms::ListBox& list);

/// File attributes: 0 normal, 1 read-only, 2 hidden. A failure shows its box and goes on.
void DalmoSetReadWriteBit(const forms::Ports& ports, const files::Disk& disk, const QString& path, int mode);

/// The databases of a directory that a user may switch to: those that `Ismdb` accepts, without the templates
/// and the comment file.
[[nodiscard]] QStringList OfferedDatabases(engine::Engine& engine, const QString& directory,
                                           const QString& table);

/// Sources per purpose, as the main window holds them.
struct Sources
{
    explicit Sources(engine::Engine& engine);
    DataSource datDatabook, datsql, datCentralKey, datComps, datcomments, datnewcmts, datnewcomps, datmap,
        datComp2Kel_CURRENT;

    /// A source by its name without regard to case; nullptr if there is none of that name.
    [[nodiscard]] const DataSource* Find(const QString& name) const;
};

/// GetFieldData of a named source. @throws RuntimeError 91 for a name that no source has
[[nodiscard]] QString GetData(const Sources& sources, const QString& name, const QString& field);

/// Binds `datDatabook` (table) and `datsql` (dynaset) to the Databook and refreshes both.
void Connect2Databook(const forms::Ports& ports, Sources& sources, const QString& path, const QString& table);

} // namespace vasclip::store
