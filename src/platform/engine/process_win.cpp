#include "platform/engine/process.h"

#include "platform/files/native.h"

#include <string>

#include <windows.h>

namespace vasclip::engine {

namespace {

std::wstring Wide(const QString& path)
{
    return files::native::SystemPath(path).toStdWString();
}

} // namespace

qint64 OwnProcess()
{
    return GetCurrentProcessId();
}

QString StartMark(qint64 process)
{
    const HANDLE handle = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(process));
    if (!handle)
        return {};
    FILETIME start{};
    FILETIME other{};
    const BOOL known = GetProcessTimes(handle, &start, &other, &other, &other);
    CloseHandle(handle);
    if (!known)
        return {};
    return QString::number(quint64{start.dwHighDateTime} << 32 | start.dwLowDateTime);
}

bool IsAlive(qint64 process, const QString& startMark)
{
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
    if (!handle)
        return GetLastError() == ERROR_ACCESS_DENIED;
    const bool runs = WaitForSingleObject(handle, 0) == WAIT_TIMEOUT;
    CloseHandle(handle);
    const QString present = StartMark(process);
    return runs && (startMark.isEmpty() || present.isEmpty() || present == startMark);
}

bool FlushFile(const QString& nativePath)
{
    constexpr DWORD kShared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE; // who flushes may have it open
    const HANDLE file = CreateFileW(Wide(nativePath).c_str(), GENERIC_WRITE, kShared, nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return false;
    const BOOL done = FlushFileBuffers(file);
    CloseHandle(file);
    return done != FALSE;
}

bool RenameOver(const QString& from, const QString& to, NamesFlushed when)
{
    const DWORD flush = when == NamesFlushed::AtOnce ? MOVEFILE_WRITE_THROUGH : 0;
    return MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_REPLACE_EXISTING | flush) != FALSE;
}

// A directory can't be flushed by its users there; the file system keeps its names by a journal of its own.
void FlushNames(const QString&) {}

} // namespace vasclip::engine
