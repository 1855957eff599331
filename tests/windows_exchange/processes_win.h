#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace vasclip::test {

/// A program beside this one, started with its standard input and output at hand. It is told to end by the end of its
/// input, and made to.
class Beside
{
public:
    /// @param waits  for its first line, which the programs of these tests print when they listen
    Beside(const std::string& name, const std::string& arguments, bool waits = true)
    {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        HANDLE theirInput = nullptr, theirOutput = nullptr;
        CreatePipe(&theirInput, &m_input, &inherited, 0);
        CreatePipe(&m_output, &theirOutput, &inherited, 0);
        SetHandleInformation(m_input, HANDLE_FLAG_INHERIT, 0);
        SetHandleInformation(m_output, HANDLE_FLAG_INHERIT, 0);
        STARTUPINFOA start{};
        start.cb = sizeof start;
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdInput = theirInput;
        start.hStdOutput = theirOutput;
        start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
        std::string line = '"' + Directory() + name + "\" " + arguments;
        PROCESS_INFORMATION process{};
        const BOOL started =
            CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start, &process);
        CloseHandle(theirInput);
        CloseHandle(theirOutput);
        if (!started)
            throw std::runtime_error("can't start " + line);
        CloseHandle(process.hThread);
        m_process = process.hProcess;
        if (waits && ReadLine().empty())
            throw std::runtime_error(line + " did not come up");
    }
    ~Beside()
    {
        CloseHandle(m_input);
        if (WaitForSingleObject(m_process, 2000) != WAIT_OBJECT_0)
            TerminateProcess(m_process, 1);
        CloseHandle(m_output);
        CloseHandle(m_process);
    }
    Beside(const Beside&) = delete;
    Beside& operator=(const Beside&) = delete;

    [[nodiscard]] std::string ReadLine()
    {
        std::string line;
        char byte = 0;
        for (DWORD read = 0; ReadFile(m_output, &byte, 1, &read, nullptr) && read == 1;) {
            if (byte == '\n')
                return line + '\n';
            line += byte;
        }
        return line;
    }

    /// Of this program, with a backslash.
    [[nodiscard]] static std::string Directory()
    {
        char path[MAX_PATH];
        const std::string own(path, GetModuleFileNameA(nullptr, path, MAX_PATH));
        return own.substr(0, own.rfind('\\') + 1);
    }

private:
    HANDLE m_input = nullptr, m_output = nullptr, m_process = nullptr;
};

} // namespace vasclip::test
