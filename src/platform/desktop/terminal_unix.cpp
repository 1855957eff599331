#include "platform/desktop/terminal.h"

#include <unistd.h>

namespace vasclip::desktop {

bool IsTerminal()
{
    return isatty(STDIN_FILENO) != 0;
}

bool ErrorsAreSeen()
{
    return isatty(STDERR_FILENO) != 0;
}

TerminalOutput::TerminalOutput() = default;
TerminalOutput::~TerminalOutput() = default;

} // namespace vasclip::desktop
