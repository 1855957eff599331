#pragma once

#include "platform/conduit/conduit.h"
#include "platform/conduit/patience.h"
#include "platform/conduit/peer.h"

#include <memory>

namespace vasclip::conduit {

struct SocketOptions
{
    QString socketPath;
    int timeLimitMs = 5000;
    PeerReader peerOf = PeerOf;
    Patience* patience = nullptr; ///< outlives the conduit
};

/// The link field over the local socket of a forms program. Before a word is exchanged it makes sure that the
/// socket and the process behind it are this user's; another's is error 282, which names it.
[[nodiscard]] std::unique_ptr<Conduit> MakeSocketConduit(SocketOptions options);

} // namespace vasclip::conduit
