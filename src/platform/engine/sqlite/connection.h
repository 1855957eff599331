#pragma once

#include "platform/engine/companion.h"
#include "platform/engine/database.h"
#include "platform/engine/sqlite/sql_printer.h"
#include "platform/engine/waits.h"
#include "platform/files/disk.h"

#include <QElapsedTimer>
#include <QHash>

#include <functional>
#include <map>
#include <memory>
#include <optional>

struct sqlite3;
struct sqlite3_stmt;

namespace vasclip::engine {

using namespace Qt::StringLiterals;

class Query;

/// The wait of a call for another user's lock.
struct LockWait
{
    Waits* waits;
    QElapsedTimer since;
};

/// What this connection knows of a table's full-text index.
struct TextIndexCheck
{
    qint64 upto = 0;       ///< rows up to this id were compared with it
    bool compared = false; ///< all of them
    bool stamped = false;  ///< and the file says so
    qint64 since = -1;     ///< change number of the file since which no other writer came between
    bool unfit = false;    ///< wrong, and the file cannot be written
    int rowsAtOnce = 200;  ///< that a slice of making it takes in; follows how long they took
    TextIndexTrouble trouble = TextIndexTrouble::None;
};

/// Opens a file by a path of any length, which may lie on a share. @return SQLite's code; the handle is to be closed in any case
int OpenSqlite(const QString& nativePath, sqlite3** handle, int flags);

/// One SQLite connection to a database file, shared by all databases and record sets of an engine that have
/// the file open: as in one workspace, what a transaction of one does is what the others see.
class Connection
{
public:
    struct Setup
    {
        QString nativePath;
        QString shown; ///< drive path, for messages
        std::shared_ptr<Waits> waits = std::make_shared<Waits>();
        const text::TimeSource& time; ///< it outlives the connection
        bool readOnly = false;
        bool fresh = false; ///< an empty file that gets the engine's own tables first
    };

    explicit Connection(const Setup& setup); ///< @throws 3049, 3051, 3343
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    /// Does this process have the file open through any connection?
    [[nodiscard]] static bool HasOpen(const QString& nativePath);

    [[nodiscard]] sqlite3* Handle() const { return m_handle; }
    [[nodiscard]] const QString& NativePath() const { return m_setup.nativePath; }
    [[nodiscard]] const QString& Shown() const { return m_setup.shown; }
    [[nodiscard]] bool ReadOnly() const { return m_setup.readOnly || !m_damage.isEmpty(); }
    /// What is wrong with the file, "" as far as is known. With damage nothing is written any more.
    [[nodiscard]] const QString& Damage() const { return m_damage; }
    void SetDamage(const QString& damage);
    [[nodiscard]] QString DamageText() const; ///< why nothing is written, and what to do
    [[nodiscard]] Waits& Waiting() const { return *m_setup.waits; }

    /// Runs statements of the engine's own.
    void Run(const QString& sql);
    /// Turns a code of SQLite into a RuntimeError.
    [[noreturn]] void Fail(int code);
    void Check(int code)
    {
        if (code != 0)
            Fail(code);
    }

    /// Tables with their fields and indexes, in order of creation; read again when the schema has changed.
    [[nodiscard]] const QList<TableDef>& Tables(const QString& schema = u"main"_s);
    [[nodiscard]] const TableDef* FindTable(const QString& name, const QString& schema = u"main"_s);

    // Nested transactions; the outermost takes the write lock at once, so that two users never wait for each
    // other.
    void Begin();
    void Commit();
    void Rollback();
    [[nodiscard]] int Depth() const { return m_depth; }
    void NeedWhole() const; ///< @throws 57 if an error took the transaction under way back

    /// The number of the file's last change, which every writer raises by one, whatever program it is.
    [[nodiscard]] qint64 ChangeNumber();
    /// Was every change of the file since the last stamp one of ours? A stamp is the number of the change
    /// that it came with; the transactions of every connection carry it on as long as nobody else writes.
    [[nodiscard]] bool InStep();
    /// Stamps the change that the transaction under way will be.
    void Stamp();

    /// Makes another file's tables reachable until the outermost transaction (or the statement, without one)
    /// ends.
    /// @return its schema name
    /// @throws 3014 more files than one transaction can hold
    [[nodiscard]] QString Attach(const QString& nativePath, const QString& shown, bool readOnly);
    /// Lets go of attached files outside of transactions.
    void DetachAll();

    /// Raised by every change that goes through this connection.
    [[nodiscard]] quint64 Generation() const { return m_generation; }
    void Touch() { ++m_generation; }

    // Record sets that are open on a table of this connection, by folded name.
    void AddUse(const QString& table) { ++m_uses[table.toUpper()]; }
    void RemoveUse(const QString& table) { --m_uses[table.toUpper()]; }
    [[nodiscard]] bool InUse(const QString& table) const { return m_uses.value(table.toUpper()) > 0; }

    [[nodiscard]] TextIndexCheck& CheckOf(const QString& table) { return m_textChecks[table.toUpper()]; }

private:
    friend class Query;

    struct Attached
    {
        QString schema;
        QString nativePath;
        QString shown;
        std::unique_ptr<Companion> companion;
    };

    struct SchemaState
    {
        qint64 version = -1;
        QList<TableDef> tables;
    };

    void CheckOwn();  ///< @throws 3343 unless the file has our mark
    void NoteStart(); ///< of the outermost transaction
    void CarryStamp();
    [[nodiscard]] sqlite3_stmt* Take(const QString& sql);
    void GiveBack(const QString& sql, sqlite3_stmt* statement);
    void KeepIdle(const QString& sql, sqlite3_stmt* statement);
    void ForgetStatements();
    [[nodiscard]] QString FileOfError() const;

    Setup m_setup;
    LockWait m_lockWait{m_setup.waits.get(), {}};
    sqlite3* m_handle = nullptr;
    QHash<QString, sqlite3_stmt*> m_idle;
    QString m_lastSql; ///< of the statement that was given back last
    sqlite3_stmt* m_lastIdle = nullptr; ///< it, until it is taken again or makes room for another one
    QHash<QString, SchemaState> m_tables;
    QHash<QString, int> m_uses;
    std::map<QString, TextIndexCheck> m_textChecks; ///< what is handed out stays where it is
    std::vector<Attached> m_attached;
    int m_nextSchema = 1;
    int m_depth = 0;
    qint64 m_changeNumber = 0; ///< as the transaction under way found it
    qint64 m_rowsChanged = 0;  ///< by this connection, likewise
    bool m_inStep = false;     ///< likewise
    QString m_damage;
    bool m_beginning = false;  ///< a transaction that writes
    bool m_undone = false;     ///< SQLite took the whole transaction back by itself
    quint64 m_generation = 0;
};

/// One run of a prepared statement; gives the statement back when it ends, so that no lock outlives it.
class Query
{
public:
    Query(Connection& connection, const QString& sql)
        : m_connection(connection)
        , m_sql(sql)
        , m_statement(connection.Take(sql))
    {}
    ~Query() { m_connection.GiveBack(m_sql, m_statement); }
    Query(const Query&) = delete;
    Query& operator=(const Query&) = delete;

    Query& Bind(int index, const QVariant& value);
    Query& Bind(int index, qint64 value);
    Query& BindZeros(int index, qint64 bytes); ///< that many, to be written over
    Query& Bind(int index, Bookmark id) { return Bind(index, static_cast<qint64>(id)); }
    Query& BindAll(const QVariantList& values,
                   int first = 1); ///< values beyond the last parameter are left out
    [[nodiscard]] bool Step();
    void Run()
    {
        while (Step()) {
        }
    }
    void Again(); ///< ends this run; what is bound stays bound for the next one

    [[nodiscard]] qint64 Integer(int column) const;
    [[nodiscard]] QString Text(int column) const;
    [[nodiscard]] bool IsNull(int column) const;
    [[nodiscard]] QVariant Value(int column, FieldType type) const;
    [[nodiscard]] sqlite3_stmt* Statement() const { return m_statement; }

private:
    Connection& m_connection;
    QString m_sql;
    sqlite3_stmt* m_statement;
};

/// Several reads under one lock of the file, unless a transaction holds one anyway.
class Reading
{
public:
    explicit Reading(Connection& connection);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

private:
    Connection& m_connection;
    bool m_began = false;
};

/// A transaction (or a nested one) of a connection that is taken back unless committed.
class Writing
{
public:
    explicit Writing(Connection& connection)
        : m_connection(&connection)
    {
        connection.Begin();
    }
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    void Commit();

private:
    Connection* m_connection;
};

/// One statement that changes rows. Alone it is a transaction; within one it needs none of its own, since a statement that
/// fails is taken back by itself.
class OneStatement
{
public:
    explicit OneStatement(Connection& connection) ///< @throws 57 the transaction under way is no more
    {
        if (connection.Depth() == 0)
            m_alone.emplace(connection);
        else
            connection.NeedWhole();
    }
    void Commit()
    {
        if (m_alone)
            m_alone->Commit();
    }

private:
    std::optional<Writing> m_alone;
};

} // namespace vasclip::engine
