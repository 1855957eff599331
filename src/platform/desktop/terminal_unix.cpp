#include "platform/desktop/terminal.h"

#include <cerrno>
#include <fcntl.h>
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

// A closed one would be given to the next file that is opened, and what is printed would go into that.
TerminalOutput::TerminalOutput()
{
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (::fcntl(standard, F_GETFD) < 0 && errno == EBADF)
            static_cast<void>(::open("/dev/null", O_RDONLY)); // what is written there fails, and is told
}

TerminalOutput::~TerminalOutput() = default;

} // namespace vasclip::desktop
