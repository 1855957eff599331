#include "shell/maintenance.h"

#include "common/error_block.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "upkeep/frm_maintenance.h"

namespace vasclip::shell {

void ShowMaintenance(Program& program, RecordOnShow& shown)
{
    const common::RoutineScope scope{"ShowMaintenance"};
    if (!program.sources.datDatabook.Bound())
        return;
    upkeep::frm_Maintenance screen(
        {.repair = {program.Ports(), program.sources.datDatabook, program.globals, program.Disk()},
         .letGo =
             [&program] {
                 program.records.grddatabook.Rebind(nullptr);
                 program.sources.datsql.Close(); // nothing that works by the clock takes part in the transaction
             },
         .showAgain = [&shown, key = shown.Key()] { shown.ShowRecord(key); }});
    program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
