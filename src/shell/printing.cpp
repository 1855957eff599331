#include "shell/printing.h"

#include "common/error_block.h"
#include "shell/program.h"
#include "upkeep/frm_crystal.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void PrintReport(Program& program)
{
    const common::RoutineScope scope{"PrintReport"};
    if (!program.sources.datsql.Bound())
        return;
    upkeep::frm_Crystal screen({.ports = program.Ports(),
                                .engine = program.Engine(),
                                .disk = program.Disk(),
                                .globals = program.globals,
                                .databook = program.DatabookPath()},
                               program.sources.datsql, program.records.state.sqlText,
                               !program.records.txtQuickFind.Text().trimmed().isEmpty());
    program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
