#pragma once

namespace vasclip::desktop {

/// Does a person sit at the standard input?
[[nodiscard]] bool IsTerminal();
/// Does a person see what goes to the standard error output, as it goes?
[[nodiscard]] bool ErrorsAreSeen();

/// While it stands, UTF-8 and the codes that rub out a line's end reach the terminal as they are meant. A program with windows
/// writes to the terminal it was started from, if there is one. Where terminals are so of themselves, it does nothing.
class TerminalOutput
{
public:
    TerminalOutput();
    ~TerminalOutput();
    TerminalOutput(const TerminalOutput&) = delete;
    TerminalOutput& operator=(const TerminalOutput&) = delete;

private:
    [[maybe_unused]] unsigned m_codePage = 0; ///< that of the terminal before; 0 where nothing was changed
};

} // namespace vasclip::desktop
