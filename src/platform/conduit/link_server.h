#pragma once

#include "platform/conduit/link_session.h"
#include "platform/conduit/peer.h"

#include <QString>

#include <functional>
#include <memory>

namespace vasclip::conduit {

/// What a server does wrong on purpose, so that the other side can be tried. Answers are counted over all
/// clients, greetings left out.
struct LinkFaults
{
    int delayMs = 0;           ///< every answer comes that much later
    int garbageAfter = -1;     ///< after that many answers, garbage
    int dieAfter = -1;         ///< after that many answers, half an answer and `die`
    bool neverAnswer = false;  ///< greets, listens, and is silent
    std::function<void()> die; ///< ends the process
};

struct ServerOptions
{
    QString socketPath;
    QString program;
    PeerReader peerOf = PeerOf;
    LinkFaults faults;
    ExchangeObserver onExchange;                         ///< every exchange, after it
    std::function<void(int clients)> onClients;          ///< a client came or went
    std::function<void(const QString& words)> onRefused; ///< a client was turned away
};

/// Listens on a local socket that only this user may open, and serves any number of clients in the event loop
/// of the thread that made it.
class LinkServer
{
public:
    LinkServer(LinkHandler& handler, ServerOptions options);
    ~LinkServer();
    LinkServer(const LinkServer&) = delete;
    LinkServer& operator=(const LinkServer&) = delete;

    /// Takes the address; the socket that a dead process left there is replaced.
    /// @throws RuntimeError 55 if a living program listens there (its process is named), 52, 58, 70, 76 if
    /// the address is not usable
    void Listen();
    /// Stops and takes the socket away. Also done on destruction.
    void Close();

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace vasclip::conduit
