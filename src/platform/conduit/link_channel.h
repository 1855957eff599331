#pragma once

#include "platform/conduit/link_way.h"

#include <QIODevice>

#include <functional>
#include <memory>

namespace vasclip::conduit {

/// The client's end of a conversation over any device that carries bytes both ways: a local socket, or a
/// process that is written to and read from.
///
/// A channel that has thrown 286 or 289 is used up: an answer that comes later belongs to nobody. Not so one that
/// carries (Ways::carries), where the other end says in an answer that the forms program behind it was late or has gone;
/// and where such a one is slow to start, the next opening goes on waiting for it.
class LinkChannel final : public LinkWay
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
        /// What the other end said to people before it went; "" if nothing.
        std::function<QString()> lastWords = {};
        /// At the other end is a bridge, which has a forms program behind it: the number of a refusal counts.
        bool carries = false;
    };

    /// @param device  connected or running; owned
    LinkChannel(std::unique_ptr<QIODevice> device, Ways ways);
    ~LinkChannel() override;
    LinkChannel(const LinkChannel&) = delete;
    LinkChannel& operator=(const LinkChannel&) = delete;

    void SetPatience(Patience* patience) override { m_patience = patience; }
    [[nodiscard]] bool Ready(const QString& topic) override;
    /// The exchange of names that opens every conversation, unless there was one.
    void Open(const QString& topic, const QDeadlineTimer& deadline) override;
    [[nodiscard]] QString Exchange(LinkMessage message, const QDeadlineTimer& deadline) override;
    [[nodiscard]] bool Usable() override;

private:
    void Greet(const QDeadlineTimer& deadline);
    /// True if the other side is there and has said nothing unasked.
    [[nodiscard]] bool Idle();
    [[noreturn]] void Refuse(const LinkAnswer& answer) const;
    void Send(const QByteArray& line);
    [[nodiscard]] QByteArray Receive(const QDeadlineTimer& deadline);
    [[nodiscard]] bool Wait(const QDeadlineTimer& deadline);

    std::unique_ptr<QIODevice> m_device;
    Ways m_ways;
    Patience* m_patience = nullptr;
    LineCutter m_lines;
    QString m_nonce;        ///< of the greeting under way
    bool m_greeted = false;
    bool m_spent = false;
    qint64 m_lastId = 0;
};

} // namespace vasclip::conduit
