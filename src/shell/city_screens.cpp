#include "shell/city_screens.h"

#include "common/error_block.h"
#include "databook/frm_mass_city.h"
#include "link/addresses.h"
#include "link/frm_attach_city.h"
#include "platform/text/text.h"
#include "shell/program.h"
#include "shell/record_on_show.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void MassCity(Program& program, RecordOnShow& shown)
{
    databook::frm_MassCity screen(program.Ports(), program.sources.datDatabook, program.globals,
                                  program.Disk());
    program.Ports().screens.ShowModal(screen);
    if (screen.HasChanged())
        shown.ShowRecord(shown.Key());
}

void AttachCity(Program& program, RecordOnShow& shown)
{
    const common::RoutineScope scope{"AttachCity"};
    if (!program.sources.datDatabook.Bound())
        return;
    const QString key = text::Folded(program.records.txtcentralkey.Text());
    const bool inReport = program.linkState.linkActive && link::PlaceInReport(program.Link(), key);
    link::frm_AttachCity screen(program.Link(), inReport ? u"COMP"_s : u"MANUAL"_s, key);
    program.Ports().screens.ShowModal(screen);
    if (screen.HasChanged())
        shown.ShowRecord(key);
}

} // namespace vasclip::shell
