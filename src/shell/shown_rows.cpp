#include "shell/shown_rows.h"

#include "common/error_block.h"
#include "databook/conditions.h"
#include "databook/frm_grid.h"
#include "databook/frm_search_sql.h"
#include "databook/grid.h"
#include "databook/quick_find.h"
#include "shell/program.h"
#include "shell/record_on_show.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

ShownRows::ShownRows(Program& program, RecordOnShow& shown)
    : m_program(program)
    , m_records(program.records)
    , m_shown(shown)
{
    databook::RecordDesk& records = program.records;
    const auto show = [&records] { records.lstConditions.SetChips(databook::Conditions(records)); };
    connect(&records.cmdSearch, &forms::Control::Clicked, this, &ShownRows::cmdSearch_Click);
    connect(&records.grddatabook, &forms::Grid::HeadClick, this, &ShownRows::grddatabook_HeadClick);
    connect(&records.grddatabook, &forms::Grid::Rebound, this, show);
    connect(&records.txtQuickFind, &forms::TextBox::TextChanged, this, show);
    connect(&records.lstConditions, &forms::ChipList::CloseWanted, this, &ShownRows::CloseCondition);
    connect(&records.cmdShowAll, &forms::Control::Clicked, this, &ShownRows::ShowAllRecords);
}

void ShownRows::cmdSearch_Click()
{
    databook::frm_SearchSQL search({m_program.Ports(), m_program.Disk(), m_program.globals, m_records,
                                    m_program.sources.datsql, m_shown.Rows()});
    m_shown.QuickFind().Clear();
    m_program.Ports().screens.ShowModal(search);
    if (!m_records.state.searchOnDisplay && m_records.state.search)
        m_shown.DisplayAllRecords(); // the search was cleared on its screen
    m_shown.grddatabook_RowColChange();
}

void ShownRows::grddatabook_HeadClick(const QString& field)
{
    const common::RoutineScope scope{"HeadClick"};
    const databook::GridState before = m_records.state;
    const int sortBefore = m_program.globals.sortGrid;
    if (!databook::SortBy(m_records.state, m_program.globals.sortGrid, field))
        return;
    try {
        m_shown.DisplayAllRecords();
    } catch (...) {
        m_records.state = before;
        m_program.globals.sortGrid = sortBefore;
        throw;
    }
}

/// What changes the search, and the records that come of it; without them the search stays as it was.
void ShownRows::ShowOtherRecords(const std::function<void()>& change)
{
    const databook::GridState before = m_records.state;
    change();
    try {
        m_shown.ShowRecord(m_shown.Key());
    } catch (...) {
        m_records.state = before;
        throw;
    }
    // Given up after an error box: the grid shows what it did.
    if (m_records.state.sqlText != m_program.sources.datsql.RecordSource())
        m_records.state = before;
}

void ShownRows::CloseCondition(const QString& chip)
{
    const common::RoutineScope scope{"CloseCondition"};
    if (chip == databook::kQuickFindChip)
        m_shown.QuickFind().Clear();
    else
        ShowOtherRecords([&] { databook::Relax(m_records.state, chip); });
}

void ShownRows::ShowAllRecords()
{
    const common::RoutineScope scope{"DisplayAllRecords"};
    m_shown.QuickFind().Clear();
    ShowOtherRecords([this] { databook::EndSearch(m_records.state); });
}

void ShownRows::ShowGridLayout()
{
    databook::frm_Grid screen(m_program.Disk(), m_program.Ports(), m_records.grddatabook,
                              m_program.globals.G_ProgramDir);
    m_program.Ports().screens.ShowModal(screen);
}

} // namespace vasclip::shell
