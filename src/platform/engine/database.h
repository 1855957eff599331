#pragma once

#include "platform/engine/recordset.h"
#include "platform/files/disk.h"
#include "platform/text/time_source.h"

#include <QStringList>

#include <memory>
#include <vector>

namespace vasclip::engine {

class BackEnd;
class RowStore;
class Waits;
namespace sql {
struct TypedStatement;
}

enum class OpenMode { Shared, Exclusive, ReadOnly };

/// One user of a database file, as its .LDB tells.
struct User
{
    QString host;
    qint64 process = 0;
    bool alive = true; ///< false for an entry of a process of this host that is no more
};

/// What is looked for in the texts of a table: rows whose fields hold every word, each in any of them,
/// without regard to case.
struct TextSearch
{
    QString table;
    QStringList fields; ///< the same list for every search of a table: the index is made of them
    QStringList words;
    Bookmark afterId{};    ///< go on behind this row; the initial one begins
    int milliseconds = 20; ///< stop after about so long
};

struct TextHits
{
    std::vector<Bookmark> ids; ///< ascending
    Bookmark lastId{};         ///< all rows up to this one were looked at
    bool done = false;         ///< all rows were looked at
};

/// What was found wrong with a full-text index since the file was opened.
enum class TextIndexTrouble {
    None,
    Missing,   ///< there was none, or one of other fields
    Damaged,   ///< parts of it were missing, altered or unreadable
    OutOfStep, ///< it did not know rows that were changed behind its back
};

struct TextIndexState
{
    bool whole = false; ///< it is there, holds all rows, and was compared with them
    TextIndexTrouble trouble = TextIndexTrouble::None;
};

/// An open database file. Record sets keep it alive.
///
/// The native file is SQLite under its fixed .MDB name; the field sizes, memo and long binary types are in a
/// schema of its own. The file's lock companion (.LDB beside it) names who has it open and goes with the
/// last.
class Database
{
public:
    virtual ~Database() = default;

    [[nodiscard]] virtual QString Path() const = 0; ///< drive path as given to OpenDatabase
    [[nodiscard]] virtual OpenMode Mode() const = 0;

    /// @param source  a table's name (table or dynaset kind) or a SELECT (dynaset kind only)
    /// @throws 3078 no such table, 3075 syntax error with its position, 3061 unknown name in the statement
    [[nodiscard]] virtual std::unique_ptr<Recordset> OpenRecordset(const QString& source,
                                                                   RecordsetType type) = 0;

    /// The rows of a SELECT of one of this database's tables, for record sets and for copies between databases of
    /// two kinds.
    [[nodiscard]] virtual std::unique_ptr<RowStore> OpenRows(const sql::TypedStatement& select) = 0;

    /// Runs one action statement (INSERT, UPDATE, DELETE, SELECT INTO, DROP TABLE) in one transaction: it
    /// happens whole or not at all. Tables of other files are named by their path, with or without the
    /// extension .MDB. INSERT with a SELECT leaves out rows whose key is empty or there already, as an append
    /// does; the other statements refuse them. SELECT INTO makes the table with the types and sizes of its
    /// source and without indexes.
    /// @return rows affected
    /// @throws 3075, 3061, 3078 as OpenRecordset; 3010 SELECT INTO an existing table, 3376 DROP of one that
    /// is not there, 3211 DROP of one in use, 3022 duplicate key, 3163 too long, 3314 a needed value is
    /// missing, 3127 unknown field and 3346 number of values of an INSERT, 3024 no such other file, 3014 more
    /// than 10 other files in one transaction, 3027 read-only, 3218 locked by another user, 3219 a SELECT, 61
    /// disk full
    virtual qint64 Execute(const QString& sql) = 0;

    [[nodiscard]] virtual QStringList TableNames() const = 0;            ///< user tables in order of creation
    [[nodiscard]] virtual TableDef Table(const QString& name) const = 0; ///< @throws 3078
    virtual void CreateTable(const TableDef& table) = 0;                 ///< @throws 3010
    virtual void AppendField(const QString& table, const Field& field) = 0; ///< @throws 3191, 3211
    virtual void AppendIndex(const QString& table, const IndexDef& index) = 0;

    /// Makes the full-text index that FindText uses, or goes on making it, for at most about `milliseconds`.
    /// It is kept in the file, and current by whatever changes the rows. One that is missing, of other fields
    /// or damaged is made anew; one that was opened is compared with all rows once, and learns those that it
    /// does not know. A database that cannot be written has the index that it has, which is used if it is
    /// right.
    /// @return `whole` when there is nothing left to do. @throws 3078, 3265
    /// A back end that has none answers `whole` at once.
    virtual TextIndexState KeepTextIndex(const QString& table, const QStringList& fields, int milliseconds);
    /// Looks for words through the index, or through the rows while there is none that KeepTextIndex found
    /// right, or while all words are shorter than three letters. @throws 3078, 3265
    [[nodiscard]] virtual TextHits FindText(const TextSearch& search);

    // Several writes that belong together. They nest; only the outermost commits.
    virtual void BeginTrans() = 0;
    virtual void CommitTrans() = 0;
    virtual void Rollback() = 0;

    virtual void Close() = 0;
};

/// The default workspace: opens, makes and looks at database files of one disk.
class Engine
{
public:
    /// @param time  what NOW(), DATE() and a date without a year mean; it outlives the databases
    Engine(const files::Disk& disk, const text::TimeSource& time);
    ~Engine();

    [[nodiscard]] const files::Disk& Disk() const;
    [[nodiscard]] const text::TimeSource& Time() const;

    /// @throws 3024 file not found, 3343 not a database (a text file, an empty file: the description says
    /// what the file is), 3049 damaged, 3051 no right to open, 3009/3356 opened exclusively by somebody. A genuine
    /// file of the old engine opens for reading only
    [[nodiscard]] std::shared_ptr<Database> OpenDatabase(const QString& path,
                                                         OpenMode mode = OpenMode::Shared);
    /// @throws 3204 if the file is there
    [[nodiscard]] std::shared_ptr<Database> CreateDatabase(const QString& path);
    /// Copies a database that may be in use, through the engine's backup interface; target is replaced whole.
    void CopyDatabase(const QString& source, const QString& target);
    [[nodiscard]] QList<User> Users(const QString& path) const;

    /// A further kind of database, which is asked before those that the engine comes with.
    void AddBackEnd(std::unique_ptr<BackEnd> backEnd);

    /// How its calls wait for others; see WaitScope.
    [[nodiscard]] Waits& Waiting();
    /// How long a call waits for others, in milliseconds.
    void SetLockWait(int milliseconds);

private:
    struct Private;
    std::shared_ptr<Private> d; ///< what a database that outlives the engine asks for is gone with it
};

/// Begins a transaction and rolls it back unless committed.
class Transaction
{
public:
    explicit Transaction(Database& database)
        : m_database(&database)
    {
        database.BeginTrans();
    }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Database* m_database;
};

} // namespace vasclip::engine
