#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/engine/database.h"
#include "store/data_source.h"

namespace vasclip::databook {

/// Renews the scratch file tempdat.mdb of G_UserDir from the reference files of G_ProgramDir: newdata.mdb, newcmts.mdb
/// and appraisal.mbk, each over the one before, as far as they are there. One that is the same already stays.
/// @throws RuntimeError of the disk
void CopyFromNewFiles(const files::Disk& disk, const common::Globals& globals);

/// Copies NEWDATA.MDB to TEMPCOMP.MDB of G_DataDir and NEWCMTS.MDB to TEMPCMTS.MDB of G_UserDir.
/// @throws RuntimeError 53 without one of them, and those of the disk
void Copy2Temp(engine::Engine& engine, const common::Globals& globals);

/// Has the table as many fields as the reference? Without a template the program's own list of fields is the reference.
/// @throws forms::EndOfProgram after its box, if the reference can't be read
/// @throws RuntimeError if the Databook can't be
[[nodiscard]] bool HasAllFields(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                                const QString& path, const QString& table);

/// Compares a Databook with the template by the number of fields. If they differ it asks, and on Yes appends the fields
/// that older files lack, all or none, with the file to itself. The test is on equality: a table that still differs asks
/// again at the next start. A file that can't be read is left to whoever opens it. What
/// disk or engine refuse is told, and the old table goes on.
/// @param datDatabook  lets go of the file meanwhile
/// @throws forms::EndOfProgram as HasAllFields
void CheckCompDBF2(const forms::Ports& ports, engine::Engine& engine, const common::Globals& globals,
                   store::DataSource& datDatabook, const QString& path, const QString& table);

} // namespace vasclip::databook
