#include "platform/conduit/chosen_conduit.h"

#include <utility>

namespace vasclip::conduit {

ChosenConduit::ChosenConduit(std::unique_ptr<Conduit> first)
    : m_way(std::move(first))
{}

void ChosenConduit::Use(std::unique_ptr<Conduit> other)
{
    m_way->SetLinkMode(0);
    other->SetText(m_way->Text());
    other->SetLinkTopic(m_way->LinkTopic());
    other->SetLinkItem(m_way->LinkItem());
    m_way = std::move(other);
}

} // namespace vasclip::conduit
