// The grid's own events, its pop-up menu and its layouts.

#include "common/error_block.h"
#include "databook/frm_grid.h"
#include "databook/grid.h"
#include "shell/frm_main.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::WireGrid()
{
    connect(&records.grddatabook, &forms::Grid::HeadClick, this, &frm_Main::grddatabook_HeadClick);
    connect(&popGrid_M, &forms::Menu::Chosen, this,
            [this](const QString&, int index) { popGrid_M_Click(index); });
    // The entry can what its button can.
    const auto follow = [this] { popGrid_M.SetEntryEnabled(2, records.cmdSearch.Enabled()); };
    connect(&records.cmdSearch, &forms::Control::Changed, this, follow);
    follow();
}

void frm_Main::grddatabook_HeadClick(const QString& field)
{
    const common::RoutineScope scope{"HeadClick"};
    const databook::GridState before = records.state;
    const int sortBefore = globals.sortGrid;
    if (!databook::SortBy(records.state, globals.sortGrid, field))
        return;
    try {
        DisplayAllRecords();
    } catch (...) {
        records.state = before;
        globals.sortGrid = sortBefore;
        throw;
    }
}

void frm_Main::popGrid_M_Click(int index)
{
    if (index == 0)
        Q_EMIT records.cmdRefresh.Clicked();
    else if (index == 2)
        Q_EMIT records.cmdSearch.Clicked();
    else if (index == 4)
        RefreshAppraisal();
}

void frm_Main::ShowGridLayout()
{
    databook::frm_Grid screen(m_base.disk, m_base.ports, records.grddatabook, globals.G_ProgramDir);
    m_base.ports.screens.ShowModal(screen);
}

} // namespace vasclip::shell
