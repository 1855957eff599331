#include "platform/desktop/desktop.h"
#include "platform/desktop/version_beside.h"

#include "platform/text/runtime_error.h"

#include <QByteArray>
#include <QDir>
#include <QProcess>

#include <vector>

#include <windows.h>

#include <shellapi.h>

using namespace Qt::StringLiterals;

namespace vasclip::desktop {

namespace {

constexpr const char* kPlatform = "QT_QPA_PLATFORM";

const wchar_t* Wide(const QString& text)
{
    return reinterpret_cast<const wchar_t*>(text.utf16());
}

QString FromDirectoryCall(UINT (*call)(LPWSTR, UINT))
{
    wchar_t buffer[MAX_PATH] = {};
    call(buffer, MAX_PATH);
    return QString::fromWCharArray(buffer);
}

} // namespace

int ShellOpen(const files::Disk& disk, const QString& verb, const QString& file, const QString& parameters,
              const QString& directory)
{
    QString target = file;
    QString start = directory;
    try {
        if (file.indexOf(u':') < 2)
            target = QDir::toNativeSeparators(disk.ToNative(file));
        if (!directory.isEmpty())
            start = QDir::toNativeSeparators(disk.ToNative(directory));
    } catch (const RuntimeError&) {
        return kShellPathNotFound;
    }
    const QString action = verb.isEmpty() ? u"open"_s : verb;
    const HINSTANCE result = ShellExecuteW(nullptr, Wide(action), Wide(target), Wide(parameters),
                                           start.isEmpty() ? nullptr : Wide(start), SW_SHOWNORMAL);
    const auto answer = reinterpret_cast<qintptr>(result);
    return answer > 32 ? int(kShellDone) : int(answer);
}

bool StartProgram(const QString& program, const QStringList& arguments, const QString& directory)
{
    return QProcess::startDetached(program, arguments, directory);
}

QString FileVersion(const QString& nativePath)
{
    DWORD ignored = 0;
    const DWORD size = GetFileVersionInfoSizeW(Wide(nativePath), &ignored);
    if (size == 0)
        return VersionBeside(nativePath);
    std::vector<char> block(size);
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!GetFileVersionInfoW(Wide(nativePath), 0, size, block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&fixed), &length) || !fixed)
        return {};
    return u"%1.%2.%3.%4"_s.arg(HIWORD(fixed->dwFileVersionMS))
        .arg(LOWORD(fixed->dwFileVersionMS))
        .arg(HIWORD(fixed->dwFileVersionLS))
        .arg(LOWORD(fixed->dwFileVersionLS));
}

QString SystemDirectory()
{
    return FromDirectoryCall(&GetSystemDirectoryW);
}

QString WindowsDirectory()
{
    return FromDirectoryCall(&GetWindowsDirectoryW);
}

SystemVersion ReadSystemVersion(const SystemVersion& elsewhere)
{
    // Asked of the kernel's own library: the ordinary call tells a program what its manifest says.
    using Call = LONG(WINAPI*)(OSVERSIONINFOW*);
    const HMODULE library = GetModuleHandleW(L"ntdll.dll");
    const auto call =
        library ? reinterpret_cast<Call>(reinterpret_cast<void*>(GetProcAddress(library, "RtlGetVersion")))
                : nullptr;
    OSVERSIONINFOW record{};
    record.dwOSVersionInfoSize = sizeof record;
    if (!call || call(&record) != 0)
        return elsewhere;
    return {int(record.dwMajorVersion), int(record.dwMinorVersion), int(record.dwBuildNumber),
            record.dwPlatformId == VER_PLATFORM_WIN32_NT, QString::fromWCharArray(record.szCSDVersion)};
}

QString FindWindowCaption(const QString& windowClass)
{
    const HWND window = FindWindowW(Wide(windowClass), nullptr);
    if (!window)
        return {};
    constexpr int kLongestCaption = 255;
    wchar_t caption[kLongestCaption + 1] = {};
    const int length = GetWindowTextW(window, caption, kLongestCaption + 1);
    return QString::fromWCharArray(caption, length);
}

bool CanShowWindows()
{
    return true;
}

SystemColours::SystemColours()
    : m_told(qEnvironmentVariableIsEmpty(kPlatform) && qputenv(kPlatform, "windows:darkmode=2")) // frames and palette
{}

SystemColours::~SystemColours()
{
    if (m_told)
        qunsetenv(kPlatform);
}

} // namespace vasclip::desktop
