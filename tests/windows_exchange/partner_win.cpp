// A forms program of the smallest kind that speaks the desktop's own data exchange, with bad habits by switch. It keeps
// what it is sent, gives it back, and refuses the item REFUSE; see Usage.

#include "platform/conduit/dde/code_page.h"
#include "platform/conduit/dde/failure.h"
#include "platform/conduit/dde/letters.h"
#include "platform/conduit/dde/server.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>

using namespace vasclip::conduit::dde;

namespace {

void Usage()
{
    std::fputs("usage: partner [--service NAME] [--code-page N] [--delay MS [--delays N]] [--copies N [--copies-after N]\n"
               "               [--copy-gap MS [--copies-later]]] [--ack-data] [--endless] [--ask-ack] [--busy N] [--format N] [--gone-after N]\n"
               "               [--vanish-after N] [--code N] [--ends-after MS] [--flood] [--hang]\n"
               "               [--slow-to-take MS]\n"
               "Prints \"ready\" when it listens; ends when its standard input does.\n",
               stderr);
}

struct Options
{
    std::u16string service = u"KEL";
    unsigned codePage = 0;
    ServerHabits habits;
    bool hang = false;
};

bool ReadOptions(int argc, char** argv, Options& options)
{
    ServerHabits& habits = options.habits;
    const std::map<std::string, bool*> flags = {{"--ack-data", &habits.acknowledgesData},
                                                {"--copies-later", &habits.copiesLater},
                                                {"--endless", &habits.endless},
                                                {"--ask-ack", &habits.askForAck},
                                                {"--flood", &habits.flood},
                                                {"--hang", &options.hang}};
    const std::map<std::string, int*> numbers = {{"--delay", &habits.delayMs},       {"--delays", &habits.delays},
                                                 {"--copies", &habits.copies},
                                                 {"--copies-after", &habits.copiesAfter},
                                                 {"--copy-gap", &habits.copyGapMs},
                                                 {"--slow-to-take", &habits.slowToTakeMs},
                                                 {"--ends-after", &habits.endsAfterMs},
                                                 {"--busy", &habits.busy},           {"--gone-after", &habits.goneAfter},
                                                 {"--vanish-after", &habits.vanishAfter}};
    const std::map<std::string, unsigned*> sizes = {
        {"--code-page", &options.codePage}, {"--format", &habits.format}, {"--code", &habits.code}};
    for (int at = 1; at < argc; ++at) {
        const std::string name = argv[at];
        if (const auto flag = flags.find(name); flag != flags.end()) {
            *flag->second = true;
            continue;
        }
        if (++at == argc)
            return false;
        if (const auto number = numbers.find(name); number != numbers.end())
            *number->second = std::atoi(argv[at]);
        else if (const auto size = sizes.find(name); size != sizes.end())
            *size->second = static_cast<unsigned>(std::atoi(argv[at]));
        else if (name == "--service")
            options.service = Utf16(argv[at]).value_or(u"KEL");
        else
            return false;
    }
    return true;
}

/// Topics are System, Query and what begins with R.
class Memo final : public ServerHandler
{
public:
    explicit Memo(std::u16string service)
        : m_service(std::move(service))
    {}
    bool Takes(const std::u16string& service, const std::u16string& topic) override
    {
        return SameName(service, m_service) &&
               (SameName(topic, u"System") || SameName(topic, u"Query") || topic.starts_with(u'R') || topic.size() > 200);
    }
    std::optional<std::u16string> Request(const std::u16string& topic, const std::u16string& item) override
    {
        if (item == u"REFUSE")
            return std::nullopt;
        if (item == u"READONLY")
            return u"fixed";
        if (item == u"COMMANDS")
            return m_commands;
        if (item == u"COUNT")
            return Wide(++m_count);
        if (item == u"EXCHANGES")
            return Wide(m_exchanges);
        if (item == u"CONVERSATIONS")
            return Wide(server->Conversations());
        ++m_exchanges;
        const auto kept = m_kept.find(topic + u'/' + item);
        return kept == m_kept.end() ? u"nothing" : kept->second;
    }
    bool Poke(const std::u16string& topic, const std::u16string& item, const std::u16string& text) override
    {
        ++m_exchanges;
        if (item == u"REFUSE" || item == u"READONLY" || (item == u"ONCE" && m_kept.contains(topic + u'/' + item)))
            return false;
        m_kept[topic + u'/' + item] = text;
        return true;
    }
    bool Execute(const std::u16string&, const std::u16string& command) override
    {
        ++m_exchanges;
        if (command == u"[Refuse]" || (command == u"[Once]" && m_commands.find(command) != m_commands.npos))
            return false;
        m_commands += command;
        return true;
    }

    std::unique_ptr<Server> server; ///< that asks it

private:
    static std::u16string Wide(int number)
    {
        const std::string digits = std::to_string(number);
        return {digits.begin(), digits.end()};
    }

    std::u16string m_service, m_commands;
    std::map<std::u16string, std::u16string> m_kept;
    int m_count = 0, m_exchanges = 0;
};

/// The process that started it holds the other end of its standard input.
DWORD WINAPI EndWithInput(void*)
{
    char byte = 0;
    DWORD read = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &read, nullptr) && read > 0) {
    }
    ExitProcess(0);
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!ReadOptions(argc, argv, options)) {
        Usage();
        return 2;
    }
    try {
        Memo memo(options.service);
        memo.server = MakeServer(memo, SystemCodePage(options.codePage), options.habits);
        CloseHandle(CreateThread(nullptr, 0, EndWithInput, nullptr, 0, nullptr));
        std::puts("ready");
        std::fflush(stdout);
        if (options.hang)
            Sleep(INFINITE);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0)
            DispatchMessageA(&message);
    } catch (const Failure& failure) {
        std::fprintf(stderr, "partner: %s\n", failure.what());
        return 3;
    }
    return 0;
}
