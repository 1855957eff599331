#include "shell/map_maintenance.h"

#include "common/paths.h"
#include "map/frm_map_data.h"
#include "shell/map_events.h"
#include "shell/map_parts.h"
#include "shell/program.h"

namespace vasclip::shell {

void ShowMapData(Program& program, MapEvents& map)
{
    const QString directory = common::CkRSlash(program.globals.cellData);
    map::frm_MapData screen({.map = program.Map().Desk(),
                             .directory = program.Disk().ToNative(directory),
                             .shown = directory,
                             .checked = program.Map().checked,
                             .changed = [&map] { map.TakeOtherMaps(); }});
    program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
