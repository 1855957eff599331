#include "shell/data_exchange.h"

#include "shell/program.h"
#include "shell/record_on_show.h"
#include "upkeep/frm_export.h"
#include "upkeep/frm_import.h"

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

void ShowImport(Program& program, RecordOnShow& shown)
{
    if (!program.sources.datDatabook.Bound())
        return;
    upkeep::frm_Import screen(Desk(program));
    program.Ports().screens.ShowModal(screen);
    if (screen.HasChanged())
        shown.ShowRecord(shown.Key());
}

} // namespace vasclip::shell
