#pragma once

#include "forms/controls.h"
#include "platform/engine/database.h"

namespace vasclip::upkeep {

/// Does a name belong to the engine's own tables, which no list shows?
[[nodiscard]] bool IsSystemTable(const QString& name);

/// The tables of a database file that are not the system's own. The file is open for reading only meanwhile.
/// @param damage  what is known of it, "" for nothing
/// @throws RuntimeError of the engine
[[nodiscard]] QStringList TablesOf(engine::Engine& engine, const QString& file, QString* damage = nullptr);

/// Fills a list with the tables of a file and selects the one of this name, else the first; a file that is not
/// there has none. @return why it can't be read, "" if it can
QString ListTheTables(engine::Engine& engine, const QString& file, forms::ListBox& list,
                      const QString& selected = {});

/// The same with the sheets of a spreadsheet file; a text file has none.
QString ListTheSheets(const files::Disk& disk, const QString& file, forms::ListBox& list, const QString& selected);

/// Records of a table of a file. @param damage  what the count found of it. @throws RuntimeError of the engine
[[nodiscard]] qint64 CountOf(engine::Engine& engine, const QString& file, const QString& table, QString* damage = nullptr);
/// "FILE is damaged, and not all of it can be read: ...", "" for none.
[[nodiscard]] QString DamagedFileWords(const QString& file, const QString& damage);

/// Runs "DROP TABLE " on the file. @throws RuntimeError 3376 if there is none, 3211 if it is in use
void DeleteTable(engine::Engine& engine, const QString& file, const QString& table);

/// Adds the primary index Centralkey to a table that lacks it and has the field.
/// @throws RuntimeError 3022 where two records have one key
void AddKeyIndex(engine::Engine& engine, const QString& file, const QString& table);

} // namespace vasclip::upkeep
