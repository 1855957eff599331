#include "platform/conduit/dde/speaker_win.h"

#include "platform/conduit/dde/shared_win.h"

#include <dde.h>

#include <thread>
#include <utility>

namespace vasclip::conduit::dde {

namespace {

constexpr char kSpeaker[] = "VasclipExchangeSpeaker";

/// Acknowledges what was never sent, as long as there is somebody to hear it, and faster than it can be heard.
void Flood(HWND client, HWND speaker)
{
    const Atom item(u"NOISE");
    LPARAM along = 0;
    do
        along = PackDDElParam(WM_DDE_ACK, 0, item.Get());
    while (PostMessageA(client, WM_DDE_ACK, reinterpret_cast<WPARAM>(speaker), along));
    FreeDDElParam(WM_DDE_ACK, along);
}

} // namespace

Speaker::Speaker(SpeakerHost& server, HWND client, std::u16string topic)
    : m_server(server)
    , m_window(MakeWindow(kSpeaker, Procedure, HWND_MESSAGE, this))
    , m_client(client)
    , m_topic(std::move(topic))
{}

Speaker::~Speaker()
{
    SetWindowLongPtrA(m_window, GWLP_USERDATA, 0);
    if (m_client)
        PostMessageA(m_client, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(m_window), 0);
    DestroyWindow(m_window);
}

LRESULT CALLBACK Speaker::Procedure(HWND window, UINT message, WPARAM wide, LPARAM along)
{
    auto* self = reinterpret_cast<Speaker*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self != nullptr && message == WM_TIMER) {
        KillTimer(window, wide);
        const std::function<void()> answer = std::move(self->m_late.front());
        self->m_late.pop_front();
        answer();
        return 0;
    }
    if (self != nullptr && message >= WM_DDE_FIRST && message <= WM_DDE_LAST &&
        self->Take(message, reinterpret_cast<HWND>(wide), along))
        return 0;
    return DefWindowProcA(window, message, wide, along);
}

bool Speaker::Take(UINT message, HWND sender, LPARAM along)
{
    if (sender != m_client)
        return true;
    UINT_PTR low = 0, high = 0;
    if (message != WM_DDE_TERMINATE && message != WM_DDE_INITIATE) {
        UnpackDDElParam(message, along, &low, &high);
        FreeDDElParam(message, along);
    }
    switch (message) {
    case WM_DDE_REQUEST:
        TakeRequest(static_cast<WORD>(low), static_cast<ATOM>(high));
        return true;
    case WM_DDE_POKE:
        TakePoke(reinterpret_cast<HGLOBAL>(low), static_cast<ATOM>(high));
        return true;
    case WM_DDE_EXECUTE:
        TakeCommand(reinterpret_cast<HGLOBAL>(high));
        return true;
    case WM_DDE_ADVISE: // nothing is told unasked; the memory goes back with the refusal
    case WM_DDE_UNADVISE:
        Ack(false, high);
        return true;
    case WM_DDE_ACK: // of an answer
        DropAtom(high);
        return true;
    case WM_DDE_TERMINATE:
        m_server.Drop(m_window); // which answers it; `this` is gone
        return true;
    default:
        return false;
    }
}

void Speaker::TakeRequest(WORD format, ATOM item)
{
    if (m_server.habits.busy > 0) {
        --m_server.habits.busy;
        Ack(false, item, true);
        return;
    }
    const std::optional<std::u16string> text =
        format == CF_TEXT ? m_server.handler.Request(m_topic, NameOfAtom(item)) : std::nullopt;
    const std::optional<std::string> bytes = text ? m_server.page->Encode(*text) : std::nullopt;
    if (bytes)
        Say([this, item, bytes] { Data(item, *bytes); });
    else
        Say([this, item] { Ack(false, item); });
}

void Speaker::TakePoke(HGLOBAL memory, ATOM item)
{
    const std::optional<SharedText> data = ReadShared(memory);
    if (m_server.habits.busy > 0) {
        --m_server.habits.busy;
        Ack(false, item, true);
        return;
    }
    const std::optional<std::u16string> text =
        data && data->format == CF_TEXT ? m_server.page->Decode(data->bytes) : std::nullopt;
    const bool accepted = text && m_server.handler.Poke(m_topic, NameOfAtom(item), *text);
    if (accepted && (data->flags & kReleased))
        GlobalFree(memory);
    Say([this, accepted, item] { Ack(accepted, item); });
}

void Speaker::TakeCommand(HGLOBAL memory)
{
    if (m_server.habits.busy > 0) {
        --m_server.habits.busy;
        Ack(false, reinterpret_cast<UINT_PTR>(memory), true);
        return;
    }
    const std::optional<std::u16string> command = m_server.page->Decode(ReadCommand(memory));
    const bool accepted = command && m_server.handler.Execute(m_topic, *command);
    Say([this, accepted, memory] { Ack(accepted, reinterpret_cast<UINT_PTR>(memory)); });
}

bool Speaker::Misbehaves()
{
    const ServerHabits& habits = m_server.habits;
    const int count = m_server.answered++;
    if (habits.vanishAfter >= 0 && count >= habits.vanishAfter)
        TerminateProcess(GetCurrentProcess(), 70); // without a farewell
    if (habits.goneAfter >= 0 && count >= habits.goneAfter) {
        m_server.Drop(m_window);
        return true;
    }
    if (habits.flood) {
        for (int threads = 2; threads > 0; --threads)
            std::thread(Flood, m_client, m_window).detach();
        return true;
    }
    return false;
}

void Speaker::Say(std::function<void()> answer)
{
    if (Misbehaves())
        return;
    if (m_server.habits.delayMs <= 0 || m_server.answered > m_server.habits.delays) {
        answer();
        return;
    }
    Later(m_server.habits.delayMs, std::move(answer));
}

void Speaker::Later(int ms, std::function<void()> step)
{
    m_late.push_back(std::move(step));
    SetTimer(m_window, ++m_timers, static_cast<UINT>(ms), nullptr);
}

/// @param copy  0 is the answer itself
void Speaker::Repeat(int copy, std::function<void()> copied)
{
    const ServerHabits& habits = m_server.habits;
    if (copy > 0 && habits.copiesLater) {
        Later(habits.copyGapMs, std::move(copied));
        return;
    }
    if (copy > 0 && habits.copyGapMs > 0)
        Sleep(static_cast<DWORD>(habits.copyGapMs));
    copied();
}

void Speaker::Data(ATOM item, const std::string& bytes)
{
    const ServerHabits& habits = m_server.habits;
    const std::u16string name = NameOfAtom(item);
    if (habits.endsAfterMs >= 0)
        Later(habits.endsAfterMs, [this] { m_server.Drop(m_window); });
    for (int copy = 0; copy < m_server.Copies(); ++copy)
        Repeat(copy, [this, bytes, name, counted = copy == 0 ? item : ATOM{0}] {
            DataOnce(counted ? counted : Atom(name).ForMessage(), bytes);
        });
    if (habits.acknowledgesData && habits.copies > 0)
        Post(WM_DDE_ACK, PackDDElParam(WM_DDE_ACK, kAccepted, Atom(name).ForMessage()));
}

void Speaker::DataOnce(ATOM item, const std::string& bytes)
{
    const ServerHabits& habits = m_server.habits;
    const WORD head[] = {static_cast<WORD>(kResponse | kReleased | (habits.askForAck ? kAckRequested : 0)),
                         static_cast<WORD>(habits.format)};
    const HGLOBAL memory = Share(head, sizeof head, bytes, !habits.endless);
    const LPARAM along = PackDDElParam(WM_DDE_DATA, reinterpret_cast<UINT_PTR>(memory), item);
    if (PostMessageA(m_client, WM_DDE_DATA, reinterpret_cast<WPARAM>(m_window), along))
        return;
    FreeDDElParam(WM_DDE_DATA, along);
    GlobalFree(memory);
    DropAtom(item);
}

void Speaker::Ack(bool accepted, UINT_PTR about, bool busy)
{
    const ServerHabits& habits = m_server.habits;
    const auto status = static_cast<UINT_PTR>(accepted ? kAccepted : busy ? kBusy : (habits.code & kCodeMask));
    const std::u16string name = about >= 0xC000 && about <= 0xFFFF ? NameOfAtom(static_cast<ATOM>(about)) : std::u16string();
    for (int copy = 0; copy < (busy ? 1 : m_server.Copies()); ++copy)
        Repeat(copy, [this, status, about, name, again = copy > 0] {
            Post(WM_DDE_ACK,
                 PackDDElParam(WM_DDE_ACK, status, again && !name.empty() ? Atom(name).ForMessage() : about));
        });
}

void Speaker::Post(UINT message, LPARAM along)
{
    if (!PostMessageA(m_client, message, reinterpret_cast<WPARAM>(m_window), along))
        FreeDDElParam(message, along);
}

} // namespace vasclip::conduit::dde
