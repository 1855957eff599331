#include "platform/engine/companion.h"

#include "platform/engine/errors.h"
#include "platform/engine/process.h"
#include "platform/files/file_lock.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <QUuid>

namespace vasclip::engine {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kLockWaitMilliseconds = 5000;

struct Entry
{
    User user;
    QString id;
    bool exclusive = false;
    QByteArray line;
};

QList<Entry> ReadEntries(const QString& file)
{
    QList<Entry> entries;
    QFile input(file);
    if (!input.open(QIODevice::ReadOnly))
        return entries;
    constexpr qint64 kMost = 1 << 20;
    const QString host = QSysInfo::machineHostName();
    for (const QByteArray& line : input.read(kMost).split('\n')) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.isEmpty())
            continue;
        Entry entry;
        entry.user.host = object[u"host"].toString();
        entry.user.process = object[u"process"].toInteger();
        entry.id = object[u"id"].toString();
        entry.exclusive = object[u"exclusive"].toBool();
        entry.line = line;
        // Nobody can tell from here whether a process of another host still runs.
        if (entry.user.host == host)
            entry.user.alive = IsAlive(entry.user.process, object[u"started"].toString());
        entries.append(entry);
    }
    return entries;
}

/// Replaces the list; the lock is held. A draft that a killed one left has the same name, so that the next one
/// clears it.
bool WriteEntries(const QString& file, const QList<Entry>& entries)
{
    const QString draft = file + u"~new"_s;
    if (QFile::exists(draft) && !QFile::remove(draft))
        return false;
    if (entries.isEmpty())
        return !QFile::exists(file) || QFile::remove(file);
    QFile output(draft);
    if (!output.open(QIODevice::WriteOnly))
        return false;
    for (const Entry& entry : entries)
        output.write(entry.line + '\n');
    output.close();
    if (output.error() == QFile::NoError && RenameOver(draft, file, NamesFlushed::Later))
        return true;
    QFile::remove(draft);
    return false;
}

/// Takes the lock beside the companion, which is held for moments only. The system takes it back from a process
/// that was killed, so that a file that was left holds nobody up. @return false without rights or when the wait
/// was in vain
bool Take(files::FileLock& lock, const QString& companion)
{
    return lock.Take(companion + u"~"_s, kLockWaitMilliseconds, files::FileLock::After::Goes);
}

/// A second lock on what is held: is it refused?
bool Holds(const QString& companion)
{
    files::FileLock other;
    return !other.Take(companion + u"~"_s, 0) && other.HeldByOther();
}

QString Describe(const User& user)
{
    return u"process %1 on %2"_s.arg(QString::number(user.process), user.host);
}

} // namespace

QString Companion::FileOf(const QString& nativePath)
{
    const QFileInfo info(nativePath);
    return info.path() + u'/' + info.completeBaseName() + u".LDB"_s;
}

QList<User> Companion::Users(const QString& nativePath)
{
    QList<User> users;
    for (const Entry& entry : ReadEntries(FileOf(nativePath)))
        users.append(entry.user);
    return users;
}

bool Companion::HasOthers(const QString& nativePath)
{
    for (const User& user : Users(nativePath)) {
        if (user.alive && (user.process != OwnProcess() || user.host != QSysInfo::machineHostName()))
            return true;
    }
    return false;
}

Companion::Companion(const QString& nativePath, const QString& shown, OpenMode mode)
    : m_nativePath(nativePath)
{
    const QString file = FileOf(nativePath);
    files::FileLock lock;
    const bool locked = Take(lock, file);
    m_locksHold = locked ? Holds(file) : !lock.KeptNone();
    QList<Entry> entries = ReadEntries(file);
    entries.removeIf([](const Entry& entry) { return !entry.user.alive; });
    for (const Entry& entry : entries) {
        if (entry.exclusive)
            throw RuntimeError(
                error::kExclusivelyLocked,
                u"The file %1 is opened exclusively by %2. Try again when it is closed there"_s.arg(
                    shown, Describe(entry.user)));
        if (mode == OpenMode::Exclusive)
            throw RuntimeError(
                error::kInUseByOthers,
                u"The file %1 can not be opened exclusively, because %2 has it open. Close it there and try again"_s
                    .arg(shown, Describe(entry.user)));
    }
    if (!locked)
        return;
    Entry own;
    own.id = QUuid::createUuid().toString(QUuid::WithoutBraces);
    own.line = QJsonDocument(QJsonObject{{u"host"_s, QSysInfo::machineHostName()},
                                         {u"process"_s, OwnProcess()},
                                         {u"started"_s, StartMark(OwnProcess())},
                                         {u"id"_s, own.id},
                                         {u"exclusive"_s, mode == OpenMode::Exclusive}})
                   .toJson(QJsonDocument::Compact);
    entries.append(own);
    if (WriteEntries(file, entries))
        m_id = own.id;
}

Companion::~Companion()
{
    if (m_id.isEmpty())
        return;
    const QString file = FileOf(m_nativePath);
    files::FileLock lock;
    // Without the lock the entry stays: it is seen as dead when this process is gone.
    if (!Take(lock, file))
        return;
    QList<Entry> entries = ReadEntries(file);
    entries.removeIf([this](const Entry& entry) { return entry.id == m_id || !entry.user.alive; });
    static_cast<void>(WriteEntries(file, entries));
}

} // namespace vasclip::engine
