#pragma once

#include "platform/conduit/conduit.h"
#include "platform/conduit/link_way.h"

#include <QDeadlineTimer>

#include <functional>
#include <memory>

namespace vasclip::conduit {

/// Makes a way to the forms program, before it is opened.
/// @throws RuntimeError 282 nobody answers
using Connector = std::function<std::unique_ptr<LinkWay>(const QDeadlineTimer&)>;

/// The members of the link field over a way.
///
/// The way itself is kept while `LinkMode` is 0 and looked at again when a conversation opens, so that a send
/// of forty fields costs forty round trips and not forty connections more.
class ChannelConduit final : public Conduit
{
public:
    /// @param patience  may be nullptr: nothing happens while an answer is waited for
    ChannelConduit(Connector connector, int timeLimitMs, Patience* patience = nullptr);
    ~ChannelConduit() override;

    [[nodiscard]] QString Text() const override { return m_text; }
    void SetText(const QString& text) override { m_text = text; }
    [[nodiscard]] QString LinkTopic() const override { return m_topic; }
    void SetLinkTopic(const QString& topic) override;
    [[nodiscard]] QString LinkItem() const override { return m_item; }
    void SetLinkItem(const QString& item) override { m_item = item; }
    [[nodiscard]] qint16 LinkMode() const override { return m_mode; }
    void SetLinkMode(qint16 mode) override;

    void LinkRequest() override;
    void LinkPoke() override;
    void LinkExecute(const QString& command) override;

private:
    [[nodiscard]] QString Exchange(LinkMessage message);

    Connector m_connector;
    int m_timeLimitMs;
    Patience* m_patience;
    bool m_exchanging = false;
    std::unique_ptr<LinkWay> m_way;
    QString m_text, m_topic, m_item;
    qint16 m_mode = 0;
};

} // namespace vasclip::conduit
