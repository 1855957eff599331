#include "platform/conduit/link_channel.h"

#include "platform/conduit/no_way.h"
#include "platform/text/runtime_error.h"

#include <QCoreApplication>
#include <QRandomGenerator>

#include <algorithm>
#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

LinkChannel::LinkChannel(std::unique_ptr<QIODevice> device, Ways ways)
    : m_device(std::move(device))
    , m_ways(std::move(ways))
{}

LinkChannel::~LinkChannel() = default;

bool LinkChannel::Ready(const QString&)
{
    return m_greeted && Usable();
}

bool LinkChannel::Usable()
{
    if (m_spent)
        return false;
    return m_greeted ? Idle() : m_ways.carries && m_ways.alive();
}

void LinkChannel::Open(const QString&, const QDeadlineTimer& deadline)
{
    if (m_greeted)
        return;
    try {
        Greet(deadline);
    } catch (const RuntimeError& failure) {
        m_spent = !m_ways.carries || failure.Number() != error::kLinkTimeOut || !m_ways.alive();
        if (m_spent)
            throw;
        throw RuntimeError(error::kLinkTimeOut,
                           u"The bridge to the forms program is still starting, which the first time can take a minute; "
                           "try again"_s);
    }
    m_greeted = true;
}

void LinkChannel::Greet(const QDeadlineTimer& deadline)
{
    if (m_nonce.isEmpty()) {
        m_nonce = QString::number(QRandomGenerator::system()->generate64(), 16);
        Send(Encode(Hello{m_nonce, u"vasclip"_s, QCoreApplication::applicationPid()}));
    }
    const QByteArray line = Receive(deadline);
    if (line.startsWith("{\"error\"") || line.contains("\"error\":")) {
        const LinkAnswer refusal = DecodeAnswer(line);
        throw RuntimeError(error::kLinkPeerGone,
                           u"The forms program refused the conversation: %1"_s.arg(refusal.text));
    }
    const Hello partner = DecodeHello(line);
    if (partner.nonce != m_nonce)
        throw RuntimeError(error::kLinkPeerGone, u"The greeting on the link answers another conversation"_s);
}

QString LinkChannel::Exchange(LinkMessage message, const QDeadlineTimer& deadline)
{
    message.id = ++m_lastId;
    const QByteArray line = Encode(message);
    if (line.size() > kMaxLine)
        throw RuntimeError(
            error::kLinkBusy,
            u"The text is too long for the link: %1 bytes, at most %2 go"_s.arg(line.size()).arg(kMaxLine));
    m_spent = true; // until it is answered
    Send(line);
    // Not in the greeting: whoever refuses the conversation may have closed it, and his words would go with
    // it.
    if (m_ways.push)
        m_ways.push();
    const LinkAnswer answer = DecodeAnswer(Receive(deadline));
    if (answer.id == 0 && answer.kind == LinkAnswer::Kind::Error)
        throw RuntimeError(error::kLinkPeerGone,
                           u"The forms program could not read the line: %1"_s.arg(answer.text));
    if (answer.id != message.id)
        throw RuntimeError(
            error::kLinkPeerGone,
            u"Garbage on the link (answer %1 to question %2)"_s.arg(answer.id).arg(message.id));
    if (answer.kind == LinkAnswer::Kind::Error) {
        m_spent = false;
        Refuse(answer);
    }
    if ((answer.kind == LinkAnswer::Kind::Text) != (message.verb == Verb::Request))
        throw RuntimeError(error::kLinkPeerGone, u"Garbage on the link (an answer of the wrong kind)"_s);
    m_spent = false;
    return answer.text;
}

/// What a forms program says is a refusal, whatever its number. A bridge tells by it what became of the one behind it.
void LinkChannel::Refuse(const LinkAnswer& answer) const
{
    const bool known = answer.number == error::kLinkNoAnswer || answer.number == error::kLinkTimeOut ||
                       answer.number == error::kLinkPeerGone;
    throw RuntimeError(m_ways.carries && known ? answer.number : error::kLinkBusy, answer.text);
}

bool LinkChannel::Idle()
{
    // Looking at the device is what makes it notice that the other side has gone; it is dear, and asked for
    // before every exchange.
    if (m_device->bytesAvailable() == 0 && (!m_ways.news || m_ways.news()))
        m_device->waitForReadyRead(0);
    return m_ways.alive() && m_device->bytesAvailable() == 0 && m_lines.Empty();
}

void LinkChannel::Send(const QByteArray& line)
{
    if (m_device->write(line) != line.size())
        throw RuntimeError(error::kLinkPeerGone,
                           u"The forms program has gone: %1"_s.arg(m_device->errorString()));
}

/// @return false if nothing came until the deadline, or can come any more
bool LinkChannel::Wait(const QDeadlineTimer& deadline)
{
    if (!m_patience) {
        const auto left = static_cast<int>(deadline.remainingTime());
        return left > 0 && m_device->waitForReadyRead(left);
    }
    for (int slice = kFirstWaitMs;; slice = kNextWaitMs) {
        const auto left = static_cast<int>(deadline.remainingTime());
        if (left <= 0)
            return false;
        if (m_device->waitForReadyRead(std::min(left, slice)))
            return true;
        // A turn of the queue may have taken the answer in already.
        if (m_device->bytesAvailable() > 0)
            return true;
        if (!m_ways.alive())
            return false;
        m_patience->Waiting();
        if (m_device->bytesAvailable() > 0)
            return true;
    }
}

QByteArray LinkChannel::Receive(const QDeadlineTimer& deadline)
{
    QByteArray line;
    while (!m_lines.Next(line)) {
        if (m_device->bytesAvailable() == 0) {
            if (!Wait(deadline) && m_device->bytesAvailable() == 0) {
                if (m_ways.alive() && deadline.remainingTime() <= 0)
                    throw RuntimeError(error::kLinkTimeOut, u"The forms program did not answer in time"_s);
                const QString said = m_ways.lastWords ? m_ways.lastWords() : QString();
                if (!said.isEmpty())
                    throw RuntimeError(m_greeted ? error::kLinkPeerGone : kNoWay,
                                       u"The bridge to the forms program has ended: %1"_s.arg(said));
                throw RuntimeError(error::kLinkPeerGone,
                                   m_lines.Empty()
                                       ? u"The forms program closed the link"_s
                                       : u"The forms program closed the link in the middle of an answer"_s);
            }
        }
        m_lines.Append(m_device->readAll());
    }
    return line;
}

} // namespace vasclip::conduit
