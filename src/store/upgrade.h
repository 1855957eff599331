#pragma once

#include "common/globals.h"
#include "forms/ports.h"
#include "platform/engine/database.h"

#include <memory>
#include <optional>

// The steps by which a file of an older version gets the fields that it lacks. Whether it needs them is told by the
// number of its fields alone.

namespace vasclip::store {

/// May fields be appended to a database? Not to one of Access, nor to one that this user can't write.
/// @throws RuntimeError when it can't be read
[[nodiscard]] bool TakesFields(engine::Engine& engine, const QString& path);

using namespace Qt::StringLiterals;

inline const QString kUpdated =
    u"The modifications to the database(s) were successful and the data is ready for use."_s;
inline const QString kTableInUse =
    u"The database engine could not lock table 'COMPS' because it is already in use by another person "
    "or process. The update cannot continue."_s;

/// How many fields a table of a file has. @throws RuntimeError if it can't be read
[[nodiscard]] qsizetype FieldCount(engine::Engine& engine, const QString& path,
                                   const QString& table = u"COMPS"_s);

/// How many the template newdata.mdb has, of G_UserDir, else of G_ProgramDir.
/// @return nothing if that can't be read, which has been told: an installation without its templates still works
[[nodiscard]] std::optional<qsizetype> ReferenceCount(const forms::Ports& ports, engine::Engine& engine,
                                                      const common::Globals& globals);

/// A file with nobody else in it; nullptr when the user stops waiting for the others.
[[nodiscard]] std::shared_ptr<engine::Database> OpenAlone(const forms::Ports& ports, engine::Engine& engine,
                                                          const QString& path);

/// Appends the fields that older files lack, all or none. Those that are there stay.
void AppendMissing(engine::Database& database, const QString& table = u"COMPS"_s);

/// Appends fields that the table lacks, all or none, as ones that may be empty.
void AppendFields(engine::Database& database, const QString& table, const engine::FieldList& fields);

enum class Appended {
    Done,
    Locked, ///< somebody has the file or its table open; told
};
/// The same for a file that nobody has open, this program included. What was done is told.
/// @throws RuntimeError what disk and engine refuse; the file is then as it was
[[nodiscard]] Appended AppendAlone(const forms::Ports& ports, engine::Engine& engine, const QString& path,
                                   const QString& table = u"COMPS"_s);

} // namespace vasclip::store
