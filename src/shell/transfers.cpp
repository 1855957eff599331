#include "shell/transfers.h"

#include "common/error_block.h"
#include "link/link_desk.h"
#include "shell/program.h"
#include "shell/record_on_show.h"

namespace vasclip::shell {

void Transfer(Program& program, RecordOnShow& shown,
              const std::function<link::TransferTally(link::LinkDesk&)>& work)
{
    const common::RoutineScope scope{"mnuTransferItem"};
    const link::TransferTally tally = work(program.Link());
    if (program.life.unloaded || tally.busy || (tally.stored.isEmpty() && tally.pictures == 0))
        return;
    // Showing the records tells of the one on show; what came of the transfer is the last word.
    const QString told = program.status.lblmsg.Caption();
    const forms::Colour colour = program.status.lblmsg.Fore();
    shown.ShowRecord(shown.Key());
    program.status.lblmsg.Show(told, colour);
}

} // namespace vasclip::shell
