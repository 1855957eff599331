#pragma once

#include "forms/ports.h"
#include "platform/engine/database.h"
#include "store/data_source.h"

class QFileDevice;

namespace vasclip::upkeep {

/// What is about to be done to a database file, as the refusals word it.
struct FileVerb
{
    QLatin1StringView verb;      ///< of the titles
    QLatin1StringView what;      ///< of the texts: "You cannot " what " currently open database"
    QLatin1StringView titleTail; ///< behind the title where the name is protected
};
inline constexpr FileVerb kExportTo{QLatin1StringView("export"), QLatin1StringView("export to"), {}};
inline constexpr FileVerb kArchiveTo{QLatin1StringView("archive"), QLatin1StringView("archive to"), {}};
inline constexpr FileVerb kDelete{QLatin1StringView("delete"), QLatin1StringView("delete"),
                                  QLatin1StringView(" database")};

/// The name before its first dot, without a directory.
[[nodiscard]] QString StemOf(const QString& fileName);
/// The lock companion of a database file: its name with .LDB in place of the extension.
[[nodiscard]] QString LockFileOf(const QString& path);

/// Does a path name one file? What ends at a directory and a pattern name many.
[[nodiscard]] bool NamesOneFile(const QString& path);
/// Is there a file of exactly this path? @throws RuntimeError of a drive that is not there
[[nodiscard]] bool IsThere(const files::Disk& disk, const QString& path);

/// Boxes what forbids it: a path that is not one file's, a protected name, the open Databook, a file that is locked.
/// @param path      of the target; its name gives the protected stem
/// @param databook  that is open
/// @return true if it was refused
[[nodiscard]] bool RefusesTarget(forms::Prompter& prompter, engine::Engine& engine, const FileVerb& verb,
                                 const QString& path, const QString& databook);
/// The last of them alone, for the moment before the file is touched.
[[nodiscard]] bool RefusesLocked(forms::Prompter& prompter, engine::Engine& engine, const FileVerb& verb,
                                 const QString& path);
/// Does somebody have the file open? A companion that only processes of the past have left does not count.
[[nodiscard]] bool IsLocked(engine::Engine& engine, const QString& path);

/// Can a table of that name be written or asked for? One with brackets can't stand in a statement.
[[nodiscard]] bool IsTableName(const QString& name);
inline constexpr char16_t kTableNameWords[] = u"Enter the name of the table first; it may not hold [ or ].";

/// Another file could take the place of one that is write-protected. @throws RuntimeError 75
void NeedWritable(const files::Disk& disk, const QString& file);
/// A table takes the place of a text file alone: never of a database, a picture or what is write-protected.
/// @throws RuntimeError 75
void NeedTextFile(const files::Disk& disk, const QString& file);
/// Of a file that was being written and is not there then: 61 where the disk took no more, else 75.
/// @param shown  its name, as the user knows it
[[noreturn]] void FailWriting(const QString& shown, const QFileDevice& file);

/// Makes the target from the empty database, if it is not there yet.
/// @param templates  where NEWDATA.MDB is looked for, in this order; one of Access is passed over, as its copy could
///                   not be written. Without one an empty database is made
/// @throws RuntimeError of disk and engine
void CopyFromNewData(engine::Engine& engine, const QStringList& templates, const QString& target);

/// Lets go of the file that a source shows, so that it can be moved or deleted.
void CloseDatabasemdb(store::DataSource& source);

/// Copies DATABOOK.MDB of the data directory to EXPORT\TEMPDATA.MDB below it. @throws RuntimeError
void Copy2Export(engine::Engine& engine, const QString& dataDir);

} // namespace vasclip::upkeep
