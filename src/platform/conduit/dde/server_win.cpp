#include "platform/conduit/dde/server.h"

#include "platform/conduit/dde/shared_win.h"
#include "platform/conduit/dde/speaker_win.h"

#include <dde.h>

#include <map>
#include <utility>

namespace vasclip::conduit::dde {

namespace {

constexpr char kListener[] = "VasclipExchangeServer";

class SystemServer final : public Server, public SpeakerHost
{
public:
    SystemServer(ServerHandler& serverHandler, std::shared_ptr<const CodePage> codePage, const ServerHabits& serverHabits)
        : SpeakerHost(serverHandler, std::move(codePage), serverHabits)
        , m_listener(MakeWindow(kListener, Procedure, nullptr, this)) // where those who look for a server look
    {}
    ~SystemServer() override
    {
        onConversations = {};
        m_speakers.clear();
        DestroyWindow(m_listener);
    }
    int Conversations() const override { return static_cast<int>(m_speakers.size()); }

    void Drop(HWND speaker) override
    {
        m_speakers.erase(speaker);
        if (onConversations)
            onConversations(Conversations());
    }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM along)
    {
        if (message == WM_CLOSE) // sent to all windows of a program that is to end, which ends by its own
            return 0;
        auto* self = reinterpret_cast<SystemServer*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (self == nullptr || message != WM_DDE_INITIATE)
            return DefWindowProcA(window, message, wide, along);
        self->Begin(reinterpret_cast<HWND>(wide), NameOfAtom(LOWORD(along)), NameOfAtom(HIWORD(along)));
        return 0;
    }

    void Begin(HWND client, const std::u16string& service, const std::u16string& topic)
    {
        if (habits.slowToTakeMs > 0)
            Sleep(static_cast<DWORD>(habits.slowToTakeMs));
        if (!handler.Takes(service, topic))
            return;
        auto speaker = std::make_unique<Speaker>(*this, client, service + u'|' + topic);
        const HWND window = speaker->Window();
        m_speakers.emplace(window, std::move(speaker));
        // The names of an acceptance are dropped by the client.
        SendMessageA(client, WM_DDE_ACK, reinterpret_cast<WPARAM>(window),
                     MAKELPARAM(Atom(service).ForMessage(), Atom(topic).ForMessage()));
        std::erase_if(m_speakers, [](const auto& one) { return one.second->Deserted(); });
        if (onConversations)
            onConversations(Conversations());
    }

    HWND m_listener;
    std::map<HWND, std::unique_ptr<Speaker>> m_speakers;
};

} // namespace

std::unique_ptr<Server> MakeServer(ServerHandler& handler, std::shared_ptr<const CodePage> page, ServerHabits habits)
{
    return std::make_unique<SystemServer>(handler, std::move(page), habits);
}

} // namespace vasclip::conduit::dde
