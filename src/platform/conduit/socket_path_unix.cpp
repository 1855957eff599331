#include "platform/conduit/socket_path.h"

#include "platform/conduit/peer.h"
#include "platform/text/runtime_error.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

constexpr qsizetype kLongestPath = 100;

struct Entry
{
    mode_t mode = 0;
    uid_t uid = 0;
};

/// What a name itself is, links not followed.
std::optional<Entry> Look(const QString& path)
{
    struct stat found
    {};
    if (lstat(QFile::encodeName(path).constData(), &found) != 0)
        return std::nullopt;
    return Entry{found.st_mode, found.st_uid};
}

QString OwnerOf(const Entry& entry, const QString& path)
{
    const QString name = QFileInfo(path).owner();
    return u"user %1 (uid %2)"_s.arg(name.isEmpty() ? u"without a name"_s : name, QString::number(entry.uid));
}

/// Why an entry cannot be this user's socket; "" if it can.
QString Objection(const Entry& entry, const QString& path)
{
    if (S_ISLNK(entry.mode))
        return u"%1 is a symbolic link, not a socket (made by uid %2)"_s.arg(path, QString::number(entry.uid));
    if (!S_ISSOCK(entry.mode))
        return u"%1 is not a socket"_s.arg(path);
    if (entry.uid != geteuid())
        return u"The socket %1 is not this user's: it belongs to %2"_s.arg(path, OwnerOf(entry, path));
    return {};
}

QString LastError()
{
    return QString::fromLocal8Bit(std::strerror(errno));
}

bool IsPrivateDirectory(const Entry& entry)
{
    return S_ISDIR(entry.mode) && entry.uid == geteuid() && (entry.mode & 077) == 0;
}

} // namespace

QString DefaultSocketPath(const QString& home)
{
    const QString canonical = QFileInfo(home).canonicalFilePath();
    const QByteArray place =
        (canonical.isEmpty() ? QDir::cleanPath(QDir(home).absolutePath()) : canonical).toUtf8();
    const QByteArray digest = QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex().left(8);
    const QString name = u"/kel-%1.sock"_s.arg(QString::fromLatin1(digest));

    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (runtime.startsWith(u'/') && QFile::encodeName(runtime + name).size() < kLongestPath) {
        const std::optional<Entry> entry = Look(runtime);
        if (entry && IsPrivateDirectory(*entry))
            return runtime + name;
    }
    return u"/tmp/vasclip-%1%2"_s.arg(CurrentUserId(), name);
}

QString WholeSocketPath(const QString& path)
{
    return QFileInfo(path).absoluteFilePath();
}

void RequireOwnSocket(const QString& path)
{
    const std::optional<Entry> entry = Look(path);
    if (!entry)
        throw RuntimeError(error::kLinkNoAnswer, u"No forms program listens at %1"_s.arg(path));
    if (const QString objection = Objection(*entry, path); !objection.isEmpty())
        throw RuntimeError(error::kLinkNoAnswer, objection);
}

void PrepareSocketDirectory(const QString& path)
{
    if (QFile::encodeName(path).size() >= static_cast<qsizetype>(sizeof(sockaddr_un::sun_path)))
        throw RuntimeError(error::kBadFileName, u"The socket path %1 is too long for the system"_s.arg(path));
    const QString directory = QFileInfo(path).absolutePath();
    if (mkdir(QFile::encodeName(directory).constData(), 0700) != 0 && errno != EEXIST)
        throw RuntimeError(error::kPathNotFound,
                           u"The socket's directory %1 cannot be made: %2"_s.arg(directory, LastError()));
    const std::optional<Entry> entry = Look(directory);
    if (!entry || !S_ISDIR(entry->mode))
        throw RuntimeError(error::kPermissionDenied,
                           u"%1, the socket's directory, is a link or no directory"_s.arg(directory));
    if (entry->uid != geteuid())
        throw RuntimeError(error::kPermissionDenied,
                           u"%1, the socket's directory, is not this user's: it belongs to %2"_s.arg(
                               directory, OwnerOf(*entry, directory)));
    if (!IsPrivateDirectory(*entry))
        throw RuntimeError(
            error::kPermissionDenied,
            u"%1, the socket's directory, is open to other users; it must have mode 0700"_s.arg(directory));
}

SocketState LookAtSocket(const QString& path)
{
    const std::optional<Entry> entry = Look(path);
    if (!entry)
        return SocketState::Free;
    if (const QString objection = Objection(*entry, path); !objection.isEmpty())
        throw RuntimeError(error::kFileExists, objection);
    return SocketState::Occupied;
}

void RemoveSocket(const QString& path)
{
    QFile::remove(path);
}

void CloseToOthers(const QString& path)
{
    chmod(QFile::encodeName(path).constData(), 0600);
}

SocketDirectoryLock::SocketDirectoryLock(const QString& path)
    : m_handle(open(QFile::encodeName(QFileInfo(path).absolutePath()).constData(),
                    O_RDONLY | O_DIRECTORY | O_CLOEXEC))
{
    if (m_handle >= 0) {
        while (flock(m_handle, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
}

SocketDirectoryLock::~SocketDirectoryLock()
{
    if (m_handle >= 0)
        close(m_handle);
}

} // namespace vasclip::conduit
