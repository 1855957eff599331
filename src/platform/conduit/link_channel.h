#pragma once

#include "platform/conduit/patience.h"
#include "platform/conduit/protocol.h"

#include <QDeadlineTimer>
#include <QIODevice>

#include <functional>
#include <memory>

namespace vasclip::conduit {

/// The client's end of a conversation over any device that carries bytes both ways: a local socket, or a
/// process that is written to and read from.
///
/// A channel that has thrown 286 or 289 is used up: an answer that comes later belongs to nobody.
class LinkChannel
{
public:
    /// What the kind of device knows to do, beyond what every device does.
    struct Ways
    {
        /// False once nothing more can come from the device.
        std::function<bool()> alive;
        /// False if the system has nothing to tell of it; without this the device itself is asked.
        std::function<bool()> news = {};
        /// Sends a message that was written; without this it goes when its answer is waited for.
        std::function<void()> push = {};
    };

    /// @param device  connected or running; owned
    LinkChannel(std::unique_ptr<QIODevice> device, Ways ways);
    ~LinkChannel();
    LinkChannel(const LinkChannel&) = delete;
    LinkChannel& operator=(const LinkChannel&) = delete;

    /// Called while an answer is waited for; nullptr: nothing is.
    void SetPatience(Patience* patience) { m_patience = patience; }

    /// The exchange of names that opens every conversation.
    /// @throws RuntimeError 286, 289
    void Greet(const QDeadlineTimer& deadline);

    /// Sends one message (its id is set here) and waits for its answer.
    /// @throws RuntimeError 285 with the words of the refusal, 286, 289
    [[nodiscard]] QString Exchange(LinkMessage message, const QDeadlineTimer& deadline);

    /// True if the other side is there and has said nothing unasked.
    [[nodiscard]] bool Idle();

private:
    void Send(const QByteArray& line);
    [[nodiscard]] QByteArray Receive(const QDeadlineTimer& deadline);
    [[nodiscard]] bool Wait(const QDeadlineTimer& deadline);

    std::unique_ptr<QIODevice> m_device;
    Ways m_ways;
    Patience* m_patience = nullptr;
    LineCutter m_lines;
    qint64 m_lastId = 0;
};

} // namespace vasclip::conduit
