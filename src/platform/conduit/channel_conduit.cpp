#include "platform/conduit/channel_conduit.h"

#include "platform/text/runtime_error.h"

#include <utility>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

/// One exchange under the eyes of a patience.
class Watched
{
public:
    Watched(Patience* patience, bool& exchanging)
        : m_patience(patience)
        , m_exchanging(exchanging)
    {
        // A turn of the queue within an exchange must not begin another: the answers would cross.
        if (m_exchanging)
            throw RuntimeError(error::kLinkBusy, u"The link is at work on another exchange"_s);
        if (m_patience)
            m_patience->BeforeExchange();
        m_exchanging = true;
    }
    ~Watched()
    {
        m_exchanging = false;
        if (m_patience)
            m_patience->AfterExchange();
    }
    Watched(const Watched&) = delete;
    Watched& operator=(const Watched&) = delete;

private:
    Patience* m_patience;
    bool& m_exchanging;
};

} // namespace

ChannelConduit::ChannelConduit(Connector connector, int timeLimitMs, Patience* patience)
    : m_connector(std::move(connector))
    , m_timeLimitMs(timeLimitMs)
    , m_patience(patience)
{}

ChannelConduit::~ChannelConduit() = default;

void ChannelConduit::SetLinkTopic(const QString& topic)
{
    if (m_mode != 0)
        throw RuntimeError(error::kLinkTopicOpen,
                           u"The topic cannot be changed while the conversation is open"_s);
    m_topic = topic;
}

void ChannelConduit::SetLinkMode(qint16 mode)
{
    if (mode == 0) {
        m_mode = 0;
        return;
    }
    if (mode != 2)
        throw RuntimeError(kBadLinkMode, u"The link mode can be 0 or 2, not %1"_s.arg(mode));
    if (m_topic.indexOf(u'|') < 1)
        throw RuntimeError(error::kLinkNoAnswer,
                           u"\"%1\" is no topic: a service, \"|\" and a topic are wanted"_s.arg(m_topic));
    if (m_way && m_way->Ready(m_topic)) {
        m_mode = 2;
        return;
    }
    const Watched watched(m_patience, m_exchanging);
    m_mode = 0;
    if (m_way && !m_way->Usable())
        m_way.reset();
    const QDeadlineTimer deadline(m_timeLimitMs);
    if (!m_way) {
        m_way = m_connector(deadline);
        m_way->SetPatience(m_patience);
    }
    try {
        m_way->Open(m_topic, deadline);
    } catch (...) {
        if (!m_way->Usable())
            m_way.reset();
        throw;
    }
    m_mode = 2;
}

void ChannelConduit::LinkRequest()
{
    m_text = Exchange({0, Verb::Request, m_topic, m_item, {}});
}

void ChannelConduit::LinkPoke()
{
    static_cast<void>(Exchange({0, Verb::Poke, m_topic, m_item, m_text}));
}

void ChannelConduit::LinkExecute(const QString& command)
{
    static_cast<void>(Exchange({0, Verb::Execute, m_topic, {}, command}));
}

QString ChannelConduit::Exchange(LinkMessage message)
{
    if (m_mode == 0)
        throw RuntimeError(kNoConversation, u"No conversation with the forms program is open"_s);
    const Watched watched(m_patience, m_exchanging);
    try {
        return m_way->Exchange(std::move(message), QDeadlineTimer(m_timeLimitMs));
    } catch (const RuntimeError& failure) {
        if (failure.Number() != error::kLinkBusy) {
            if (!m_way->Usable())
                m_way.reset();
            m_mode = 0;
        }
        throw;
    }
}

} // namespace vasclip::conduit
