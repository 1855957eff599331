#include "kelforms/app/exchange.h"

#include "platform/conduit/dde/code_page.h"
#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/server.h"
#include "platform/text/runtime_error.h"

#include <utility>

namespace kelforms {

namespace conduit = vasclip::conduit;
namespace dde = vasclip::conduit::dde;

struct Exchange::Private final : dde::ServerHandler
{
    Private(conduit::LinkHandler& linkHandler, std::function<bool(const QString&)> takesTopic,
            conduit::ExchangeObserver exchangeObserver)
        : handler(linkHandler)
        , takes(std::move(takesTopic))
        , observer(std::move(exchangeObserver))
    {}

    bool Takes(const std::u16string& service, const std::u16string& topic) override
    {
        return takes(QString::fromStdU16String(service) + u'|' + QString::fromStdU16String(topic));
    }
    std::optional<std::u16string> Request(const std::u16string& topic, const std::u16string& item) override
    {
        const conduit::LinkAnswer answer = Serve(conduit::Verb::Request, topic, item, {});
        return answer.kind == conduit::LinkAnswer::Kind::Error ? std::nullopt
                                                                : std::optional(answer.text.toStdU16String());
    }
    bool Poke(const std::u16string& topic, const std::u16string& item, const std::u16string& text) override
    {
        return Serve(conduit::Verb::Poke, topic, item, text).kind != conduit::LinkAnswer::Kind::Error;
    }
    bool Execute(const std::u16string& topic, const std::u16string& command) override
    {
        return Serve(conduit::Verb::Execute, topic, {}, command).kind != conduit::LinkAnswer::Kind::Error;
    }

    conduit::LinkAnswer Serve(conduit::Verb verb, const std::u16string& topic, const std::u16string& item,
                              const std::u16string& text)
    {
        const conduit::LinkMessage message{++count, verb, QString::fromStdU16String(topic), QString::fromStdU16String(item),
                                           QString::fromStdU16String(text)};
        const conduit::LinkAnswer answer = conduit::AnswerTo(handler, message);
        if (observer)
            observer(message, answer);
        return answer;
    }

    conduit::LinkHandler& handler;
    std::function<bool(const QString&)> takes;
    conduit::ExchangeObserver observer;
    qint64 count = 0;
    std::unique_ptr<dde::Server> server;
};

Exchange::Exchange(conduit::LinkHandler& handler, std::function<bool(const QString&)> takes,
                   conduit::ExchangeObserver observer)
    : d(std::make_unique<Private>(handler, std::move(takes), std::move(observer)))
{
    try {
        d->server = dde::MakeServer(*d, dde::SystemCodePage(0));
    } catch (const dde::Failure& failure) {
        throw vasclip::RuntimeError(vasclip::error::kDeviceIo, QString::fromUtf8(failure.what()));
    }
}

Exchange::~Exchange() = default;

} // namespace kelforms
