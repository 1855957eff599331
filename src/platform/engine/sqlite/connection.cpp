#include "platform/engine/sqlite/connection.h"

#include "platform/engine/collation.h"
#include "platform/engine/errors.h"
#include "platform/engine/file_kind.h"
#include "platform/engine/sqlite/bind_values.h"
#include "platform/engine/sqlite/functions.h"
#include "platform/engine/sqlite/schema_tables.h"
#include "platform/files/file_address.h"
#include "platform/files/native.h"

#include <QElapsedTimer>
#include <QMutex>
#include <QScopeGuard>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <thread>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

// Of the process and not of an engine: closing a file by any road frees the locks that the process has on it.
QMutex openMutex;
QHash<QString, int>& OpenFiles()
{
    static QHash<QString, int> files;
    return files;
}

void NoteOpen(const QString& path, int change)
{
    const QMutexLocker lock(&openMutex);
    if ((OpenFiles()[path] += change) <= 0)
        OpenFiles().remove(path);
}

/// A lock is in the way for the `count`th time since a call began to wait for it.
/// @return 0 to give up
int WaitForLock(void* waiting, int count)
{
    using std::chrono::milliseconds;
    constexpr std::array kPauses{1, 2, 5, 10, 15, 20, 25}; // short at first: most locks last a few milliseconds
    auto& [waits, since] = *static_cast<LockWait*>(waiting);
    if (count == 0)
        since.start();
    const milliseconds waited(since.elapsed());
    if (!waits->GoOn(waited))
        return 0;
    const milliseconds pause(kPauses.at(std::min(static_cast<std::size_t>(count), kPauses.size() - 1)));
    std::this_thread::sleep_for(std::min(pause, std::max(milliseconds(1), waits->Now().deadline - waited)));
    return 1;
}

} // namespace

int OpenSqlite(const QString& nativePath, sqlite3** handle, int flags)
{
    const char* const anyLength = sqlite3_vfs_find("win32-longpath") != nullptr ? "win32-longpath" : nullptr;
    return sqlite3_open_v2(files::native::SystemPath(nativePath).toUtf8().constData(), handle, flags, anyLength);
}

Connection::Connection(const Setup& setup)
    : m_setup(setup)
{
    // A connection has one thread, so SQLite need not lock it for every value that is read.
    const int flags = (setup.readOnly ? SQLITE_OPEN_READONLY : SQLITE_OPEN_READWRITE) | SQLITE_OPEN_NOMUTEX;
    NoteOpen(setup.nativePath, 1);
    try {
        const int code = OpenSqlite(setup.nativePath, &m_handle, flags | SQLITE_OPEN_URI);
        if (code != SQLITE_OK)
            Fail(code);
        sqlite3_extended_result_codes(m_handle, 1);
        sqlite3_busy_handler(m_handle, &WaitForLock, &m_lockWait);
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DQS_DDL, 0, nullptr);
        sqlite3_db_config(m_handle, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
        RegisterCollation(m_handle);
        RegisterFunctions(m_handle, m_setup.time);
        Run(u"PRAGMA synchronous=FULL; PRAGMA temp_store=FILE; PRAGMA trusted_schema=OFF; PRAGMA cell_size_check=ON"_s);
        if (setup.fresh)
            MakeSchema(*this);
        CheckOwn();
        static_cast<void>(Tables());
    } catch (...) {
        ForgetStatements();
        sqlite3_close_v2(m_handle);
        NoteOpen(setup.nativePath, -1);
        throw;
    }
}

Connection::~Connection()
{
    if (m_depth > 0 && sqlite3_get_autocommit(m_handle) == 0)
        sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
    m_depth = 0;
    DetachAll();
    ForgetStatements();
    sqlite3_close_v2(m_handle);
    NoteOpen(m_setup.nativePath, -1);
}

void Connection::CheckOwn()
{
    Query query(*this, u"PRAGMA application_id"_s);
    if (!query.Step() || query.Integer(0) != qint64{kApplicationId})
        throw RuntimeError(error::kUnrecognisedDatabase,
                           u"The file %1 is a SQLite database of another program"_s.arg(m_setup.shown));
}

bool Connection::HasOpen(const QString& nativePath)
{
    const QMutexLocker lock(&openMutex);
    return OpenFiles().contains(nativePath);
}

void Connection::Run(const QString& sql)
{
    Waiting().NeedFree();
    Check(sqlite3_exec(m_handle, sql.toUtf8().constData(), nullptr, nullptr, nullptr));
}

void Connection::SetDamage(const QString& damage)
{
    m_damage = damage;
    sqlite3_exec(m_handle, damage.isEmpty() ? "PRAGMA query_only=OFF" : "PRAGMA query_only=ON", nullptr, nullptr,
                 nullptr);
}

QString Connection::DamageText() const
{
    return u"Can not update: the database %1 is damaged (%2) and open for reading only. Copy what can be read into "
           "a new one, or restore it from a backup"_s.arg(m_setup.shown, m_damage);
}

const QList<TableDef>& Connection::Tables(const QString& schema)
{
    SchemaState& known = m_tables[schema];
    qint64 version = 0;
    {
        Query query(*this, u"PRAGMA %1.schema_version"_s.arg(sql::QuoteName(schema)));
        if (query.Step())
            version = query.Integer(0);
    }
    if (known.version != version) {
        known.tables = ReadSchema(*this, schema);
        known.version = version;
    }
    return known.tables;
}

const TableDef* Connection::FindTable(const QString& name, const QString& schema)
{
    for (const TableDef& table : Tables(schema)) {
        if (table.name.compare(name, Qt::CaseInsensitive) == 0)
            return &table;
    }
    return nullptr;
}

qint64 Connection::ChangeNumber()
{
    constexpr int kPlace = 24; // in the file's header, most significant byte first
    unsigned char bytes[4] = {};
    sqlite3_file* file = nullptr;
    Check(sqlite3_file_control(m_handle, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)));
    if (file == nullptr || file->pMethods == nullptr ||
        file->pMethods->xRead(file, bytes, sizeof bytes, kPlace) != SQLITE_OK)
        return -1;
    return qFromBigEndian<quint32>(bytes);
}

// The stamp is SQLite's number for users: it lies in the header page, which every change writes anyway.

bool Connection::InStep()
{
    const Reading together(*this);
    Query query(*this, u"PRAGMA user_version"_s);
    const bool read = query.Step();
    return read && query.Integer(0) != 0 && static_cast<quint32>(query.Integer(0)) == ChangeNumber();
}

void Connection::Stamp()
{
    Run(u"PRAGMA user_version=%1"_s.arg(static_cast<qint32>(m_changeNumber + 1)));
}

void Connection::NoteStart()
{
    try {
        m_changeNumber = ChangeNumber();
        m_rowsChanged = sqlite3_total_changes64(m_handle);
        m_inStep = !ReadOnly() && InStep();
    } catch (...) {
        sqlite3_exec(m_handle, "ROLLBACK", nullptr, nullptr, nullptr);
        throw;
    }
}

/// Within the outermost transaction, before it is committed.
void Connection::CarryStamp()
{
    if (m_inStep && sqlite3_total_changes64(m_handle) != m_rowsChanged)
        Stamp();
}

void Connection::Begin()
{
    if (m_depth == 0) {
        m_beginning = !ReadOnly();
        const auto begun = qScopeGuard([this] { m_beginning = false; });
        Run(m_beginning ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s);
        m_undone = false;
        NoteStart();
    } else if (!m_undone) {
        Run(u"SAVEPOINT vas_%1"_s.arg(m_depth));
    }
    ++m_depth;
}

void Connection::NeedWhole() const
{
    if (m_undone)
        throw RuntimeError(
            error::kDeviceIo,
            u"The transaction on %1 was taken back after an error and could not be committed"_s.arg(FileOfError()));
}

void Connection::Commit()
{
    if (m_depth == 0)
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to commit"_s);
    if (m_undone) {
        const auto ended = qScopeGuard([this] {
            if (--m_depth > 0)
                return;
            m_undone = false;
            DetachAll();
        });
        NeedWhole();
    }
    if (m_depth == 1)
        CarryStamp();
    // A commit that fails stays open: the caller may try again or roll back.
    Run(m_depth == 1 ? u"COMMIT"_s : u"RELEASE vas_%1"_s.arg(m_depth - 1));
    if (--m_depth > 0)
        return;
    if (sqlite3_total_changes64(m_handle) != m_rowsChanged)
        for (auto& [table, check] : m_textChecks)
            if (check.since == m_changeNumber)
                ++check.since;
    DetachAll();
}

void Connection::Rollback()
{
    if (m_depth == 0)
        throw RuntimeError(error::kNoTransaction, u"There is no transaction to roll back"_s);
    --m_depth;
    ++m_generation;
    m_tables.clear();
    if (!m_undone)
        Run(m_depth == 0 ? u"ROLLBACK"_s : u"ROLLBACK TO vas_%1; RELEASE vas_%1"_s.arg(m_depth));
    if (m_depth == 0) {
        m_undone = false;
        DetachAll();
    }
}

QString Connection::Attach(const QString& nativePath, const QString& shown, bool readOnly)
{
    if (nativePath == m_setup.nativePath)
        return u"main"_s;
    for (const Attached& attached : m_attached) {
        if (attached.nativePath == nativePath)
            return attached.schema;
    }
    const int most = sqlite3_limit(m_handle, SQLITE_LIMIT_ATTACHED, -1);
    if (static_cast<int>(m_attached.size()) >= most)
        throw RuntimeError(
            error::kTooManyDatabases,
            u"One transaction on %1 can reach at most %2 other files. End it before %3 is used"_s.arg(
                m_setup.shown, QString::number(most), shown));
    Attached attached;
    attached.nativePath = nativePath;
    attached.shown = shown;
    attached.schema = u"file%1"_s.arg(m_nextSchema++);
    if (!HasOpen(nativePath))
        CheckFileKind(nativePath, shown);
    attached.companion = std::make_unique<Companion>(nativePath, shown, OpenMode::Shared);
    {
        Query query(*this, u"ATTACH ?1 AS %1"_s.arg(attached.schema));
        query
            .Bind(1, QString::fromLatin1(files::FileAddress(nativePath)) + (readOnly ? u"?mode=ro"_s : u"?mode=rw"_s))
            .Run();
    }
    NoteOpen(nativePath, 1);
    m_attached.push_back(std::move(attached));
    static_cast<void>(Tables(m_attached.back().schema));
    return m_attached.back().schema;
}

void Connection::DetachAll()
{
    if (m_depth > 0 || m_attached.empty())
        return;
    ForgetStatements();
    for (Attached& attached : m_attached) {
        sqlite3_exec(m_handle, u"DETACH %1"_s.arg(attached.schema).toUtf8().constData(), nullptr, nullptr,
                     nullptr);
        NoteOpen(attached.nativePath, -1);
        m_tables.remove(attached.schema);
    }
    m_attached.clear();
}

sqlite3_stmt* Connection::Take(const QString& sql)
{
    if (m_lastIdle != nullptr && m_lastSql == sql)
        return std::exchange(m_lastIdle, nullptr);
    if (sqlite3_stmt* idle = m_idle.take(sql))
        return idle;
    Waiting().NeedFree();
    sqlite3_stmt* statement = nullptr;
    const QByteArray utf8 = sql.toUtf8();
    Check(sqlite3_prepare_v3(m_handle, utf8.constData(), static_cast<int>(utf8.size()),
                             SQLITE_PREPARE_PERSISTENT, &statement, nullptr));
    return statement;
}

void Connection::GiveBack(const QString& sql, sqlite3_stmt* statement)
{
    sqlite3_reset(statement);
    sqlite3_clear_bindings(statement);
    // A walk runs one statement again and again, which need not be looked up.
    if (m_lastIdle != nullptr)
        KeepIdle(m_lastSql, m_lastIdle);
    m_lastSql = sql;
    m_lastIdle = statement;
}

void Connection::KeepIdle(const QString& sql, sqlite3_stmt* statement)
{
    constexpr qsizetype kMostIdle = 100;
    if (m_idle.size() >= kMostIdle) {
        for (sqlite3_stmt* idle : std::as_const(m_idle))
            sqlite3_finalize(idle);
        m_idle.clear();
    }
    sqlite3_stmt*& place = m_idle[sql];
    if (place)
        sqlite3_finalize(place);
    place = statement;
}

void Connection::ForgetStatements()
{
    for (sqlite3_stmt* statement : std::as_const(m_idle))
        sqlite3_finalize(statement);
    m_idle.clear();
    sqlite3_finalize(std::exchange(m_lastIdle, nullptr));
}

Query& Query::Bind(int index, const QVariant& value)
{
    m_connection.Check(BindValue(m_statement, index, value));
    return *this;
}

Query& Query::Bind(int index, qint64 value)
{
    m_connection.Check(sqlite3_bind_int64(m_statement, index, value));
    return *this;
}

Query& Query::BindZeros(int index, qint64 bytes)
{
    m_connection.Check(sqlite3_bind_zeroblob64(m_statement, index, static_cast<sqlite3_uint64>(bytes)));
    return *this;
}

Query& Query::BindAll(const QVariantList& values, int first)
{
    const int last = sqlite3_bind_parameter_count(m_statement);
    for (int i = 0; i < values.size() && first + i <= last; ++i)
        Bind(first + i, values[i]);
    return *this;
}

bool Query::Step()
{
    m_connection.Waiting().NeedFree();
    const int code = sqlite3_step(m_statement);
    if (code == SQLITE_ROW)
        return true;
    if (code != SQLITE_DONE)
        m_connection.Fail(code);
    return false;
}

void Query::Again()
{
    sqlite3_reset(m_statement);
}

qint64 Query::Integer(int column) const
{
    return sqlite3_column_int64(m_statement, column);
}

QString Query::Text(int column) const
{
    const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return QString::fromUtf8(text, sqlite3_column_bytes(m_statement, column));
}

bool Query::IsNull(int column) const
{
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

QVariant Query::Value(int column, FieldType type) const
{
    return ReadValue(m_statement, column, type);
}

Reading::Reading(Connection& connection)
    : m_connection(connection)
{
    if (sqlite3_get_autocommit(connection.Handle()) != 0) {
        Query(connection, u"BEGIN"_s).Run();
        m_began = true;
    }
}

Reading::~Reading()
{
    // An error may have ended the transaction already.
    if (m_began && sqlite3_get_autocommit(m_connection.Handle()) == 0)
        sqlite3_exec(m_connection.Handle(), "COMMIT", nullptr, nullptr, nullptr);
}

Writing::~Writing()
{
    if (!m_connection)
        return;
    try {
        m_connection->Rollback();
    } catch (const RuntimeError&) {
        // The error that brought us here is the one to tell; SQLite rolls back when the file closes.
    }
}

void Writing::Commit()
{
    m_connection->Commit();
    m_connection = nullptr;
}

} // namespace vasclip::engine
