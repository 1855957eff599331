#include "platform/files/file_lock.h"

#include "platform/files/native.h"

#include <QElapsedTimer>

#include <string>

#include <windows.h>

namespace vasclip::files {

namespace {

/// Far behind the content, so that others may read what the holder wrote.
OVERLAPPED LockedPlace()
{
    OVERLAPPED place{};
    place.Offset = 0;
    place.OffsetHigh = 0x40000000;
    return place;
}

std::wstring Wide(const QString& path)
{
    return native::SystemPath(path).toStdWString();
}

} // namespace

FileLock::~FileLock()
{
    Release();
}

bool FileLock::Take(const QString& path, int waitMs, After after)
{
    Release();
    m_heldByOther = m_keptNone = false;
    const HANDLE handle =
        CreateFileW(Wide(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                    FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
        return false;
    QElapsedTimer waiting;
    waiting.start();
    for (;;) {
        OVERLAPPED place = LockedPlace();
        if (LockFileEx(handle, LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place))
            break;
        m_heldByOther = GetLastError() == ERROR_LOCK_VIOLATION;
        m_keptNone = !m_heldByOther;
        if (m_keptNone || waiting.elapsed() >= waitMs) {
            CloseHandle(handle);
            return false;
        }
        Sleep(2);
    }
    m_handle = reinterpret_cast<qintptr>(handle);
    m_heldByOther = false;
    if (after == After::Goes)
        m_goes = path;
    return true;
}

void FileLock::Release()
{
    if (m_handle != -1)
        CloseHandle(reinterpret_cast<HANDLE>(m_handle));
    m_handle = -1;
    if (!m_goes.isEmpty())
        DeleteFileW(Wide(m_goes).c_str()); // not while others have it open
    m_goes.clear();
}

} // namespace vasclip::files
