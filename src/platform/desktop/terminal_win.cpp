#include "platform/desktop/terminal.h"

#include <cstdio>
#include <io.h>

namespace vasclip::desktop {

bool IsTerminal()
{
    return _isatty(_fileno(stdin)) != 0;
}

bool ErrorsAreSeen()
{
    return _isatty(_fileno(stderr)) != 0;
}

} // namespace vasclip::desktop
