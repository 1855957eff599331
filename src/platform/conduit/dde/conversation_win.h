#pragma once

#include "platform/conduit/dde/shared_win.h"

#include <cstdint>
#include <functional>
#include <string>

namespace vasclip::conduit::dde {

/// Until when something may take.
class Deadline
{
public:
    explicit Deadline(int ms)
        : m_end(GetTickCount64() + static_cast<ULONGLONG>(ms))
    {}
    [[nodiscard]] DWORD Left() const
    {
        const ULONGLONG now = GetTickCount64();
        return now < m_end ? static_cast<DWORD>(m_end - now) : 0;
    }

private:
    ULONGLONG m_end;
};

/// Called again and again while an answer is waited for; may be empty.
using Waiting = std::function<void()>;

/// One conversation: a window of ours and one of the other side, and the messages between them.
///
/// Whatever comes that was not asked for (a second answer, one too many acknowledgements, an answer after its time) is
/// taken in, and its memory is given back. Its name is left alone: a side that says too much need not have counted it, and
/// another's would go. Only what is about the item under way is an answer, so each item is to be asked about once.
class Conversation
{
public:
    /// @throws Failure (Why::NoAnswer) if the system gives no window
    Conversation();
    /// Takes the window away, whatever may still come.
    ~Conversation();
    Conversation(const Conversation&) = delete;
    Conversation& operator=(const Conversation&) = delete;

    /// Asks one window whether it takes the conversation.
    /// @param hung  set if it did not answer in time; it may yet do so (`Taken`)
    bool Ask(HWND candidate, const Atom& service, const Atom& topic, DWORD limitMs, bool& hung);
    /// Takes in what waits. True if somebody has taken it, be it late.
    [[nodiscard]] bool Taken();
    [[nodiscard]] bool Alive();

    enum class Outcome { Answered, Accepted, Refused, Busy, OtherFormat, TimeOut, Gone };
    struct Answer
    {
        Outcome outcome = Outcome::TimeOut;
        std::string bytes; ///< of what was answered
        unsigned code = 0; ///< the application's, with a refusal; the format, if it is another
    };
    /// @param item  is not lent, and is lent afterwards if nothing about it came back
    /// @throws Failure (Why::Gone) if the message can't be posted
    [[nodiscard]] Answer Request(Atom& item, const Deadline& deadline, const Waiting& waiting);
    [[nodiscard]] Answer Poke(Atom& item, std::string_view bytes, const Deadline& deadline, const Waiting& waiting);
    [[nodiscard]] Answer Execute(std::string_view bytes, const Deadline& deadline, const Waiting& waiting);

    /// Takes in what waits.
    void Pump();
    /// When the last exchange ended, in the system's milliseconds.
    [[nodiscard]] ULONGLONG LastExchange() const { return m_lastExchange; }

    /// Ends it. The window stays to hear the other side's end.
    void Terminate();
    [[nodiscard]] bool Ended() const { return m_ended; }
    /// Waits a while, for something to come or for the time to pass.
    static void Rest(DWORD ms);

private:
    enum class Expecting { Nothing, Acceptance, Data, PokeAck, ExecuteAck };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM along);
    bool Take(UINT message, HWND sender, LPARAM along);
    [[nodiscard]] bool IsAcceptance(LPARAM along) const;
    void TakeAcceptance(HWND sender, LPARAM along);
    void TakeAck(WORD status, UINT_PTR about);
    void TakeData(HGLOBAL memory, ATOM item);
    void Settle(Outcome outcome, unsigned code = 0);
    void Post(UINT message, LPARAM along, const char* what);
    void Expect(Expecting what, Atom* item);
    [[nodiscard]] bool IsItem(UINT_PTR atom) const;
    void TakeBack(UINT_PTR atom);
    void Post(UINT message, UINT_PTR low, const char* what, Atom& item);
    [[nodiscard]] Answer Await(const Deadline& deadline, const Waiting& waiting);
    /// @return may there be more?
    bool TakeSome(bool untilSettled);
    void FreeMemory();

    HWND m_window = nullptr;
    HWND m_partner = nullptr;
    std::u16string m_service, m_topic; ///< that were asked for
    Expecting m_expecting = Expecting::Nothing;
    Atom* m_item = nullptr; ///< the caller's, while something about it is expected
    HGLOBAL m_memory = nullptr; ///< a poke's or a command's, ours until it is acknowledged
    bool m_settled = false;
    Answer m_answer;
    bool m_terminated = false; ///< by us
    bool m_ended = false;      ///< by the other side
    ULONGLONG m_lastExchange = 0;
};

} // namespace vasclip::conduit::dde
