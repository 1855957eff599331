#pragma once

#include "platform/conduit/dde/partner.h"
#include "platform/conduit/link_way.h"

#include <memory>

namespace vasclip::conduit {

/// A way over the desktop's own exchange, spoken by this process. The partner keeps the time limits and the patience.
class DdeWay final : public LinkWay
{
public:
    explicit DdeWay(std::unique_ptr<dde::Partner> partner);
    ~DdeWay() override;

    void SetPatience(Patience*) override {}
    [[nodiscard]] bool Ready(const QString& topic) override;
    void Open(const QString& topic, const QDeadlineTimer& deadline) override;
    [[nodiscard]] QString Exchange(LinkMessage message, const QDeadlineTimer& deadline) override;
    [[nodiscard]] bool Usable() override { return true; }

private:
    std::unique_ptr<dde::Partner> m_partner;
};

} // namespace vasclip::conduit
