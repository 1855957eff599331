#include "platform/conduit/peer.h"

#include "platform/text/runtime_error.h"

#include <windows.h>

#include <sddl.h>

#include <memory>
#include <vector>

using namespace Qt::Literals::StringLiterals;

namespace vasclip::conduit {

namespace {

struct HandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using Handle = std::unique_ptr<HANDLE, HandleCloser>;

[[noreturn]] void Unknown()
{
    throw RuntimeError(
        error::kDeviceIo,
        u"The system does not say who is at the other end of the link: error %1"_s.arg(GetLastError()));
}

/// SID and account name of the user that a process runs as.
PeerIdentity UserOf(HANDLE process, qint64 pid)
{
    HANDLE rawToken = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &rawToken))
        Unknown();
    const Handle token(rawToken);
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
    std::vector<unsigned char> room(size);
    if (!GetTokenInformation(token.get(), TokenUser, room.data(), size, &size))
        Unknown();
    PSID sid = reinterpret_cast<TOKEN_USER*>(room.data())->User.Sid;

    PeerIdentity peer;
    peer.pid = pid;
    LPWSTR text = nullptr;
    if (!ConvertSidToStringSidW(sid, &text))
        Unknown();
    peer.userId = QString::fromWCharArray(text);
    LocalFree(text);

    wchar_t name[256];
    wchar_t domain[256];
    DWORD nameSize = 256;
    DWORD domainSize = 256;
    SID_NAME_USE use{};
    if (LookupAccountSidW(nullptr, sid, name, &nameSize, domain, &domainSize, &use))
        peer.userName = QString::fromWCharArray(name);
    return peer;
}

} // namespace

PeerIdentity PeerOf(qintptr descriptor, SocketEnd end)
{
    ULONG pid = 0;
    const auto pipe = reinterpret_cast<HANDLE>(descriptor);
    const BOOL known = end == SocketEnd::Client ? GetNamedPipeServerProcessId(pipe, &pid)
                                                : GetNamedPipeClientProcessId(pipe, &pid);
    if (!known)
        Unknown();
    const Handle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, pid));
    if (!process)
        Unknown();
    return UserOf(process.get(), pid);
}

bool MayHaveNews(qintptr)
{
    return true;
}

QString CurrentUserId()
{
    return UserOf(GetCurrentProcess(), GetCurrentProcessId()).userId;
}

} // namespace vasclip::conduit
