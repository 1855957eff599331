// The desktop's own data exchange between two processes, as Wine or Windows carries it: our client with our server and its
// bad habits, each of them with the system's own library at the other end.

#include "windows_exchange/processes_win.h"

#include "platform/conduit/dde/client.h"
#include "platform/conduit/dde/code_page.h"
#include "platform/conduit/dde/conversation_win.h"
#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"

#include <windows.h>

#include <ddeml.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

using namespace vasclip::conduit::dde;
using vasclip::test::Beside;

namespace {

int g_wrong = 0; // of the test under way

void Wrong(int line, const std::string& words)
{
    std::printf("  line %d: %s\n", line, words.c_str());
    ++g_wrong;
}

std::string Shown(const std::string& text) { return '"' + text.substr(0, 200) + '"'; }
std::string Shown(const std::u16string& text) { return Shown(Utf8(text)); }
std::string Shown(int number) { return std::to_string(number); }
std::string Shown(bool truth) { return truth ? "true" : "false"; }

template<typename A, typename B>
void Equal(int line, const A& is, const B& wanted)
{
    if (!(is == wanted))
        Wrong(line, Shown(A(is)) + " and not " + Shown(A(wanted)));
}
#define EQUAL(is, wanted) Equal(__LINE__, is, wanted)
#define HOLDS(text, part) \
    if ((text).find(part) == std::string::npos) \
    Wrong(__LINE__, Shown(text) + " holds no " + Shown(std::string(part)))

struct Thrown
{
    int number = 0;
    std::string words;
};

Thrown ThrownBy(const std::function<void()>& step)
{
    try {
        step();
    } catch (const Failure& failure) {
        return {static_cast<int>(failure.Reason()), failure.what()};
    }
    return {};
}

/// Long enough for a machine with other things to do; a test whose answer never comes names a shorter one.
constexpr int kPlenty = 30000;

std::unique_ptr<Client> Ours(int timeLimitMs = kPlenty, unsigned codePage = 1252)
{
    auto client = MakeClient({SystemCodePage(codePage), timeLimitMs});
    return client;
}

std::unique_ptr<Client> Opened(int timeLimitMs = kPlenty, unsigned codePage = 1252)
{
    auto client = Ours(timeLimitMs, codePage);
    client->Open(u"KEL|R1");
    return client;
}

const std::string kPartner = "exchange_partner.exe";

void RequestsPokesAndCommands()
{
    const Beside partner(kPartner, "--code-page 1252");
    const auto client = Opened();
    EQUAL(client->Request(u"UA5|14|2"), u"nothing");
    const std::u16string text = u"1.2 Mi. NW\r\n\"caf\u00e9\" \u20ac \\";
    client->Poke(u"UA5|14|2", text);
    EQUAL(client->Request(u"UA5|14|2"), text);
    client->Poke(u"UA5|14|3", u"");
    EQUAL(client->Request(u"UA5|14|3"), u"");
    client->Execute(u"[RunMacro(recalc.bas)]\r");
    EQUAL(client->Request(u"COMMANDS"), u"[RunMacro(recalc.bas)]\r");
    client->Open(u"KEL|R2");
    EQUAL(client->Request(u"UA5|14|2"), u"nothing"); // another topic
    client->Open(u"KEL|R1");
    EQUAL(client->Request(u"UA5|14|2"), text);
}

void WhatTheExchangeCannotHold()
{
    const Beside partner(kPartner, "--code-page 1252");
    const auto client = Opened();
    Thrown thrown = ThrownBy([&] { client->Poke(u"A|1|1", u"12 \u6f22 Street"); });
    EQUAL(thrown.number, 285);
    EQUAL(thrown.words, "The value for \"A|1|1\" holds \"\u6f22\" (U+6F22) at place 4, which code page 1252 does not have; "
                        "nothing was sent");
    EQUAL(ThrownBy([&] { client->Poke(u"A|1|1", u"\u0100"); }).number, 285); // has a look-alike, which is another letter
    EQUAL(ThrownBy([&] { client->Poke(u"A|1|1", u"\U0001F600"); }).number, 285);
    EQUAL(ThrownBy([&] { client->Poke(u"A|1|1", std::u16string(u"a\0b", 3)); }).number, 285);
    EQUAL(ThrownBy([&] { client->Execute(u"\u6f22"); }).number, 285);
    EQUAL(ThrownBy([&] { static_cast<void>(client->Request(u"\u6f22")); }).number, 285);
    thrown = ThrownBy([&] { client->Poke(u"A|1|1", std::u16string(65536, u'x')); });
    EQUAL(thrown.words, "The value for \"A|1|1\" has 65536 bytes, and the exchange takes at most 65535; nothing was sent");
    EQUAL(ThrownBy([&] { static_cast<void>(client->Request(std::u16string(256, u'i'))); }).number, 285);
    EQUAL(ThrownBy([&] { static_cast<void>(client->Request(u"")); }).number, 285);
    EQUAL(client->Request(u"EXCHANGES"), u"0"); // of all this the partner has heard nothing
    const std::u16string longest(65535, u'x');
    client->Poke(u"A|1|1", longest);
    EQUAL(client->Request(u"A|1|1") == longest, true);
    const std::u16string item(255, u'i');
    client->Poke(item, u"long");
    EQUAL(client->Request(item), u"long");
    client->Open(u"KEL|" + std::u16string(255, u't'));
    EQUAL(client->Request(u"X"), u"nothing");
    thrown = ThrownBy([&] { client->Open(u"KEL|" + std::u16string(256, u't')); });
    EQUAL(thrown.number, 285);
    HOLDS(thrown.words, "has 256 characters, and the exchange takes at most 255");
    thrown = ThrownBy([&] { client->Open(u"KEL|R1|2.RPT"); });
    EQUAL(thrown.words, "The topic \"R1|2.RPT\" holds a bar (\"|\"), which the exchange keeps for itself; nothing was sent");
    EQUAL(ThrownBy([&] { client->Open(u"KEL"); }).number, 285);
    EQUAL(ThrownBy([&] { client->Open(u"KEL|"); }).number, 285);
    EQUAL(ThrownBy([&] { client->Open(u"KEL|R1"); static_cast<void>(client->Request(u"#007")); }).number, 285);
}

void NobodyAnswers()
{
    const auto client = Ours();
    const Thrown thrown = ThrownBy([&] { client->Open(u"KEL|R1"); });
    EQUAL(thrown.number, 282);
    HOLDS(thrown.words, "No program takes a conversation about \"KEL|R1\"");
    const Beside partner(kPartner, "");
    EQUAL(ThrownBy([&] { client->Open(u"KEL|unknown"); }).number, 282);
    EQUAL(ThrownBy([&] { client->Open(u"OTHER|R1"); }).number, 282);
    client->Open(u"KEL|R1");
    EQUAL(client->Request(u"X"), u"nothing");
}

void AHungProgramHoldsNobodyUp()
{
    const Beside partner(kPartner, "--hang");
    const auto client = Ours(1000);
    const ULONGLONG begin = GetTickCount64();
    const Thrown thrown = ThrownBy([&] { client->Open(u"KEL|R1"); });
    EQUAL(thrown.number, 282);
    HOLDS(thrown.words, " not answer at all");
    EQUAL(GetTickCount64() - begin < 4000, true);
}

void RefusalsKeepTheConversation()
{
    const Beside partner(kPartner, "--code 7");
    const auto client = Opened();
    Thrown thrown = ThrownBy([&] { static_cast<void>(client->Request(u"REFUSE")); });
    EQUAL(thrown.number, 285);
    EQUAL(thrown.words, "The forms program refuses the request of \"REFUSE\" (its code is 7)");
    thrown = ThrownBy([&] { client->Poke(u"REFUSE", u"x"); });
    EQUAL(thrown.words, "The forms program refuses the value for \"REFUSE\" (its code is 7)");
    thrown = ThrownBy([&] { client->Execute(u"[Refuse]"); });
    EQUAL(thrown.words, "The forms program refuses the command \"[Refuse]\" (its code is 7)");
    EQUAL(client->IsOpen(u"KEL|R1"), true);
    EQUAL(client->Request(u"X"), u"nothing");
}

void LateAnswers()
{
    {
        const Beside partner(kPartner, "--delay 300");
        const auto client = Opened();
        EQUAL(client->Request(u"COUNT"), u"1");
        client->Poke(u"X", u"y");
        client->Execute(u"[x]");
    }
    const Beside partner(kPartner, "--delay 3000 --delays 1");
    const auto client = Opened(2000);
    const Thrown thrown = ThrownBy([&] { static_cast<void>(client->Request(u"COUNT")); });
    EQUAL(thrown.number, 286);
    EQUAL(thrown.words, "The forms program did not answer the request of \"COUNT\" within 2 seconds");
    EQUAL(client->IsOpen(u"KEL|R1"), false);
    client->Open(u"KEL|R1");
    EQUAL(client->Request(u"COUNT"), u"2");
    Sleep(1200); // the late one comes here, to nobody
    EQUAL(client->Request(u"COUNT"), u"3");
}

void NoAnswerAtAll()
{
    const Beside partner(kPartner, "--copies 0");
    const auto client = Opened(300);
    int waited = 0;
    EQUAL(ThrownBy([&] { static_cast<void>(client->Request(u"X")); }).number, 286);
    client->Open(u"KEL|R1");
    EQUAL(ThrownBy([&] { client->Poke(u"X", u"y"); }).number, 286);
    const auto patient = MakeClient({SystemCodePage(0), 400, [&] { ++waited; }});
    patient->Open(u"KEL|R1");
    EQUAL(ThrownBy([&] { patient->Execute(u"[x]"); }).number, 286);
    EQUAL(waited >= 2 && waited <= 14, true); // after 60 ms, then each 30
}

void TwoAnswers()
{
    const Beside partner(kPartner, "--copies 2");
    const auto client = Opened();
    for (const char16_t* count : {u"1", u"2", u"3", u"4"})
        EQUAL(client->Request(u"COUNT"), count);
    client->Poke(u"X", u"one");
    EQUAL(ThrownBy([&] { client->Poke(u"READONLY", u"x"); }).number, 285);
    client->Poke(u"X", u"two");
    EQUAL(client->Request(u"X"), u"two");
    client->Execute(u"[a]");
    EQUAL(ThrownBy([&] { client->Execute(u"[Refuse]"); }).number, 285);
    EQUAL(client->Request(u"COMMANDS"), u"[a]");
}

void TwoAnswersFromTheSecondOn()
{
    const Beside partner(kPartner, "--copies 2 --copies-after 1 --copy-gap 100");
    const auto client = Opened();
    EQUAL(client->Request(u"COUNT"), u"1");
    EQUAL(client->Request(u"COUNT"), u"2");
    Sleep(300); // the copy has come
    client->Open(u"KEL|R1"); // and is taken in here
    for (const char16_t* count : {u"3", u"4", u"5"})
        EQUAL(client->Request(u"COUNT"), count);
}

void CopiesThatComeWhenTheNextOneIsAsked()
{
    // At once, behind a stop, and while the other side is at other things.
    for (const char* how : {"", "--copy-gap 20", "--copy-gap 20 --copies-later"}) {
        const Beside partner(kPartner, std::string("--copies 2 --copies-after 1 ") + how);
        const auto client = Opened();
        for (const char16_t* count : {u"1", u"2", u"3", u"4", u"5", u"6"})
            EQUAL(client->Request(u"COUNT"), count);
        client->Poke(u"ONCE", u"a");
        EQUAL(ThrownBy([&] { client->Poke(u"ONCE", u"b"); }).number, 285); // and not the first one's yes
        EQUAL(client->Request(u"ONCE"), u"a");
        client->Execute(u"[Once]");
        EQUAL(ThrownBy([&] { client->Execute(u"[Once]"); }).number, 285);
        EQUAL(ThrownBy([&] { client->Poke(u"READONLY", u"x"); }).number, 285);
        EQUAL(client->Request(u"READONLY"), u"fixed"); // and not the no of before
        EQUAL(client->Request(u"COMMANDS"), u"[Once]");
    }
}

void OneThatIsAtWorkWhenItIsAsked()
{
    const Beside partner(kPartner, "--slow-to-take 1500"); // longer than one window is waited for, shorter than the limit
    int waited = 0;
    const auto client = MakeClient({SystemCodePage(1252), kPlenty, [&] { ++waited; }});
    client->Open(u"KEL|R1");
    EQUAL(waited > 0, true);
    EQUAL(client->Request(u"X"), u"nothing");
    const auto hurried = Ours(1000);
    const Thrown thrown = ThrownBy([&] { hurried->Open(u"KEL|R2"); });
    EQUAL(thrown.number, 282);
    HOLDS(thrown.words, "No program takes a conversation about \"KEL|R2\"; ");
    HOLDS(thrown.words, " not answer at all");
    EQUAL(client->Request(u"CONVERSATIONS"), u"1"); // behind what it was at; the hurried one has none
}

void TheLateOneOfTwoIsSentAway()
{
    auto quick = std::make_unique<Beside>(kPartner, "");
    const Beside slow(kPartner, "--slow-to-take 1500"); // the younger one's windows are asked first
    const auto client = Ours();
    client->Open(u"KEL|R1");
    client->Poke(u"X", u"quick");
    for (const Deadline deadline(4000); deadline.Left() > 0; Sleep(100))
        EQUAL(client->IsOpen(u"KEL|R1"), true);
    EQUAL(client->Request(u"Y"), u"nothing");
    quick.reset();
    const auto other = Opened();
    EQUAL(other->Request(u"X"), u"nothing"); // of the slow one
    EQUAL(other->Request(u"CONVERSATIONS"), u"1");
}

void OneAcknowledgementTooMany()
{
    const Beside partner(kPartner, "--ack-data");
    const auto client = Opened();
    for (int i = 0; i < 20; ++i) {
        EQUAL(client->Request(u"READONLY"), u"fixed");
        // The one too many is about this very item, and says yes.
        EQUAL(ThrownBy([&] { client->Poke(u"READONLY", u"x"); }).number, 285);
    }
}

void AnswersThatWantAnAcknowledgement()
{
    const Beside partner(kPartner, "--ask-ack");
    const auto client = Opened();
    for (const char16_t* count : {u"1", u"2", u"3"})
        EQUAL(client->Request(u"COUNT"), count);
}

void TextWithoutAnEnd()
{
    const Beside partner(kPartner, "--endless");
    const auto client = Opened();
    EQUAL(client->Request(u"X"), u"nothing");
    for (int length = 1; length < 40; ++length) {
        client->Poke(u"X", std::u16string(static_cast<std::size_t>(length), u'x'));
        EQUAL(client->Request(u"X"), std::u16string(static_cast<std::size_t>(length), u'x'));
    }
}

void OneThatNeverStopsSending()
{
    const Beside partner(kPartner, "--flood");
    const ULONGLONG begin = GetTickCount64();
    {
        const auto client = Opened(1000);
        const Thrown thrown = ThrownBy([&] { static_cast<void>(client->Request(u"X")); });
        EQUAL(thrown.number, 286);
        EQUAL(thrown.words, "The forms program did not answer the request of \"X\" within 1 second");
        client->Rest();
        EQUAL(client->IsOpen(u"KEL|R1"), false);
    }
    EQUAL(GetTickCount64() - begin < kPlenty / 2, true); // it sends on, and nobody waits for its end
}

void AnotherCodePage()
{
    const Beside partner(kPartner, "--code-page 1252");
    const auto client = Opened(kPlenty, 65001);
    client->Poke(u"X", u"plain");
    EQUAL(client->Request(u"X"), u"plain");
    {
        const auto theirs = Opened(kPlenty, 1252);
        theirs->Poke(u"X", u"caf\u00e9");
    }
    const Thrown thrown = ThrownBy([&] { static_cast<void>(client->Request(u"X")); });
    EQUAL(thrown.number, 289);
    EQUAL(thrown.words, "The answer to the request of \"X\" is no text of code page 65001; CodePage in section [LINK] of "
                        "KEL.INI names another one");
    EQUAL(ThrownBy([] { static_cast<void>(SystemCodePage(50220)); }).number, 285);
    EQUAL(ThrownBy([] { static_cast<void>(SystemCodePage(4)); }).number, 285);
    HOLDS(ThrownBy([] { static_cast<void>(SystemCodePage(37)); }).words, "code page 37 has other places for plain letters");
    for (const unsigned number : {437U, 850U, 874U, 932U, 1250U, 1251U, 1253U, 1255U, 28591U, 65001U})
        EQUAL(ThrownBy([&] { static_cast<void>(SystemCodePage(number)); }).words, std::string());
}

void AnotherFormat()
{
    const Beside partner(kPartner, "--format 13");
    const auto client = Opened();
    const Thrown thrown = ThrownBy([&] { static_cast<void>(client->Request(u"X")); });
    EQUAL(thrown.number, 285);
    EQUAL(thrown.words, "The forms program answers the request of \"X\" with no text but format 13");
}

void Busy()
{
    {
        const Beside partner(kPartner, "--busy 2");
        const auto client = Opened();
        client->Poke(u"X", u"y");
        EQUAL(client->Request(u"X"), u"y");
    }
    const Beside partner(kPartner, "--busy 1000");
    const auto client = Opened(2500);
    for (const auto& step : std::vector<std::function<void()>>{[&] { static_cast<void>(client->Request(u"X")); },
                                                               [&] { client->Poke(u"X", u"y"); },
                                                               [&] { client->Execute(u"[x]"); }}) {
        const Thrown thrown = ThrownBy(step);
        EQUAL(thrown.number, 285);
        HOLDS(thrown.words, "The forms program is busy, and was for all of 2.5 seconds");
    }
    EQUAL(client->IsOpen(u"KEL|R1"), true);
}

void APartnerThatGoes()
{
    {
        const Beside partner(kPartner, "--gone-after 1");
        const auto client = Opened();
        EQUAL(client->Request(u"X"), u"nothing");
        const Thrown thrown = ThrownBy([&] { client->Poke(u"X", u"y"); });
        EQUAL(thrown.number, 289);
        EQUAL(thrown.words, "The forms program has gone in the middle of the value for \"X\"");
        EQUAL(ThrownBy([&] { static_cast<void>(client->Request(u"X")); }).number, 289);
        client->Open(u"KEL|R1"); // it takes another conversation
        EQUAL(client->IsOpen(u"KEL|R1"), true);
    }
    {
        const Beside partner(kPartner, "--vanish-after 1");
        const auto client = Opened();
        EQUAL(client->Request(u"X"), u"nothing");
        const ULONGLONG begin = GetTickCount64();
        EQUAL(ThrownBy([&] { client->Execute(u"[x]"); }).number, 289);
        EQUAL(GetTickCount64() - begin < kPlenty / 2, true); // long before the time limit
        EQUAL(ThrownBy([&] { client->Open(u"KEL|R1"); }).number, 282);
    }
    const auto client = Ours();
    {
        const Beside partner(kPartner, "");
        client->Open(u"KEL|R1");
    }
    EQUAL(client->IsOpen(u"KEL|R1"), false); // noticed without an exchange
    const Beside another(kPartner, "");
    client->Open(u"KEL|R1");
    EQUAL(client->Request(u"X"), u"nothing");
}

void NamesAreGivenBack()
{
    // The table outlives the programs, so the name is one that no earlier run can have left there.
    const std::string stamp = std::to_string(GetTickCount64()), name = "NAMES|" + stamp, topic = 'R' + stamp;
    const std::u16string item(name.begin(), name.end());
    const ATOM ours = GlobalAddAtomA(name.c_str());
    for (const char* habit : {"", "--ask-ack", "--busy 2"}) {
        const Beside partner(kPartner, habit);
        const auto client = Opened();
        for (int i = 0; i < 50; ++i) {
            client->Poke(item, u"y");
            static_cast<void>(client->Request(item));
        }
        EQUAL(ThrownBy([&] { client->Poke(u"REFUSE", u"x"); }).number, 285);
        client->Open(u"KEL|" + std::u16string(topic.begin(), topic.end()));
    }
    EQUAL(GlobalFindAtomA(name.c_str()) == ours, true); // one given back too often takes another's away
    GlobalDeleteAtom(ours);
    EQUAL(GlobalFindAtomA(name.c_str()) == 0, true);
    EQUAL(GlobalFindAtomA(topic.c_str()) == 0, true);
}

void RestingConversationsAreClosed()
{
    const Beside partner(kPartner, "");
    const auto client = Opened();
    EQUAL(client->Request(u"X"), u"nothing");
    client->Rest();
    EQUAL(client->IsOpen(u"KEL|R1"), true);
    Sleep(Client::kRestMs + 200);
    client->Rest();
    EQUAL(client->IsOpen(u"KEL|R1"), false);
    client->Open(u"KEL|R1");
    EQUAL(client->Request(u"X"), u"nothing");
}

void TheSystemsOwnServer()
{
    const Beside partner("exchange_ddeml_partner.exe", "");
    const auto client = Opened();
    EQUAL(client->Request(u"X"), u"nothing");
    for (int i = 0; i < 20; ++i) {
        const std::u16string text = u"caf\u00e9 " + std::u16string(static_cast<std::size_t>(i * 100), u'x');
        client->Poke(u"X", text);
        EQUAL(client->Request(u"X"), text);
        EQUAL(client->Request(u"READONLY"), u"nothing");
        EQUAL(ThrownBy([&] { client->Poke(u"READONLY", u"x"); }).number, 285);
    }
    client->Execute(u"[RunMacro(recalc.bas)]\r");
    EQUAL(ThrownBy([&] { client->Execute(u"[Refuse]"); }).number, 285);
    EQUAL(client->Request(u"COMMANDS"), u"[RunMacro(recalc.bas)]\r");
    EQUAL(ThrownBy([&] { static_cast<void>(client->Request(u"REFUSE")); }).number, 285);
    EQUAL(ThrownBy([&] { client->Open(u"OTHER|R1"); }).number, 282);
}

HDDEDATA CALLBACK Ignore(UINT, UINT, HCONV, HSZ, HSZ, HDDEDATA, ULONG_PTR, ULONG_PTR)
{
    return nullptr;
}

void TheSystemsOwnClient()
{
    const Beside partner(kPartner, "");
    DWORD instance = 0;
    EQUAL(DdeInitializeA(&instance, Ignore, APPCMD_CLIENTONLY, 0) == DMLERR_NO_ERROR, true);
    const auto name = [&](const char* text) { return DdeCreateStringHandleA(instance, text, CP_WINANSI); };
    const auto ask = [&](HCONV conversation, const char* item) {
        const HDDEDATA data = DdeClientTransaction(nullptr, 0, conversation, name(item), CF_TEXT, XTYP_REQUEST, kPlenty, nullptr);
        if (data == nullptr)
            return std::string("(none)");
        DWORD size = 0;
        const std::string text = reinterpret_cast<const char*>(DdeAccessData(data, &size));
        DdeFreeDataHandle(data);
        return text;
    };
    EQUAL(DdeConnect(instance, name("OTHER"), name("R1"), nullptr) == nullptr, true);
    const HCONV conversation = DdeConnect(instance, name("KEL"), name("R1"), nullptr);
    EQUAL(conversation != nullptr, true);
    EQUAL(ask(conversation, "X"), "nothing");
    char value[] = "caf\xe9";
    EQUAL(DdeClientTransaction(reinterpret_cast<BYTE*>(value), sizeof value, conversation, name("X"), CF_TEXT, XTYP_POKE, kPlenty,
                               nullptr) != nullptr,
          true);
    EQUAL(ask(conversation, "X"), "caf\xe9");
    DWORD result = DDE_FACK; // Wine's says yes whatever came, and what came here
    DdeClientTransaction(reinterpret_cast<BYTE*>(value), sizeof value, conversation, name("REFUSE"), CF_TEXT, XTYP_POKE, kPlenty,
                         &result);
    EQUAL((result & DDE_FACK) == 0, true);
    char command[] = "[RunMacro(recalc.bas)]\r";
    EQUAL(DdeClientTransaction(reinterpret_cast<BYTE*>(command), sizeof command, conversation, nullptr, 0, XTYP_EXECUTE, kPlenty,
                               nullptr) != nullptr,
          true);
    EQUAL(ask(conversation, "COMMANDS"), "[RunMacro(recalc.bas)]\r");
    EQUAL(ask(conversation, "REFUSE"), "(none)");
    DdeDisconnect(conversation);
    DdeUninitialize(instance);
}

struct Test
{
    const char* name;
    void (*run)();
};

#define TEST_ROW(name) {#name, name}
const Test kTests[] = {TEST_ROW(RequestsPokesAndCommands),
                       TEST_ROW(WhatTheExchangeCannotHold),
                       TEST_ROW(NobodyAnswers),
                       TEST_ROW(AHungProgramHoldsNobodyUp),
                       TEST_ROW(RefusalsKeepTheConversation),
                       TEST_ROW(LateAnswers),
                       TEST_ROW(NoAnswerAtAll),
                       TEST_ROW(TwoAnswers),
                       TEST_ROW(TwoAnswersFromTheSecondOn),
                       TEST_ROW(CopiesThatComeWhenTheNextOneIsAsked),
                       TEST_ROW(OneThatIsAtWorkWhenItIsAsked),
                       TEST_ROW(TheLateOneOfTwoIsSentAway),
                       TEST_ROW(OneAcknowledgementTooMany),
                       TEST_ROW(AnswersThatWantAnAcknowledgement),
                       TEST_ROW(TextWithoutAnEnd),
                       TEST_ROW(OneThatNeverStopsSending),
                       TEST_ROW(AnotherCodePage),
                       TEST_ROW(AnotherFormat),
                       TEST_ROW(Busy),
                       TEST_ROW(APartnerThatGoes),
                       TEST_ROW(NamesAreGivenBack),
                       TEST_ROW(RestingConversationsAreClosed),
                       TEST_ROW(TheSystemsOwnServer),
                       TEST_ROW(TheSystemsOwnClient)};

} // namespace

int main(int argc, char** argv)
{
    int passed = 0, failed = 0;
    for (const Test& test : kTests) {
        if (argc > 1 && std::string(test.name).find(argv[1]) == std::string::npos)
            continue;
        g_wrong = 0;
        try {
            test.run();
        } catch (const std::exception& failure) {
            Wrong(0, std::string("thrown: ") + failure.what());
        }
        std::printf("%s %s\n", g_wrong == 0 ? "ok    " : "FAILED", test.name);
        std::fflush(stdout);
        (g_wrong == 0 ? passed : failed) += 1;
    }
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 && passed > 0 ? 0 : 1;
}
