#include "shell/data_exchange.h"

#include "shell/program.h"
#include "upkeep/frm_export.h"

namespace vasclip::shell {

namespace {

upkeep::TransferDesk Desk(Program& program)
{
    return {.databook = program.sources.datDatabook, .globals = program.globals, .ports = program.Ports()};
}

} // namespace

void ShowExport(Program& program)
{
    if (!program.sources.datDatabook.Bound())
        return;
    upkeep::frm_Export screen(Desk(program), [&program] { return program.records.state.sqlText; });
    program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
