// vasclip-bridge: carries a link's pipe on to a forms program that speaks the desktop's own data exchange. Under Wine it
// lets a program of this system speak with one that lives there.

#include "platform/conduit/dde/bridge.h"
#include "platform/conduit/dde/client.h"
#include "platform/conduit/dde/code_page.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <utility>

using namespace vasclip::conduit::dde;

namespace {

constexpr DWORD kRestEveryMs = 500;
constexpr DWORD kBurstMs = 20;    // the next line follows an answer closely, or not at all
constexpr int kMostAtOnce = 1000; // messages, before the input is looked at again

struct Options
{
    int timeLimitMs = 5000;
    unsigned codePage = 0;
};

std::optional<int> Number(const char* text, long least, long most)
{
    char* end = nullptr;
    const long number = std::strtol(text, &end, 10);
    return *text != '\0' && *end == '\0' && number >= least && number <= most ? std::optional(static_cast<int>(number))
                                                                                : std::nullopt;
}

std::optional<Options> ReadOptions(int argc, char** argv)
{
    Options options;
    for (int at = 1; at < argc; at += 2) {
        const std::optional<int> number = at + 1 < argc ? Number(argv[at + 1], 0, 3600000) : std::nullopt;
        if (number && *number > 0 && std::strcmp(argv[at], "--time-limit") == 0) {
            options.timeLimitMs = *number;
        } else if (number && *number < 65536 && std::strcmp(argv[at], "--code-page") == 0) {
            options.codePage = static_cast<unsigned>(*number);
        } else {
            std::fputs("usage: vasclip-bridge [--time-limit MILLISECONDS] [--code-page NUMBER]\n"
                       "Carries the lines of a link on its standard input and output to a forms program that speaks the "
                       "desktop's own data exchange.\n",
                       stderr);
            return std::nullopt;
        }
    }
    return options;
}

/// Lines of the standard input, read by a thread of their own since a pipe can't be waited for beside messages. Within a burst
/// of them the line is handed over without the event, which costs two turns to the system and a wait for a third.
class Input
{
public:
    Input()
        : m_news(CreateEventW(nullptr, FALSE, FALSE, nullptr))
        , m_reader([this] { Read(); })
    {
        m_reader.detach(); // a read that waits can't be called back; the process ends over it
    }
    [[nodiscard]] HANDLE News() const { return m_news; }

    struct Line
    {
        std::string text;
        bool end = false; ///< of the input
        bool tooLong = false;
    };
    /// What has come, or comes within so many milliseconds. Where there is none, the next one is told by `News`.
    std::optional<Line> Next(DWORD ms)
    {
        const ULONGLONG end = GetTickCount64() + ms;
        for (ULONGLONG now = end - ms; now < end; now = GetTickCount64()) {
            LONG arrived = m_arrived;
            if (!Empty())
                break;
            WaitOnAddress(&m_arrived, &arrived, sizeof arrived, static_cast<DWORD>(end - now));
        }
        const std::lock_guard guard(m_lock);
        m_told = m_lines.empty();
        if (m_lines.empty())
            return std::nullopt;
        Line line = std::move(m_lines.front());
        m_lines.pop_front();
        return line;
    }

private:
    bool Empty()
    {
        const std::lock_guard guard(m_lock);
        return m_lines.empty();
    }
    void Read()
    {
        const HANDLE pipe = GetStdHandle(STD_INPUT_HANDLE);
        std::string rest;
        char room[65536];
        DWORD read = 0;
        while (ReadFile(pipe, room, sizeof room, &read, nullptr) && read > 0) {
            std::size_t from = rest.size();
            rest.append(room, read);
            std::size_t begin = 0;
            for (std::size_t end = rest.find('\n', from); end != rest.npos; end = rest.find('\n', begin)) {
                Add({rest.substr(begin, end - begin), false, end - begin >= Bridge::kLongestLine});
                begin = end + 1;
            }
            rest.erase(0, begin);
            if (rest.size() >= Bridge::kLongestLine) {
                Add({{}, false, true});
                break;
            }
        }
        Add({{}, true, false});
    }
    void Add(Line line)
    {
        bool told = false;
        {
            const std::lock_guard guard(m_lock);
            m_lines.push_back(std::move(line));
            told = m_told;
        }
        InterlockedIncrement(&m_arrived);
        WakeByAddressSingle(const_cast<LONG*>(&m_arrived));
        if (told)
            SetEvent(m_news);
    }

    HANDLE m_news;
    std::mutex m_lock;
    std::deque<Line> m_lines;
    bool m_told = true; ///< by the event; nobody waits for the next line
    volatile LONG m_arrived = 0;
    std::thread m_reader;
};

bool Write(const std::string& line)
{
    const HANDLE pipe = GetStdHandle(STD_OUTPUT_HANDLE);
    for (std::size_t at = 0; at < line.size();) {
        DWORD written = 0;
        if (!WriteFile(pipe, line.data() + at, static_cast<DWORD>(line.size() - at), &written, nullptr) || written == 0)
            return false;
        at += written;
    }
    return true;
}

int Serve(const Options& options)
{
    const std::unique_ptr<Client> client = MakeClient({SystemCodePage(options.codePage), options.timeLimitMs});
    Bridge bridge(*client, static_cast<std::int64_t>(GetCurrentProcessId()));
    Input& input = *new Input; // its thread may outlive this routine
    for (;;) {
        const HANDLE news = input.News();
        const DWORD woken = MsgWaitForMultipleObjectsEx(1, &news, kRestEveryMs, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
        if (woken != WAIT_OBJECT_0) {
            MSG message;
            for (int taken = 0; taken < kMostAtOnce && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); ++taken)
                DispatchMessageA(&message);
            client->Rest();
        }
        DWORD patience = 0;
        while (const std::optional<Input::Line> line = input.Next(std::exchange(patience, kBurstMs))) {
            if (line->end)
                return 0;
            if (!Write(line->tooLong ? bridge.TooLong() : bridge.Answer(line->text)) || bridge.Finished())
                return 1;
        }
    }
}

} // namespace

int main(int argc, char** argv)
{
    const std::optional<Options> options = ReadOptions(argc, argv);
    if (!options)
        return 2;
    try {
        return Serve(*options);
    } catch (const Failure& failure) {
        std::fprintf(stderr, "vasclip-bridge: %s\n", failure.what());
        return 3;
    }
}
