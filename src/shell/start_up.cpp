#include "shell/start_up.h"

#include "platform/text/text.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

Switches::Switches(const QString& commandLine)
{
    const QString line = commandLine.toUpper();
    debug = line == u"/D"_s;
    trace = line.contains(u"/D"_s);
    silent = line.contains(u"/S"_s);
    pumpAlways = line.contains(u"/2"_s);
    noLoad = line.contains(u"/NOLOAD"_s) || line.contains(u"/NO LOAD"_s);
}

} // namespace vasclip::shell
