#include "platform/conduit/dde/conversation_win.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"

#include <dde.h>

#include <algorithm>
#include <utility>

namespace vasclip::conduit::dde {

namespace {

constexpr char kClass[] = "VasclipExchangeClient";
constexpr DWORD kFirstWaitMs = 60, kNextWaitMs = 30; // as the link waits on its other ways
constexpr DWORD kLookMs = 200;                       // is the other side still there?
constexpr UINT_PTR kBiggestAtom = 0xFFFF;
constexpr int kMostAtOnce = 1000; // messages: one that never stops sending must not keep us from the clock

} // namespace

Conversation::Conversation()
    : m_window(MakeWindow(kClass, Procedure, HWND_MESSAGE, this))
{}

Conversation::~Conversation()
{
    Pump();
    SetWindowLongPtrA(m_window, GWLP_USERDATA, 0);
    DestroyWindow(m_window);
    FreeMemory();
}

bool Conversation::Ask(HWND candidate, const Atom& service, const Atom& topic, DWORD limitMs, bool& hung)
{
    m_service = service.Name();
    m_topic = topic.Name();
    m_expecting = Expecting::Acceptance; // also when this one has not answered in time: it may be at work
    DWORD_PTR result = 0;
    SetLastError(ERROR_SUCCESS);
    const LRESULT sent = SendMessageTimeoutW(candidate, WM_DDE_INITIATE, reinterpret_cast<WPARAM>(m_window),
                                             MAKELPARAM(service.Get(), topic.Get()), SMTO_ABORTIFHUNG, limitMs, &result);
    hung = sent == 0 && (GetLastError() == ERROR_TIMEOUT || GetLastError() == ERROR_SUCCESS) && IsWindow(candidate);
    return m_partner != nullptr;
}

bool Conversation::Taken()
{
    Pump();
    return m_partner != nullptr;
}

bool Conversation::Alive()
{
    Pump();
    return m_partner != nullptr && !m_terminated && !m_ended && IsWindow(m_partner);
}

LRESULT CALLBACK Conversation::Procedure(HWND window, UINT message, WPARAM wide, LPARAM along)
{
    auto* self = reinterpret_cast<Conversation*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (self != nullptr && message >= WM_DDE_FIRST && message <= WM_DDE_LAST &&
        self->Take(message, reinterpret_cast<HWND>(wide), along))
        return 0;
    return DefWindowProcA(window, message, wide, along);
}

bool Conversation::Take(UINT message, HWND sender, LPARAM along)
{
    if (message == WM_DDE_ACK && IsAcceptance(along)) {
        TakeAcceptance(sender, along);
        return true;
    }
    UINT_PTR low = 0, high = 0;
    switch (message) {
    case WM_DDE_ACK:
    case WM_DDE_DATA:
        if (!UnpackDDElParam(message, along, &low, &high))
            return true;
        FreeDDElParam(message, along);
        if (message == WM_DDE_DATA)
            TakeData(reinterpret_cast<HGLOBAL>(low), static_cast<ATOM>(high));
        else
            TakeAck(static_cast<WORD>(low), high);
        return true;
    case WM_DDE_TERMINATE:
        if (sender != m_partner)
            return true;
        m_ended = true;
        if (!std::exchange(m_terminated, true))
            PostMessageA(m_partner, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(m_window), 0);
        return true;
    default:
        return false;
    }
}

/// Also the late one of somebody else who was asked. It bears two names; what every other message bears is a handle.
bool Conversation::IsAcceptance(LPARAM along) const
{
    if (m_expecting == Expecting::Acceptance)
        return true;
    const auto value = static_cast<UINT_PTR>(along);
    return value <= 0xFFFFFFFF && LOWORD(value) >= 0xC000 && HIWORD(value) >= 0xC000 &&
           SameName(NameOfAtom(LOWORD(value)), m_service) && SameName(NameOfAtom(HIWORD(value)), m_topic);
}

void Conversation::TakeAcceptance(HWND sender, LPARAM along)
{
    DropAtom(LOWORD(along));
    DropAtom(HIWORD(along));
    if (m_expecting == Expecting::Acceptance) {
        m_expecting = Expecting::Nothing;
        m_partner = sender;
    } else if (sender != m_partner) // a second one that would talk
        PostMessageA(sender, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(m_window), 0);
}

void Conversation::TakeAck(WORD status, UINT_PTR about)
{
    const bool item = about <= kBiggestAtom;
    const auto outcome = (status & kAccepted) ? Outcome::Accepted : (status & kBusy) ? Outcome::Busy : Outcome::Refused;
    bool ours = false;
    if (m_expecting == Expecting::ExecuteAck)
        ours = !item || about == 0 || reinterpret_cast<HGLOBAL>(about) == m_memory;
    else if (m_expecting == Expecting::PokeAck)
        ours = IsItem(about);
    else if (m_expecting == Expecting::Data) // to accept a question is no answer
        ours = outcome != Outcome::Accepted && IsItem(about);
    if (!ours) // nobody may have counted its name: to drop it would take away another's
        return;
    if (item && m_item)
        TakeBack(about);
    else if (item)
        DropAtom(about);
    Settle(outcome, status & kCodeMask);
}

/// Of the exchange under way. One that has dropped a name too often finds it again under another number.
bool Conversation::IsItem(UINT_PTR atom) const
{
    return atom == m_item->Get() ||
           (atom <= kBiggestAtom && SameName(NameOfAtom(static_cast<ATOM>(atom)), m_item->Name()));
}

/// The name that came back with an answer about the item.
void Conversation::TakeBack(UINT_PTR atom)
{
    if (atom == m_item->Get())
        m_item->TakeBack();
    else
        DropAtom(atom);
}

void Conversation::TakeData(HGLOBAL memory, ATOM item)
{
    const std::optional<SharedText> data = memory ? ReadShared(memory) : std::nullopt;
    const WORD flags = data ? data->flags : 0;
    const bool ours = data && m_expecting == Expecting::Data && IsItem(item);
    if (ours) {
        m_answer.bytes = data->bytes;
        if (data->format == CF_TEXT)
            Settle(Outcome::Answered);
        else
            Settle(Outcome::OtherFormat, data->format);
    }
    // The name goes back with the acknowledgement, or here; a stray one's nobody may have counted.
    const bool acknowledge = (flags & kAckRequested) && !m_terminated && !m_ended;
    const bool passedOn = acknowledge && PostMessageA(m_partner, WM_DDE_ACK, reinterpret_cast<WPARAM>(m_window),
                                                      PackDDElParam(WM_DDE_ACK, kAccepted, item));
    if (ours && !passedOn)
        TakeBack(item);
    if (flags & kReleased)
        GlobalFree(memory);
}

void Conversation::Settle(Outcome outcome, unsigned code)
{
    m_expecting = Expecting::Nothing;
    m_settled = true;
    m_answer.outcome = outcome;
    m_answer.code = code;
}

void Conversation::Post(UINT message, LPARAM along, const char* what)
{
    if (PostMessageA(m_partner, message, reinterpret_cast<WPARAM>(m_window), along))
        return;
    const DWORD error = GetLastError();
    FreeDDElParam(message, along);
    FreeMemory();
    m_expecting = Expecting::Nothing;
    throw Failure(Why::Gone, std::string("The forms program takes no ") + what + " any more" + SystemReason(error));
}

void Conversation::Post(UINT message, UINT_PTR low, const char* what, Atom& item)
{
    try {
        Post(message, PackDDElParam(message, low, item.Lend()), what);
    } catch (...) {
        item.TakeBack();
        throw;
    }
}

void Conversation::Expect(Expecting what, Atom* item)
{
    m_expecting = what;
    m_item = item;
    m_settled = false;
    m_answer = {};
}

Conversation::Answer Conversation::Request(Atom& item, const Deadline& deadline, const Waiting& waiting)
{
    Expect(Expecting::Data, &item);
    Post(WM_DDE_REQUEST, CF_TEXT, "request", item);
    return Await(deadline, waiting);
}

Conversation::Answer Conversation::Poke(Atom& item, std::string_view bytes, const Deadline& deadline,
                                        const Waiting& waiting)
{
    FreeMemory();
    const WORD head[] = {0, CF_TEXT}; // the memory stays ours, whatever becomes of the poke
    m_memory = Share(head, sizeof head, bytes);
    Expect(Expecting::PokeAck, &item);
    Post(WM_DDE_POKE, reinterpret_cast<UINT_PTR>(m_memory), "value", item);
    return Await(deadline, waiting);
}

Conversation::Answer Conversation::Execute(std::string_view bytes, const Deadline& deadline, const Waiting& waiting)
{
    FreeMemory();
    m_memory = Share(nullptr, 0, bytes);
    Expect(Expecting::ExecuteAck, nullptr);
    Post(WM_DDE_EXECUTE, PackDDElParam(WM_DDE_EXECUTE, 0, reinterpret_cast<UINT_PTR>(m_memory)), "command");
    return Await(deadline, waiting);
}

Conversation::Answer Conversation::Await(const Deadline& deadline, const Waiting& waiting)
{
    // What came since the queue was last emptied, which was before the question, ends the first wait.
    bool silent = false, more = false;
    for (DWORD slice = waiting ? kFirstWaitMs : kLookMs;; slice = waiting ? kNextWaitMs : kLookMs) {
        if (!more) // else a wait would not see what has come already
            silent = MsgWaitForMultipleObjectsEx(0, nullptr, std::min(deadline.Left(), slice), QS_POSTMESSAGE | QS_SENDMESSAGE,
                                                 0) == WAIT_TIMEOUT;
        if (silent && waiting)
            waiting();
        const DWORD left = deadline.Left();
        more = TakeSome(true);
        silent = silent && !more;
        if (!m_settled && (m_ended || (silent && !IsWindow(m_partner))))
            Settle(Outcome::Gone);
        else if (!m_settled && left == 0)
            Settle(Outcome::TimeOut);
        if (m_settled)
            break;
    }
    m_lastExchange = GetTickCount64();
    if (m_answer.outcome != Outcome::TimeOut) // else the other side may yet read it
        FreeMemory();
    return std::move(m_answer);
}

bool Conversation::TakeSome(bool untilSettled)
{
    MSG message;
    for (int taken = 0; taken < kMostAtOnce; ++taken) {
        if ((untilSettled && m_settled) || !PeekMessageA(&message, m_window, WM_DDE_FIRST, WM_DDE_LAST, PM_REMOVE))
            return false;
        DispatchMessageA(&message);
    }
    return true;
}

void Conversation::Pump()
{
    TakeSome(false);
}

void Conversation::Terminate()
{
    if (std::exchange(m_terminated, true) || m_partner == nullptr)
        return;
    m_expecting = Expecting::Nothing;
    if (!PostMessageA(m_partner, WM_DDE_TERMINATE, reinterpret_cast<WPARAM>(m_window), 0))
        m_ended = true; // it has gone
}

void Conversation::Rest(DWORD ms)
{
    MsgWaitForMultipleObjectsEx(0, nullptr, ms, QS_POSTMESSAGE | QS_SENDMESSAGE, 0);
}

void Conversation::FreeMemory()
{
    if (const HGLOBAL memory = std::exchange(m_memory, nullptr))
        GlobalFree(memory);
}

} // namespace vasclip::conduit::dde
