#include "shell/maintenance.h"

#include "common/error_block.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "upkeep/frm_archive.h"
#include "upkeep/frm_maintenance.h"

namespace vasclip::shell {

namespace {

/// Nothing that works by the clock, or paints, takes part in a transaction that another screen holds.
std::function<void()> LettingGo(Program& program)
{
    return [&program] {
        program.records.grddatabook.Rebind(nullptr);
        program.sources.datsql.Close();
    };
}

std::function<void()> ShowingAgain(RecordOnShow& shown)
{
    return [&shown, key = shown.Key()] { shown.ShowRecord(key); };
}

} // namespace

void ShowMaintenance(Program& program, RecordOnShow& shown)
{
    const common::RoutineScope scope{"ShowMaintenance"};
    if (!program.sources.datDatabook.Bound())
        return;
    upkeep::frm_Maintenance screen(
        {.repair = {program.Ports(), program.sources.datDatabook, program.globals, program.Disk()},
         .letGo = LettingGo(program),
         .showAgain = ShowingAgain(shown)});
    program.Ports().screens.ShowModal(screen);
}

void ShowArchive(Program& program, RecordOnShow& shown)
{
    const common::RoutineScope scope{"ShowArchive"};
    if (!program.sources.datDatabook.Bound())
        return;
    upkeep::frm_Archive screen({program.sources.datDatabook, program.globals, program.Ports()}, LettingGo(program),
                               ShowingAgain(shown));
    program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
