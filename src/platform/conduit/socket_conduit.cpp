#include "platform/conduit/socket_conduit.h"

#include "platform/conduit/channel_conduit.h"
#include "platform/conduit/link_channel.h"
#include "platform/conduit/socket_path.h"
#include "platform/text/runtime_error.h"

#include <QLocalSocket>

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

std::unique_ptr<Conduit> MakeSocketConduit(SocketOptions options)
{
    const int timeLimitMs = options.timeLimitMs;
    Patience* const patience = options.patience;
    options.socketPath = WholeSocketPath(options.socketPath);
    return std::make_unique<ChannelConduit>(
        [options = std::move(options)](const QDeadlineTimer& deadline) {
            RequireOwnSocket(options.socketPath);
            auto socket = std::make_unique<QLocalSocket>();
            socket->connectToServer(options.socketPath);
            if (!socket->waitForConnected(static_cast<int>(deadline.remainingTime()))) {
                // One that hangs with a full queue of callers is there all the same.
                const bool hangs = socket->state() == QLocalSocket::ConnectingState ||
                                   socket->error() == QLocalSocket::SocketTimeoutError;
                if (socket->error() == QLocalSocket::ServerNotFoundError) // a pipe can't be looked for before
                    throw RuntimeError(error::kLinkNoAnswer, u"No forms program listens at %1"_s.arg(options.socketPath));
                throw RuntimeError(hangs ? error::kLinkTimeOut : error::kLinkNoAnswer,
                                   u"No forms program answers at %1: %2"_s.arg(options.socketPath,
                                                                               socket->errorString()));
            }
            RequireOwnUser(options.peerOf, socket->socketDescriptor(), SocketEnd::Client,
                           error::kLinkNoAnswer);
            QLocalSocket* raw = socket.get();
            return std::make_unique<LinkChannel>(
                std::move(socket),
                LinkChannel::Ways{[raw] { return raw->state() == QLocalSocket::ConnectedState; },
                                  [raw] { return MayHaveNews(raw->socketDescriptor()); },
                                  [raw] { raw->flush(); }});
        },
        timeLimitMs, patience);
}

} // namespace vasclip::conduit
