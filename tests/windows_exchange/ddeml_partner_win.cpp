// A server on the system's own library for the exchange, which this project does not use elsewhere: what it does with the
// messages is somebody else's reading of the protocol. It keeps what it is sent under "topic/item".

#include <windows.h>

#include <ddeml.h>

#include <cstdio>
#include <map>
#include <string>

namespace {

DWORD g_instance = 0;
std::map<std::string, std::string> g_kept;

std::string NameOf(HSZ name)
{
    char text[256];
    return {text, DdeQueryStringA(g_instance, name, text, sizeof text, CP_WINANSI)};
}

std::string TextOf(HDDEDATA data)
{
    DWORD size = 0;
    const auto* at = reinterpret_cast<const char*>(DdeAccessData(data, &size));
    const std::string text(at ? at : "", at ? strnlen(at, size) : 0);
    DdeUnaccessData(data);
    return text;
}

HDDEDATA CALLBACK Serve(UINT kind, UINT format, HCONV, HSZ topic, HSZ item, HDDEDATA data, ULONG_PTR, ULONG_PTR)
{
    switch (kind) {
    case XTYP_CONNECT:
        return reinterpret_cast<HDDEDATA>(static_cast<UINT_PTR>(TRUE));
    case XTYP_REQUEST: {
        if (format != CF_TEXT || NameOf(item) == "REFUSE")
            return nullptr;
        const auto kept = g_kept.find(NameOf(topic) + '/' + NameOf(item));
        std::string text = kept == g_kept.end() ? "nothing" : kept->second;
        return DdeCreateDataHandle(g_instance, reinterpret_cast<BYTE*>(text.data()), static_cast<DWORD>(text.size() + 1),
                                   0, item, CF_TEXT, 0);
    }
    case XTYP_POKE: {
        const std::string name = NameOf(item);
        if (name == "REFUSE" || name == "READONLY")
            return reinterpret_cast<HDDEDATA>(static_cast<UINT_PTR>(DDE_FNOTPROCESSED));
        g_kept[NameOf(topic) + '/' + name] = TextOf(data);
        return reinterpret_cast<HDDEDATA>(static_cast<UINT_PTR>(DDE_FACK));
    }
    case XTYP_EXECUTE:
        if (TextOf(data) == "[Refuse]")
            return reinterpret_cast<HDDEDATA>(static_cast<UINT_PTR>(DDE_FNOTPROCESSED));
        g_kept[NameOf(topic) + "/COMMANDS"] += TextOf(data);
        return reinterpret_cast<HDDEDATA>(static_cast<UINT_PTR>(DDE_FACK));
    default:
        return nullptr;
    }
}

/// In order, since the library is not made for an end in its middle.
DWORD WINAPI EndWithInput(void* thread)
{
    char byte = 0;
    DWORD read = 0;
    while (ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &read, nullptr) && read > 0) {
    }
    PostThreadMessageA(*static_cast<DWORD*>(thread), WM_QUIT, 0, 0);
    return 0;
}

} // namespace

int main()
{
    if (DdeInitializeA(&g_instance, Serve, APPCLASS_STANDARD, 0) != DMLERR_NO_ERROR)
        return 3;
    const HSZ service = DdeCreateStringHandleA(g_instance, "KEL", CP_WINANSI);
    if (DdeNameService(g_instance, service, nullptr, DNS_REGISTER) == nullptr)
        return 3;
    DWORD thread = GetCurrentThreadId();
    CloseHandle(CreateThread(nullptr, 0, EndWithInput, &thread, 0, nullptr));
    std::puts("ready");
    std::fflush(stdout);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    DdeUninitialize(g_instance);
    return 0;
}
