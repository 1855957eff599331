#include "platform/conduit/dde_way.h"

#include "platform/conduit/dde/failure.h"
#include "platform/text/runtime_error.h"

#include <utility>

namespace vasclip::conduit {

namespace {

[[noreturn]] void Tell(const dde::Failure& failure)
{
    const int number = failure.Reason() == dde::Why::NoAnswer  ? error::kLinkNoAnswer
                       : failure.Reason() == dde::Why::TimeOut ? error::kLinkTimeOut
                       : failure.Reason() == dde::Why::Gone    ? error::kLinkPeerGone
                                                               : error::kLinkBusy;
    throw RuntimeError(number, QString::fromUtf8(failure.what()));
}

} // namespace

DdeWay::DdeWay(std::unique_ptr<dde::Partner> partner)
    : m_partner(std::move(partner))
{}

DdeWay::~DdeWay() = default;

bool DdeWay::Ready(const QString& topic)
{
    return m_partner->IsOpen(topic.toStdU16String());
}

void DdeWay::Open(const QString& topic, const QDeadlineTimer&)
{
    try {
        m_partner->Open(topic.toStdU16String());
    } catch (const dde::Failure& failure) {
        Tell(failure);
    }
}

QString DdeWay::Exchange(LinkMessage message, const QDeadlineTimer&)
{
    const std::u16string item = message.item.toStdU16String();
    const std::u16string text = message.text.toStdU16String();
    try {
        switch (message.verb) {
        case Verb::Request:
            return QString::fromStdU16String(m_partner->Request(item));
        case Verb::Poke:
            m_partner->Poke(item, text);
            break;
        case Verb::Execute:
            m_partner->Execute(text);
            break;
        }
    } catch (const dde::Failure& failure) {
        Tell(failure);
    }
    return {};
}

} // namespace vasclip::conduit
