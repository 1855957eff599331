// What the Transfer menu leads to: the report's columns and pictures into the Databook, and what they lack
// there.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "link/addresses.h"
#include "link/frm_attach_city.h"
#include "link/transfer.h"
#include "platform/text/text.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

link::TransferTally Transfer(link::LinkDesk& desk, int index)
{
    using link::What;
    switch (index) {
    case 0:
        return link::TransferSubject(desk, What::Both, 0);
    case 2:
        return link::TransferComps(desk, true, 0, What::Both);
    case 3:
        return link::TransferAltComps(desk, true, 0, What::Both);
    case 4:
        return link::TransferListings(desk, true, 0, What::Both);
    case 5:
        return link::TransferRentals(desk, true, 0, What::Both);
    default:
        return link::TransferAllData(desk, What::Both);
    }
}

} // namespace

void frm_Main::TransferChosen(int index)
{
    const common::RoutineScope scope{"mnuTransferItem"};
    const link::TransferTally tally = Transfer(*m_link, index);
    if (m_unloaded || tally.busy || (tally.stored.isEmpty() && tally.pictures == 0))
        return;
    // Showing the records tells of the one on show; what came of the transfer is the last word.
    const QString told = status.lblmsg.Caption();
    const forms::Colour colour = status.lblmsg.Fore();
    ShowRecord(m_shownKey);
    status.lblmsg.Show(told, colour);
}

/// On the record on show; a comp of the open report is read from it.
void frm_Main::AttachCity()
{
    const common::RoutineScope scope{"AttachCity"};
    if (!sources.datDatabook.Bound())
        return;
    const QString key = text::Folded(records.txtcentralkey.Text());
    const bool inReport = linkState.linkActive && link::PlaceInReport(*m_link, key);
    link::frm_AttachCity screen(*m_link, inReport ? u"COMP"_s : u"MANUAL"_s, key);
    m_base.ports.screens.ShowModal(screen);
    if (screen.HasChanged())
        ShowRecord(key);
}

} // namespace vasclip::shell
