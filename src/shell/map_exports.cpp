#include "shell/map_exports.h"

#include "shell/program.h"

namespace vasclip::shell {

map::ExportDesk Exports(Program& program)
{
    return {.addr = program.addr,
            .sources = program.sources,
            .globals = program.globals,
            .ports = program.Ports(),
            .status = program.status,
            .disk = program.Disk()};
}

} // namespace vasclip::shell
