#pragma once

#include "platform/conduit/dde/limits.h"
#include "platform/conduit/dde/partner.h"

#include <functional>
#include <memory>

namespace vasclip::conduit::dde {

struct ClientOptions
{
    std::shared_ptr<const CodePage> page;
    int timeLimitMs = 5000;          ///< of an opening and of each exchange
    std::function<void()> waiting{}; ///< called again and again while an answer is late
};

/// The client's end over the system's own messages.
///
/// The conversation stays when the topic is asked for again, and is closed when another one is, or when it has rested
/// for kRestMs and `Rest` is called, and when the same item is asked about again or a second command is sent, so that what
/// comes late or twice is not taken for an answer.
class Client : public Partner
{
public:
    /// Closes what has rested, and takes in what came meanwhile; for the idle times of an event loop.
    virtual void Rest() = 0;

    static constexpr unsigned kRestMs = 2000;
};

/// The windows belong to the thread that calls.
[[nodiscard]] std::unique_ptr<Client> MakeClient(ClientOptions options);

} // namespace vasclip::conduit::dde
