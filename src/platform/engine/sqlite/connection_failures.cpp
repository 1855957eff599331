#include "platform/engine/sqlite/connection.h"

#include "platform/engine/errors.h"
#include "platform/engine/process.h"
#include "platform/engine/sqlite/functions.h"
#include "platform/engine/values.h"
#include "platform/text/call_errors.h"

#include <QSysInfo>

#include <sqlite3.h>

// What the library's codes mean here.

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Who else has the file open, as its companion tells; "" when it tells of nobody.
QString OtherUsers(const QString& nativePath)
{
    const QString host = QSysInfo::machineHostName();
    QStringList names;
    for (const User& user : Companion::Users(nativePath)) {
        const bool own = user.host == host && user.process == OwnProcess();
        if (user.alive && !own)
            names.append(u"process %1 on %2"_s.arg(QString::number(user.process), user.host));
    }
    return names.isEmpty() ? QString() : u" (%1)"_s.arg(names.join(u" or "_s));
}

/// Errors that functions of this engine raise within a statement, and those that only their words tell apart.
/// Returns where it is none of them.
void ThrowByItsWords(const QString& message, const QString& file)
{
    const QString tooLong = QString::fromLatin1(kTooLongMark);
    if (message.startsWith(tooLong)) {
        const QString rest = message.mid(tooLong.size());
        ThrowTooLong(rest.section(u':', 1), rest.section(u':', 0, 0).toInt());
    }
    const QString needed = QString::fromLatin1(kNullMark);
    if (message.startsWith(needed))
        ThrowNeeded(message.mid(needed.size()));
    if (message == QLatin1StringView(kOpenSetMark))
        ThrowOpenSet();
    if (message.startsWith(u"parser stack overflow"_s) ||
        message.startsWith(u"Expression tree is too large"_s))
        throw RuntimeError(error::kSyntax,
                           u"The statement is too complicated: its parts are nested too deeply"_s);
    if (message.startsWith(u"no such table"_s))
        throw RuntimeError(error::kTableUnknown,
                           u"The table is no longer in %1: %2"_s.arg(file, message));
}

} // namespace

QString Connection::FileOfError() const
{
    QStringList names{m_setup.shown};
    for (const Attached& attached : m_attached)
        names.append(attached.shown);
    return names.join(u" or "_s);
}

void Connection::Fail(int code)
{
    const QString message = m_handle ? QString::fromUtf8(sqlite3_errmsg(m_handle)) : QString();
    const int extended = m_handle ? sqlite3_extended_errcode(m_handle) : code;
    const QString file = FileOfError();
    // A full disk and its like make SQLite take the whole transaction back.
    if (m_depth > 0 && sqlite3_get_autocommit(m_handle) != 0)
        m_undone = true;
    switch (code & 0xFF) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        if (Waiting().TakeGivenUp())
            throw RuntimeError(error::kWaitGivenUp,
                               u"The wait for another user%1 was given up; %2 is as it was"_s.arg(
                                   OtherUsers(m_setup.nativePath), file));
        if (m_beginning || (m_depth > 0 && !ReadOnly()))
            throw RuntimeError(
                error::kCouldNotUpdateLocked,
                u"Could not update; currently locked by another user%1. Try again when the other user is "
                "done with %2"_s.arg(OtherUsers(m_setup.nativePath), file));
        throw RuntimeError(error::kCouldNotReadLocked,
                           u"Could not read; currently locked by another user%1. Try again when the other user is "
                           "done with %2"_s.arg(OtherUsers(m_setup.nativePath), file));
    case SQLITE_CORRUPT:
    case SQLITE_NOTADB:
        // What the full-text index says of itself can be mended; a page that can't be read can't.
        if (extended != SQLITE_CORRUPT_VTAB && m_attached.empty() && m_damage.isEmpty())
            SetDamage(u"not all of its pages can be read"_s);
        throw RuntimeError(
            error::kCorruptDatabase,
            u"The database %1 is damaged: not all of it can be read. Copy what can be read into a new one, or restore "
            "it from a backup"_s.arg(file));
    case SQLITE_FULL:
        // Over several files a walk may have stored steps before this one.
        throw RuntimeError(
            error::kDiskFull,
            (m_attached.empty() ? u"The disk that holds %1 is full. Nothing in that file was changed; make room and try again"_s
                                : u"The disk that holds %1 is full. This step is stored in none of them; make room and try again"_s)
                .arg(file));
    case SQLITE_READONLY:
        if (!m_damage.isEmpty())
            throw RuntimeError(error::kFileIsReadOnly, DamageText());
        if (extended == SQLITE_READONLY_DBMOVED)
            throw RuntimeError(error::kDatabaseNotFound,
                               u"The file %1 was moved, renamed or deleted while it was open. Nothing was changed; put "
                               "it back and start again"_s.arg(file));
        throw RuntimeError(error::kFileIsReadOnly,
                           u"The file %1 is read-only and can not be changed"_s.arg(file));
    case SQLITE_CANTOPEN:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        throw RuntimeError(error::kCouldNotOpenFile,
                           u"The file %1 can not be opened. Make sure that you have rights to it and to its "
                           "directory, and that nobody has it exclusively"_s.arg(file));
    case SQLITE_IOERR:
        throw RuntimeError(error::kDeviceIo,
                           u"The disk or the network failed while %1 was read or written"_s.arg(file));
    case SQLITE_NOMEM:
        throw RuntimeError(error::kOutOfMemory, u"There is not enough memory to work on %1"_s.arg(file));
    case SQLITE_CONSTRAINT:
        if (extended == SQLITE_CONSTRAINT_UNIQUE || extended == SQLITE_CONSTRAINT_PRIMARYKEY ||
            extended == SQLITE_CONSTRAINT_ROWID)
            throw RuntimeError(error::kDuplicateKey,
                               u"The change would give two records the same key in %1, which must be unique. "
                               "Nothing was stored"_s.arg(message.section(u": "_s, 1)));
        break;
    case SQLITE_TOOBIG:
        throw RuntimeError(error::kFieldTooLong, u"The value is too long for %1"_s.arg(file));
    case SQLITE_ERROR:
        ThrowByItsWords(message, file);
        break;
    default:
        break;
    }
    throw RuntimeError(error::kInternalEngine, u"The database engine failed on %1: %2"_s.arg(file, message));
}

} // namespace vasclip::engine
