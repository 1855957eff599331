#pragma once

#include "platform/conduit/conduit.h"

#include <memory>

namespace vasclip::conduit {

/// A link field whose way is chosen after it was made: who talks holds this one throughout.
class ChosenConduit final : public Conduit
{
public:
    explicit ChosenConduit(std::unique_ptr<Conduit> first);

    /// Another way from now on; the members keep what they hold, and the conversation is closed.
    void Use(std::unique_ptr<Conduit> other);

    [[nodiscard]] QString Text() const override { return m_way->Text(); }
    void SetText(const QString& text) override { m_way->SetText(text); }
    [[nodiscard]] QString LinkTopic() const override { return m_way->LinkTopic(); }
    void SetLinkTopic(const QString& topic) override { m_way->SetLinkTopic(topic); }
    [[nodiscard]] QString LinkItem() const override { return m_way->LinkItem(); }
    void SetLinkItem(const QString& item) override { m_way->SetLinkItem(item); }
    [[nodiscard]] qint16 LinkMode() const override { return m_way->LinkMode(); }
    void SetLinkMode(qint16 mode) override { m_way->SetLinkMode(mode); }

    void LinkRequest() override { m_way->LinkRequest(); }
    void LinkPoke() override { m_way->LinkPoke(); }
    void LinkExecute(const QString& command) override { m_way->LinkExecute(command); }

private:
    std::unique_ptr<Conduit> m_way;
};

} // namespace vasclip::conduit
