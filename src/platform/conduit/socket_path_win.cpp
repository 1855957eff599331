#include "platform/conduit/socket_path.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFileInfo>

using namespace Qt::Literals::StringLiterals;

// Named pipes are no files: they live and go with their server, and who may open one is settled when it is
// made.

namespace vasclip::conduit {

QString DefaultSocketPath(const QString& home)
{
    const QString canonical = QFileInfo(home).canonicalFilePath();
    const QByteArray place =
        (canonical.isEmpty() ? QDir::cleanPath(QDir(home).absolutePath()) : canonical).toLower().toUtf8();
    const QByteArray digest = QCryptographicHash::hash(place, QCryptographicHash::Sha1).toHex().left(8);
    return u"\\\\.\\pipe\\kel-%1.sock"_s.arg(QString::fromLatin1(digest));
}

QString WholeSocketPath(const QString& path)
{
    return path;
}

void RequireOwnSocket(const QString&) {}

void PrepareSocketDirectory(const QString&) {}

SocketState LookAtSocket(const QString&)
{
    return SocketState::Occupied;
}

void RemoveSocket(const QString&) {}

void CloseToOthers(const QString&) {}

SocketDirectoryLock::SocketDirectoryLock(const QString&)
{
    Q_UNUSED(m_handle);
}

SocketDirectoryLock::~SocketDirectoryLock() = default;

} // namespace vasclip::conduit
