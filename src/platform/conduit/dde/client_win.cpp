#include "platform/conduit/dde/client.h"

#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/invitation_win.h"
#include "platform/conduit/dde/letters.h"

#include <algorithm>
#include <list>
#include <utility>
#include <vector>

namespace vasclip::conduit::dde {

namespace {

using Outcome = Conversation::Outcome;

constexpr DWORD kBusyMs = 50;           // before a busy side is asked again, and longer each time
constexpr DWORD kBusiestMs = 400;
constexpr DWORD kLastTryMs = 500;       // what is asked has time to be answered, or is not asked
constexpr int kFarewellMs = 500;
constexpr std::size_t kMostFarewells = 8;

std::string Seconds(int ms)
{
    std::string text = std::to_string(ms / 1000);
    if (ms % 1000 != 0)
        text += '.' + std::to_string(ms % 1000 / 100);
    return text + (ms == 1000 ? " second" : " seconds");
}

class SystemClient final : public Client
{
public:
    explicit SystemClient(ClientOptions options)
        : m_options(std::move(options))
    {}
    ~SystemClient() override;

    void Open(const std::u16string& topic) override;
    bool IsOpen(const std::u16string& topic) override { return m_open && SameName(topic, m_topic) && m_open->Alive(); }
    std::u16string Request(const std::u16string& item) override;
    void Poke(const std::u16string& item, const std::u16string& text) override;
    void Execute(const std::u16string& command) override;
    void Rest() override;

private:
    using Step = std::function<Conversation::Answer(Conversation&, const Deadline&)>;

    void Leave();
    [[nodiscard]] Conversation::Answer Exchange(const std::u16string& about, const std::string& what, const Step& step);
    void NotTwice(const std::u16string& about);
    [[nodiscard]] Atom& ItemOf(const std::u16string& name);

    ClientOptions m_options;
    std::u16string m_topic;
    std::unique_ptr<Conversation> m_open;
    std::list<std::unique_ptr<Conversation>> m_farewells; ///< ended by us, not yet by the other side
    HWND m_lastTaker = nullptr;                           ///< the window that took a conversation the last time
    std::vector<std::u16string> m_asked; ///< the items of the open conversation; "" is a command
    Atom m_item;
};

SystemClient::~SystemClient()
{
    Leave();
    for (const Deadline deadline(kFarewellMs); !m_farewells.empty() && deadline.Left() > 0;) {
        Rest();
        if (!m_farewells.empty())
            Conversation::Rest(std::min<DWORD>(deadline.Left(), 20));
    }
}

void SystemClient::Open(const std::u16string& topic)
{
    if (IsOpen(topic))
        return;
    const Topic parts = RequireTopic(*m_options.page, topic);
    Leave();
    auto conversation = std::make_unique<Conversation>();
    const Invitation invitation =
        Invite(*conversation, parts, m_lastTaker, Deadline(m_options.timeLimitMs), m_options.waiting);
    m_lastTaker = invitation.taker;
    if (!conversation->Alive()) {
        std::string words = "No program takes a conversation about " + Quoted(topic);
        if (const std::size_t silent = invitation.silent; silent > 0)
            words += "; " + std::to_string(silent) +
                     (silent == 1 ? " window of the desktop does" : " windows of the desktop do") + " not answer at all";
        throw Failure(Why::NoAnswer, words);
    }
    m_open = std::move(conversation);
    m_topic = topic;
    m_asked.clear();
}

void SystemClient::Leave()
{
    if (!m_open)
        return;
    m_open->Terminate();
    if (!m_open->Ended())
        m_farewells.push_back(std::move(m_open));
    m_open.reset();
    if (m_farewells.size() > kMostFarewells)
        m_farewells.pop_front();
}

void SystemClient::Rest()
{
    for (auto at = m_farewells.begin(); at != m_farewells.end();) {
        (*at)->Pump();
        at = (*at)->Ended() ? m_farewells.erase(at) : std::next(at);
    }
    if (m_open && (!m_open->Alive() || GetTickCount64() - m_open->LastExchange() > kRestMs))
        Leave();
}

Atom& SystemClient::ItemOf(const std::u16string& name)
{
    if (m_item.Get() == 0 || m_item.Lent() || m_item.Name() != name) {
        RequireItem(*m_options.page, name);
        m_item = Atom(name);
    }
    return m_item;
}

/// An answer bears no more than its item: of two about the same one the first may come twice, or late, and is taken for the
/// second. So nothing is asked twice in one conversation; in the next one both sides have other windows.
void SystemClient::NotTwice(const std::u16string& about)
{
    const bool asked = std::any_of(m_asked.begin(), m_asked.end(),
                                   [&](const std::u16string& item) { return SameName(item, about); });
    if (asked) {
        const std::u16string topic = m_topic;
        m_open->Terminate();
        // Who has but one conversation at a time takes the next one when this is over.
        for (const Deadline deadline(kFarewellMs); !m_open->Ended() && deadline.Left() > 0; m_open->Pump())
            Conversation::Rest(std::min<DWORD>(deadline.Left(), 20));
        Leave();
        Open(topic);
    }
    m_asked.push_back(about);
}

Conversation::Answer SystemClient::Exchange(const std::u16string& about, const std::string& what, const Step& step)
{
    if (m_open)
        m_open->Pump();
    if (!m_open || m_open->Ended())
        throw Failure(Why::Gone, "The forms program has ended the conversation");
    NotTwice(about);
    const Deadline deadline(m_options.timeLimitMs);
    for (DWORD pause = kBusyMs;; pause = std::min(2 * pause, kBusiestMs)) {
        Conversation::Answer answer = step(*m_open, deadline);
        const std::string code = answer.code == 0 ? std::string() : " (its code is " + std::to_string(answer.code) + ')';
        switch (answer.outcome) {
        case Outcome::Answered:
        case Outcome::Accepted:
            return answer;
        case Outcome::OtherFormat:
            throw Failure(Why::Refused, "The forms program answers " + what + " with no text but format " +
                                            std::to_string(answer.code));
        case Outcome::Refused:
            throw Failure(Why::Refused, "The forms program refuses " + what + code);
        case Outcome::TimeOut:
            Leave();
            throw Failure(Why::TimeOut, "The forms program did not answer " + what + " within " +
                                            Seconds(m_options.timeLimitMs));
        case Outcome::Gone:
            Leave();
            throw Failure(Why::Gone, "The forms program has gone in the middle of " + what);
        case Outcome::Busy:
            break;
        }
        if (deadline.Left() <= pause + kLastTryMs)
            throw Failure(Why::Refused, "The forms program is busy, and was for all of " +
                                            Seconds(m_options.timeLimitMs) + "; " + what + " is not done");
        for (const Deadline until(static_cast<int>(pause)); until.Left() > 0;) {
            Conversation::Rest(std::min<DWORD>(until.Left(), 30));
            if (m_options.waiting)
                m_options.waiting();
            if (!m_open->Alive())
                throw Failure(Why::Gone, "The forms program has gone in the middle of " + what);
        }
    }
}

std::u16string SystemClient::Request(const std::u16string& item)
{
    Atom& atom = ItemOf(item);
    const std::string what = "the request of " + Quoted(item);
    const Conversation::Answer answer = Exchange(item, what, [&](Conversation& open, const Deadline& deadline) {
        return open.Request(atom, deadline, m_options.waiting);
    });
    std::optional<std::u16string> text = m_options.page->Decode(answer.bytes);
    if (!text) {
        Leave();
        throw Failure(Why::Gone, "The answer to " + what + " is no text of " + m_options.page->Name() +
                                     "; CodePage in section [LINK] of KEL.INI names another one");
    }
    return *std::move(text);
}

void SystemClient::Poke(const std::u16string& item, const std::u16string& text)
{
    Atom& atom = ItemOf(item);
    const std::string bytes = RequireText(*m_options.page, "The value for " + Quoted(item), text);
    static_cast<void>(Exchange(item, "the value for " + Quoted(item), [&](Conversation& open, const Deadline& deadline) {
        return open.Poke(atom, bytes, deadline, m_options.waiting);
    }));
}

void SystemClient::Execute(const std::u16string& command)
{
    const std::string bytes = RequireText(*m_options.page, "The command", command);
    static_cast<void>(Exchange({}, "the command " + Quoted(command), [&](Conversation& open, const Deadline& deadline) {
        return open.Execute(bytes, deadline, m_options.waiting);
    }));
}

} // namespace

std::unique_ptr<Client> MakeClient(ClientOptions options)
{
    return std::make_unique<SystemClient>(std::move(options));
}

} // namespace vasclip::conduit::dde
