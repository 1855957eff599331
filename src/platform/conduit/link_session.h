#pragma once

#include "platform/conduit/protocol.h"

#include <QList>

#include <functional>

namespace vasclip::conduit {

/// What a forms program does with the three operations. To refuse one it throws RuntimeError; the words reach
/// the client.
class LinkHandler
{
public:
    virtual ~LinkHandler() = default;
    [[nodiscard]] virtual QString Request(const QString& topic, const QString& item) = 0;
    virtual void Poke(const QString& topic, const QString& item, const QString& text) = 0;
    virtual void Execute(const QString& topic, const QString& command) = 0;
};

/// What a handler makes of a message; what it throws is a refusal.
[[nodiscard]] LinkAnswer AnswerTo(LinkHandler& handler, const LinkMessage& message);

using ExchangeObserver = std::function<void(const LinkMessage&, const LinkAnswer&)>;

/// The answering side of one conversation: bytes in, answer lines out. It serves sockets and pipes alike.
///
/// A line that cannot be read is refused with id 0 and the conversation goes on, since the line feed keeps
/// the two sides in step; a bad greeting or an endless line ends it.
class LinkSession
{
public:
    LinkSession(LinkHandler& handler, QString program, ExchangeObserver observer = {});

    /// @return the lines to send back, in order
    [[nodiscard]] QList<QByteArray> Feed(const QByteArray& bytes);
    [[nodiscard]] bool Finished() const { return m_finished; }

private:
    [[nodiscard]] QByteArray Greet(const QByteArray& line);
    LinkHandler& m_handler;
    QString m_program;
    ExchangeObserver m_observer;
    LineCutter m_lines;
    bool m_greeted = false;
    bool m_finished = false;
};

} // namespace vasclip::conduit
