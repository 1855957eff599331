#include "platform/conduit/channel_conduit.h"
#include "platform/conduit/dde/client.h"
#include "platform/conduit/dde/code_page.h"
#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde_conduit.h"
#include "platform/conduit/dde_way.h"
#include "platform/conduit/no_way.h"
#include "platform/text/runtime_error.h"

#include <QObject>
#include <QTimer>

#include <utility>

namespace vasclip::conduit {

namespace {

/// Gives a client the idle times of this thread's event loop.
class RestingClient final : public dde::Partner
{
public:
    explicit RestingClient(std::unique_ptr<dde::Client> client)
        : m_client(std::move(client))
    {
        constexpr int kLookMs = 500;
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
            if (!m_atWork)
                m_client->Rest();
        });
        m_timer.start(kLookMs);
    }
    void Open(const std::u16string& topic) override
    {
        const AtWork atWork(m_atWork);
        m_client->Open(topic);
    }
    bool IsOpen(const std::u16string& topic) override { return m_client->IsOpen(topic); }
    std::u16string Request(const std::u16string& item) override
    {
        const AtWork atWork(m_atWork);
        return m_client->Request(item);
    }
    void Poke(const std::u16string& item, const std::u16string& text) override
    {
        const AtWork atWork(m_atWork);
        m_client->Poke(item, text);
    }
    void Execute(const std::u16string& command) override
    {
        const AtWork atWork(m_atWork);
        m_client->Execute(command);
    }

private:
    /// A turn of the queue within an exchange must not take its conversation away.
    struct AtWork
    {
        explicit AtWork(bool& state)
            : flag(state)
        {
            flag = true;
        }
        ~AtWork() { flag = false; }
        AtWork(const AtWork&) = delete;
        AtWork& operator=(const AtWork&) = delete;
        bool& flag;
    };

    std::unique_ptr<dde::Client> m_client;
    QTimer m_timer;
    bool m_atWork = false;
};

} // namespace

std::unique_ptr<Conduit> MakeDdeConduit(DdeOptions options)
{
    Patience* const patience = options.patience;
    const int timeLimitMs = options.timeLimitMs;
    return std::make_unique<ChannelConduit>(
        [options = std::move(options)](const QDeadlineTimer&) -> std::unique_ptr<LinkWay> {
            dde::ClientOptions client;
            client.timeLimitMs = options.timeLimitMs;
            if (Patience* waits = options.patience)
                client.waiting = [waits] { waits->Waiting(); };
            try {
                client.page = dde::SystemCodePage(options.codePage);
            } catch (const dde::Failure& failure) {
                throw RuntimeError(kNoWay, QString::fromUtf8(failure.what()));
            }
            return std::make_unique<DdeWay>(std::make_unique<RestingClient>(dde::MakeClient(std::move(client))));
        },
        timeLimitMs, patience);
}

} // namespace vasclip::conduit
