#pragma once

#include <QString>

#include <memory>

namespace vasclip::conduit {

/// Where the forms program of a home listens: "kel-" + eight hexadecimal digits of the home's canonical path
/// +
/// ".sock" in the user's runtime directory (XDG_RUNTIME_DIR if it is this user's alone), else in
/// "/tmp/vasclip-" + uid. Always shorter than 100 bytes. Nothing is made.
[[nodiscard]] QString DefaultSocketPath(const QString& home);

/// The path as the system has to be told it: from the root.
[[nodiscard]] QString WholeSocketPath(const QString& path);

/// The client's look at the address before it connects: a socket, no link, and this user's.
/// @throws RuntimeError 282 that says what stands there instead and whose it is
void RequireOwnSocket(const QString& path);

/// Makes the socket's directory if it is missing (mode 0700).
/// @throws RuntimeError 70 if it is a link, another user's, or open to others, 52 if the path is too long for
/// the system, 76 if it cannot be made
void PrepareSocketDirectory(const QString& path);

/// What stands at the address of a server that wants to listen.
enum class SocketState { Free, Occupied };

/// @throws RuntimeError 58 if something other than this user's socket stands there
[[nodiscard]] SocketState LookAtSocket(const QString& path);

/// Takes away the socket of a process that has gone.
void RemoveSocket(const QString& path);

/// Leaves the socket to its owner only (mode 0600).
void CloseToOthers(const QString& path);

/// Held while a server looks, removes and listens, so that two starts at once do not take away each other's
/// socket. It writes nothing.
class SocketDirectoryLock
{
public:
    explicit SocketDirectoryLock(const QString& path);
    ~SocketDirectoryLock();
    SocketDirectoryLock(const SocketDirectoryLock&) = delete;
    SocketDirectoryLock& operator=(const SocketDirectoryLock&) = delete;

private:
    int m_handle = -1;
};

} // namespace vasclip::conduit
