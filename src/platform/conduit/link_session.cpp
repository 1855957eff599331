#include "platform/conduit/link_session.h"

#include "platform/text/runtime_error.h"

#include <QCoreApplication>

#include <exception>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

LinkSession::LinkSession(LinkHandler& handler, QString program, ExchangeObserver observer)
    : m_handler(handler)
    , m_program(std::move(program))
    , m_observer(std::move(observer))
{}

QList<QByteArray> LinkSession::Feed(const QByteArray& bytes)
{
    QList<QByteArray> answers;
    if (m_finished)
        return answers;
    m_lines.Append(bytes);
    try {
        QByteArray line;
        while (m_lines.Next(line)) {
            if (!m_greeted) {
                answers.append(Greet(line));
                continue;
            }
            LinkMessage message;
            try {
                message = DecodeMessage(line);
            } catch (const RuntimeError& failure) {
                answers.append(Encode({0, LinkAnswer::Kind::Error, failure.Description(), failure.Number()}));
                continue;
            }
            const LinkAnswer answer = AnswerTo(m_handler, message);
            if (m_observer)
                m_observer(message, answer);
            answers.append(Encode(answer));
        }
    } catch (const RuntimeError& failure) {
        answers.append(Encode({0, LinkAnswer::Kind::Error, failure.Description(), failure.Number()}));
        m_finished = true;
    }
    return answers;
}

QByteArray LinkSession::Greet(const QByteArray& line)
{
    const Hello hello = DecodeHello(line);
    m_greeted = true;
    return Encode(Hello{hello.nonce, m_program, QCoreApplication::applicationPid()});
}

LinkAnswer AnswerTo(LinkHandler& handler, const LinkMessage& message)
{
    try {
        switch (message.verb) {
        case Verb::Request:
            return {message.id, LinkAnswer::Kind::Text, handler.Request(message.topic, message.item), 0};
        case Verb::Poke:
            handler.Poke(message.topic, message.item, message.text);
            break;
        case Verb::Execute:
            handler.Execute(message.topic, message.text);
            break;
        }
        return {message.id, LinkAnswer::Kind::Ok, {}, 0};
    } catch (const RuntimeError& refusal) {
        return {message.id, LinkAnswer::Kind::Error, refusal.Description(), refusal.Number()};
    } catch (const std::exception& failure) {
        return {message.id, LinkAnswer::Kind::Error, QString::fromLocal8Bit(failure.what()),
                error::kLinkBusy};
    }
}

} // namespace vasclip::conduit
