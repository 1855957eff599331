#include "platform/desktop/terminal.h"

#include <cstdio>
#include <io.h>

#include <windows.h>

namespace vasclip::desktop {

namespace {

/// The terminal's part of a stream that nobody has sent elsewhere.
void WriteToTerminal(DWORD which, std::FILE* stream)
{
    const HANDLE handle = GetStdHandle(which);
    if (handle == nullptr || handle == INVALID_HANDLE_VALUE)
        std::freopen("CONOUT$", "w", stream);
}

void TakeCodes(DWORD which)
{
    const HANDLE handle = GetStdHandle(which);
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode))
        SetConsoleMode(handle, mode | ENABLE_PROCESSED_OUTPUT | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

} // namespace

bool IsTerminal()
{
    return _isatty(_fileno(stdin)) != 0;
}

bool ErrorsAreSeen()
{
    return _isatty(_fileno(stderr)) != 0;
}

TerminalOutput::TerminalOutput()
{
    if (GetConsoleWindow() == nullptr && AttachConsole(ATTACH_PARENT_PROCESS)) {
        WriteToTerminal(STD_OUTPUT_HANDLE, stdout);
        WriteToTerminal(STD_ERROR_HANDLE, stderr);
    }
    const UINT before = GetConsoleOutputCP(); // 0 without a terminal
    if (before != 0 && before != CP_UTF8 && SetConsoleOutputCP(CP_UTF8))
        m_codePage = before;
    TakeCodes(STD_OUTPUT_HANDLE);
    TakeCodes(STD_ERROR_HANDLE);
}

TerminalOutput::~TerminalOutput()
{
    std::fflush(stdout);
    if (m_codePage != 0)
        SetConsoleOutputCP(m_codePage);
}

} // namespace vasclip::desktop
