#include "platform/conduit/link_server.h"

#include "platform/conduit/socket_path.h"
#include "platform/text/runtime_error.h"

#include <QLocalServer>
#include <QLocalSocket>
#include <QPointer>
#include <QTimer>

#include <unordered_map>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

struct LinkServer::Private
{
    Private(LinkHandler& linkHandler, ServerOptions serverOptions)
        : handler(linkHandler)
        , options(std::move(serverOptions))
    {
        options.socketPath = WholeSocketPath(options.socketPath);
        QObject::connect(&server, &QLocalServer::newConnection, &server, [this] { Accept(); });
    }

    void Accept();
    void Read(QLocalSocket* socket);
    void Drop(QLocalSocket* socket);
    void Answer(QLocalSocket* socket, const QByteArray& line, bool greeting);
    void Write(QLocalSocket* socket, const QByteArray& line);
    void RefuseIfAlive();

    struct Client
    {
        LinkSession session;
        bool greeted = false;
    };

    LinkHandler& handler;
    ServerOptions options;
    std::unordered_map<QLocalSocket*, std::unique_ptr<Client>> clients;
    QLocalServer server;
    int answered = 0;
};

LinkServer::LinkServer(LinkHandler& handler, ServerOptions options)
    : d(std::make_unique<Private>(handler, std::move(options)))
{}

LinkServer::~LinkServer()
{
    Close();
}

void LinkServer::Listen()
{
    const QString& path = d->options.socketPath;
    PrepareSocketDirectory(path);
    const SocketDirectoryLock lock(path);
    if (LookAtSocket(path) == SocketState::Occupied) {
        d->RefuseIfAlive();
        RemoveSocket(path);
    }
    if (!d->server.listen(path))
        throw RuntimeError(error::kPermissionDenied,
                           u"The link cannot listen at %1: %2"_s.arg(path, d->server.errorString()));
    CloseToOthers(path);
}

void LinkServer::Close()
{
    d->server.close();
    while (!d->clients.empty())
        d->Drop(d->clients.begin()->first);
}

void LinkServer::Private::RefuseIfAlive()
{
    constexpr int kLookMs = 1000;
    QLocalSocket probe;
    probe.connectToServer(options.socketPath);
    if (!probe.waitForConnected(kLookMs))
        return;
    throw RuntimeError(
        error::kFileAlreadyOpen,
        u"Another program already listens at %1: %2. Close it, or give this one another socket"_s.arg(
            options.socketPath, Describe(PeerOf(probe.socketDescriptor(), SocketEnd::Client))));
}

void LinkServer::Private::Accept()
{
    while (QLocalSocket* socket = server.nextPendingConnection()) {
        try {
            RequireOwnUser(options.peerOf, socket->socketDescriptor(), SocketEnd::Server,
                           error::kPermissionDenied);
        } catch (const RuntimeError& refusal) {
            if (options.onRefused)
                options.onRefused(refusal.Description());
            socket->write(Encode({0, LinkAnswer::Kind::Error, refusal.Description(), refusal.Number()}));
            socket->flush();
            socket->disconnectFromServer();
            socket->deleteLater();
            continue;
        }
        clients.emplace(socket, new Client{LinkSession(handler, options.program, options.onExchange)});
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [this, socket] { Read(socket); });
        QObject::connect(socket, &QLocalSocket::disconnected, socket, [this, socket] { Drop(socket); });
        if (options.onClients)
            options.onClients(static_cast<int>(clients.size()));
        if (socket->bytesAvailable() > 0)
            Read(socket);
    }
}

void LinkServer::Private::Read(QLocalSocket* socket)
{
    const auto found = clients.find(socket);
    if (found == clients.end())
        return;
    Client& client = *found->second;
    const QList<QByteArray> lines = client.session.Feed(socket->readAll());
    const bool finished = client.session.Finished();
    for (const QByteArray& line : lines) {
        // Writing can end in Drop, which takes the client away.
        if (!clients.contains(socket))
            return;
        const bool greeting = !std::exchange(client.greeted, true);
        Answer(socket, line, greeting);
    }
    if (finished && clients.contains(socket))
        socket->disconnectFromServer();
}

void LinkServer::Private::Answer(QLocalSocket* socket, const QByteArray& line, bool greeting)
{
    const LinkFaults& faults = options.faults;
    if (greeting) {
        Write(socket, line);
        return;
    }
    if (faults.neverAnswer)
        return;
    const int count = answered++;
    if (faults.dieAfter >= 0 && count >= faults.dieAfter) {
        Write(socket, line.left(line.size() / 2));
        if (faults.die)
            faults.die();
        return;
    }
    const QByteArray sent = faults.garbageAfter >= 0 && count >= faults.garbageAfter
                                ? QByteArrayLiteral("\x01{what?\xff\n")
                                : line;
    if (faults.delayMs <= 0) {
        Write(socket, sent);
        return;
    }
    QTimer::singleShot(faults.delayMs, socket, [this, socket, sent] { Write(socket, sent); });
}

void LinkServer::Private::Write(QLocalSocket* socket, const QByteArray& line)
{
    socket->write(line);
    socket->flush();
}

void LinkServer::Private::Drop(QLocalSocket* socket)
{
    if (clients.erase(socket) == 0)
        return;
    socket->disconnect();
    socket->abort();
    socket->deleteLater();
    if (options.onClients)
        options.onClients(static_cast<int>(clients.size()));
}

} // namespace vasclip::conduit
