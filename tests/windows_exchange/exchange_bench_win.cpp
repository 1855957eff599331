// What an exchange costs over our client, beside the bare messages of the smallest client there can be, against the same
// partner and in turns. usage: exchange_bench [EXCHANGES [ROUNDS]]; prints microseconds, and the ratio.

#include "windows_exchange/processes_win.h"

#include "platform/conduit/dde/client.h"
#include "platform/conduit/dde/code_page.h"
#include "platform/conduit/dde/letters.h"

#include <windows.h>

#include <dde.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

using namespace vasclip::conduit::dde;
using vasclip::test::Beside;

namespace {

constexpr int kFields = 40; // of a send, which asks nothing twice in one conversation

std::string Item(int exchange)
{
    return "UA5|14|" + std::to_string(exchange % kFields);
}

HWND g_partner = nullptr;
bool g_answered = false;

/// Takes the acceptance and the answers, and looks at nothing.
LRESULT CALLBACK Bare(HWND window, UINT message, WPARAM wide, LPARAM along)
{
    if (message == WM_DDE_ACK && g_partner == nullptr) {
        g_partner = reinterpret_cast<HWND>(wide);
        GlobalDeleteAtom(LOWORD(along));
        GlobalDeleteAtom(HIWORD(along));
        return 0;
    }
    if (message != WM_DDE_DATA)
        return DefWindowProcA(window, message, wide, along);
    UINT_PTR low = 0, high = 0;
    UnpackDDElParam(message, along, &low, &high);
    FreeDDElParam(message, along);
    const auto memory = reinterpret_cast<HGLOBAL>(low);
    const auto* data = static_cast<const DDEDATA*>(GlobalLock(memory));
    const std::string text(reinterpret_cast<const char*>(data->Value));
    const bool release = data->fRelease;
    GlobalUnlock(memory);
    if (release)
        GlobalFree(memory);
    GlobalDeleteAtom(static_cast<ATOM>(high));
    g_answered = text == "nothing";
    return 0;
}

HWND Connected()
{
    WNDCLASSA kind{};
    kind.lpfnWndProc = Bare;
    kind.hInstance = GetModuleHandleW(nullptr);
    kind.lpszClassName = "BareClient";
    RegisterClassA(&kind);
    const HWND window =
        CreateWindowExA(0, "BareClient", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, kind.hInstance, nullptr);
    const ATOM service = GlobalAddAtomA("KEL"), topic = GlobalAddAtomA("System");
    SendMessageA(HWND_BROADCAST, WM_DDE_INITIATE, reinterpret_cast<WPARAM>(window), MAKELPARAM(service, topic));
    GlobalDeleteAtom(service);
    GlobalDeleteAtom(topic);
    return window;
}

void BareRequest(HWND window, const std::string& item)
{
    g_answered = false;
    PostMessageA(g_partner, WM_DDE_REQUEST, reinterpret_cast<WPARAM>(window), MAKELPARAM(CF_TEXT, GlobalAddAtomA(item.c_str())));
    MSG message;
    while (!g_answered && GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
}

double Seconds()
{
    LARGE_INTEGER count, frequency;
    QueryPerformanceCounter(&count);
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(count.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const int exchanges = argc > 1 ? std::atoi(argv[1]) : 2000;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 9;
    const Beside partner("exchange_partner.exe", "");
    const HWND bare = Connected();
    const auto client = MakeClient({SystemCodePage(0), 5000});
    client->Open(u"KEL|System");
    std::vector<double> bareTimes, ourTimes, ratios;
    for (int round = 0; round <= rounds; ++round) { // the first is not counted
        double begin = Seconds();
        for (int i = 0; i < exchanges; ++i)
            BareRequest(bare, Item(i));
        const double bareTime = (Seconds() - begin) / exchanges * 1e6;
        begin = Seconds();
        for (int i = 0; i < exchanges; ++i)
            static_cast<void>(client->Request(Utf16(Item(i)).value()));
        const double ourTime = (Seconds() - begin) / exchanges * 1e6;
        if (round == 0)
            continue;
        bareTimes.push_back(bareTime);
        ourTimes.push_back(ourTime);
        ratios.push_back(ourTime / bareTime);
    }
    std::printf("bare request %.1f us, our client %.1f us, ratio %.2f (limit 1.5)\n", Median(bareTimes), Median(ourTimes),
                Median(ratios));
    return 0;
}
