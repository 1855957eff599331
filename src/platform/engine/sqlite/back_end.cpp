#include "platform/engine/sqlite/back_end.h"

#include "platform/engine/errors.h"
#include "platform/engine/file_kind.h"
#include "platform/engine/new_file.h"
#include "platform/engine/sqlite/sqlite_database.h"
#include "platform/engine/sqlite/super_journal.h"
#include "platform/engine/sqlite/text_index.h"
#include "platform/files/native.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// A connection without any schema of ours yet.
struct BareHandle
{
    explicit BareHandle(const QString& native)
        : code(OpenSqlite(native, &handle, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE))
    {}
    ~BareHandle() { sqlite3_close(handle); }
    BareHandle(const BareHandle&) = delete;
    BareHandle& operator=(const BareHandle&) = delete;
    sqlite3* handle = nullptr;
    int code;
};

} // namespace

SqliteBackEnd::SqliteBackEnd(const files::Disk& disk, OpenForeign openForeign)
    : m_workspace(std::make_shared<Workspace>())
{
    m_workspace->disk = &disk;
    m_workspace->openForeign = std::move(openForeign);
}

std::shared_ptr<Connection> SqliteBackEnd::Connect(const QString& native, const QString& shown,
                                                   bool readOnly) const
{
    std::weak_ptr<Connection>& place = m_workspace->connections[native];
    if (auto connection = place.lock())
        return connection;
    auto connection =
        std::make_shared<Connection>(
            Connection::Setup{native, shown, m_workspace->waits, *m_workspace->time, readOnly});
    place = connection;
    return connection;
}

std::shared_ptr<Database> SqliteBackEnd::Open(const QString& path, OpenMode mode)
{
    const QString given = Disk().ToNative(path);
    const QString canonical = QFileInfo(given).canonicalFilePath();
    const QString native = canonical.isEmpty() ? given : canonical;
    if (!Connection::HasOpen(native))
        CheckFileKind(native, path);
    auto session = std::make_shared<Session>();
    session->path = path;
    session->mode = mode;
    session->workspace = m_workspace;
    session->companion = std::make_unique<Companion>(native, path, mode);
    const QFileInfo info(native);
    const bool readOnly = !files::native::MayWrite(native) || (Disk().GetAttr(path) & files::ReadOnly) != 0 ||
                          !files::native::MayWrite(info.absolutePath());
    session->connection = Connect(native, path, readOnly);
    if (!readOnly)
        SweepSuperJournals(native, m_workspace->time->Now());
    if (session->Updatable() && session->connection.use_count() == 1)
        TextIndex::Sweep(*session->connection);
    return std::make_shared<SqliteDatabase>(std::move(session));
}

void SqliteBackEnd::Create(const QString& path)
{
    NewFile file(Disk().ToNative(path), path);
    {
        Connection connection({file.Path(), path, m_workspace->waits, *m_workspace->time, false, true});
    }
    file.Finish();
}

void SqliteBackEnd::Copy(const QString& source, const QString& target)
{
    const QString targetNative = Disk().ToNative(target);
    const QString targetCanonical = QFileInfo(targetNative).canonicalFilePath();
    const auto from = Open(source, OpenMode::ReadOnly);
    const QString sourceNative = QFileInfo(Disk().ToNative(source)).canonicalFilePath();
    if (!targetCanonical.isEmpty()) {
        if (targetCanonical == sourceNative)
            throw RuntimeError(error::kFileAlreadyOpen,
                               u"The database %1 can not be copied onto itself"_s.arg(source));
        bool used = Connection::HasOpen(targetCanonical);
        for (const User& user : Companion::Users(targetCanonical))
            used = used || user.alive;
        if (used)
            throw RuntimeError(
                error::kInUseByOthers,
                u"The database %1 can not be replaced while it is open. Close it everywhere first"_s.arg(
                    target));
    }
    NewFile file(targetNative, target);
    {
        const BareHandle copy(file.Path());
        const auto connection = Connect(sourceNative, source, true);
        if (copy.code != SQLITE_OK)
            throw RuntimeError(error::kCouldNotOpenFile, u"The file %1 could not be made"_s.arg(target));
        sqlite3_backup* backup = sqlite3_backup_init(copy.handle, "main", connection->Handle(), "main");
        const int code = backup ? sqlite3_backup_step(backup, -1) : sqlite3_errcode(copy.handle);
        if (backup)
            sqlite3_backup_finish(backup);
        if (code == SQLITE_FULL)
            throw RuntimeError(error::kDiskFull,
                               u"The disk that %1 should be copied to is full"_s.arg(target));
        if (code != SQLITE_DONE)
            connection->Fail(code);
    }
    if (!targetCanonical.isEmpty())
        QFile::remove(targetCanonical + u"-journal"_s);
    file.Finish();
}

QList<User> SqliteBackEnd::Users(const QString& path) const
{
    const QString native = Disk().ToNative(path);
    const QString canonical = QFileInfo(native).canonicalFilePath();
    return Companion::Users(canonical.isEmpty() ? native : canonical);
}

} // namespace vasclip::engine
