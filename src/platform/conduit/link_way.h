#pragma once

#include "platform/conduit/patience.h"
#include "platform/conduit/protocol.h"

#include <QDeadlineTimer>
#include <QString>

namespace vasclip::conduit {

/// A way to the forms program, over which the members of the link field work (ChannelConduit).
class LinkWay
{
public:
    virtual ~LinkWay() = default;

    /// Called while an answer is waited for; nullptr: nothing is.
    virtual void SetPatience(Patience* patience) = 0;
    /// True if an exchange about the topic can begin at once; it costs next to nothing to ask.
    [[nodiscard]] virtual bool Ready(const QString& topic) = 0;
    /// Makes it so. @throws RuntimeError 282, 285, 286, 289
    virtual void Open(const QString& topic, const QDeadlineTimer& deadline) = 0;
    /// Sends one message (its id is the way's own) and waits for its answer.
    /// @throws RuntimeError 285 with the words of a refusal, 282, 286, 289
    [[nodiscard]] virtual QString Exchange(LinkMessage message, const QDeadlineTimer& deadline) = 0;
    /// False once nothing more can come over it: it is dropped, and another one made at the next opening.
    [[nodiscard]] virtual bool Usable() = 0;
};

} // namespace vasclip::conduit
