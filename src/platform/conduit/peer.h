#pragma once

#include <QString>

#include <functional>

namespace vasclip::conduit {

/// Who sits at the other end of a local socket, as the system vouches for it.
struct PeerIdentity
{
    QString userId;   ///< the uid in decimal, or the SID
    QString userName; ///< "" when the system knows no name
    qint64 pid = 0;
};

/// Which end of the socket this process holds; only Windows asks.
enum class SocketEnd { Client, Server };

/// @param descriptor  of a connected local socket
/// @throws RuntimeError 57 if the system cannot say
[[nodiscard]] PeerIdentity PeerOf(qintptr descriptor, SocketEnd end);

/// False if neither bytes nor the end of the conversation wait to be read. True where the system can't be
/// asked cheaply.
[[nodiscard]] bool MayHaveNews(qintptr descriptor);

[[nodiscard]] QString CurrentUserId();

/// "user bob (uid 1001), process 4711"
[[nodiscard]] QString Describe(const PeerIdentity& peer);

/// The system's answer by default; tests play an impostor.
using PeerReader = std::function<PeerIdentity(qintptr, SocketEnd)>;

/// @throws RuntimeError `number` that names the peer, unless it belongs to this user
void RequireOwnUser(const PeerReader& reader, qintptr descriptor, SocketEnd end, int number);

} // namespace vasclip::conduit
