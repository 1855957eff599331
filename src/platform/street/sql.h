#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

struct sqlite3;
struct sqlite3_stmt;

namespace vasclip::street {

/// What a file of maps says of itself at its head: our mark, and which kind of file in which version.
enum class FileKind : qint32 { County = 1, Index = 2 };

inline constexpr quint32 kFileMark = 0x56534d50; // "VSMP"
/// A county's file of version 1, which has no names of streets without a line, is read as well.
inline constexpr qint32 kCountyVersion = 2;
inline constexpr qint32 kOldestCounty = 1;
inline constexpr qint32 kIndexVersion = 1;

struct CloseSql
{
    void operator()(sqlite3* file) const;
    void operator()(sqlite3_stmt* statement) const;
};
using SqlFile = std::unique_ptr<sqlite3, CloseSql>;
using SqlStatement = std::unique_ptr<sqlite3_stmt, CloseSql>;

/// A new, empty file for one writer, marked as `kind` inside one transaction that is open on return. It keeps no
/// journal: a file that was not finished is not used.
/// @param path  native; ":memory:" for one that is only serialised
/// @return null with the reason in `problem`
[[nodiscard]] SqlFile CreateSql(const QString& path, FileKind kind, QString& problem);
/// Commits with a flush to the disk, and closes.
[[nodiscard]] bool FinishSql(SqlFile& file, QString& problem);

/// Opens a finished file for reading; it is taken as it lies and never locked.
/// @return null with the reason in `problem`: missing, damaged, foreign, or made for another version
[[nodiscard]] SqlFile OpenSql(const QString& path, FileKind kind, QString& problem);

[[nodiscard]] bool RunSql(sqlite3* file, const char* sql, QString& problem);
[[nodiscard]] SqlStatement PrepareSql(sqlite3* file, const char* sql, QString& problem);
/// What went wrong last, in SQLite's words; a full disk in ours.
[[nodiscard]] QString SqlProblem(sqlite3* file);

void BindText(sqlite3_stmt* statement, int column, const QString& text);
[[nodiscard]] QString ColumnText(sqlite3_stmt* statement, int column);

} // namespace vasclip::street
