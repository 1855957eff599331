// The record that the window speaks of: grid, entry area, photos and status line say the same of it.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "databook/conditions.h"
#include "databook/delete_records.h"
#include "databook/grid.h"
#include "databook/messages.h"
#include "databook/quick_find.h"
#include "databook/records.h"
#include "photos/front_view.h"
#include "platform/text/text.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::grddatabook_RowColChange()
{
    if (m_showingRecords || m_unloaded)
        return;
    const common::RoutineScope scope{"RowColChange"};
    const bool nowhere = records.grddatabook.Row() < 0;
    if (nowhere && records.grddatabook.RowCount() > 0) // beside it stands a record that it leaves out
        return;
    if (nowhere) {
        ShowNoRecord();
        status.lblmsg.Show(databook::kNoRecordsToShow, forms::Colour::Blue);
        return;
    }
    if (!sources.datDatabook.Bound())
        return;
    const QString key = text::Trim(records.grddatabook.CurrentText(u"CENTRALKEY"_s));
    if (key.isEmpty()) {
        ShowNoRecord();
        status.lblmsg.Show(databook::kGoneMeanwhile, forms::Colour::Blue);
        return;
    }
    m_shownKey = databook::KeyOf(key);
    {
        const common::RoutineScope step{"Address Combo"};
        const QScopedValueRollback<bool> showing(m_showingRecords, true); // CheckStatus looks the key up
        records.txtcentralkey.SetText(key);
    }
    records.lblDatabookADDR.SetCaption(text::Trim(records.grddatabook.CurrentText(u"ADDRESS"_s)));
    records.CheckStatus(m_base.ports, sources.datDatabook, status);
    if (!m_starting)
        ShowRecordPhoto();
}

/// The user means the row: an address that was typed meanwhile gives way to its own.
void frm_Main::grddatabook_Click()
{
    if (records.grddatabook.Row() >= 0 && databook::KeyOf(records.txtcentralkey.Text()) != m_shownKey)
        grddatabook_RowColChange();
}

void frm_Main::ShowNoRecord()
{
    const QScopedValueRollback<bool> showing(m_showingRecords, true);
    m_shownKey.clear();
    records.ShowNone();
    photos::ShowNoPhotos(photoLists, *m_slotLoader, slots.geamaintain);
}

/// A record that is in the Databook and not among the rows.
void frm_Main::ShowOutside(const QString& key)
{
    const QScopedValueRollback<bool> showing(m_showingRecords, true);
    m_shownKey = key;
    records.txtcentralkey.SetText(key);
    records.CheckStatus(m_base.ports, sources.datDatabook, status);
    records.lblDatabookADDR.SetCaption(text::Trim(store::GetFieldData(sources.datDatabook, u"ADDRESS"_s)));
    ShowRecordPhoto();
}

void frm_Main::ShowRecordPhoto()
{
    if (m_shownKey.isEmpty() || !sources.datDatabook.Bound() ||
        !store::FindRecord(m_base.ports, sources.datDatabook, m_shownKey, u"CENTRALKEY"_s)) {
        photos::ShowNoPhotos(photoLists, *m_slotLoader, slots.geamaintain);
        return;
    }
    photos::TestFrontView(sources.datDatabook, m_shownKey, photoLists, *m_slotLoader, slots.geamaintain,
                          m_base.disk, globals.G_PhotoDir);
}

/// @return the row of a record; -1 if the grid leaves it out, -2 if there is none
qint64 frm_Main::PlaceOf(const QString& key)
{
    if (key.isEmpty() || !store::FindRecord(m_base.ports, sources.datDatabook, key, u"CENTRALKEY"_s))
        return -2;
    const qint64 place = sources.datsql.Recordset().PositionOf(sources.datDatabook.Recordset().GetBookmark());
    return std::max<qint64>(place, -1);
}

void frm_Main::ShowRecord(const QString& key)
{
    const common::RoutineScope scope{"ShowRecord"};
    const forms::Hourglass hourglass(m_base.ports.window);
    const QString wanted = databook::KeyOf(key);
    const QString beside = databook::KeyOf(databook::KeyBeside(records.grddatabook));
    const qint64 before = std::max<qint64>(records.grddatabook.Row(), 0);
    qint64 row = -2;
    {
        const QScopedValueRollback<bool> showing(m_showingRecords, true);
        // Looking a key up turns the queue; the places below are those among all records.
        m_quickFind->Hold(true);
        const auto release = qScopeGuard([this] { m_quickFind->Hold(false); });
        databook::DisplayAllRecords(m_base.ports, records, sources.datsql, *m_rows, globals.sortGrid);
        row = PlaceOf(wanted);
        const qint64 next = row == -2 ? PlaceOf(beside) : -1;
        if (row == -1)
            records.grddatabook.StandNowhere();
        else
            records.grddatabook.SetRow(row >= 0 ? row : next >= 0 ? next : before);
        m_quickFind->NarrowAgain();
        if (row == -2 && records.grddatabook.Row() < 0)
            records.grddatabook.SetRow(0);
    }
    if (row != -2 && records.grddatabook.Row() < 0)
        ShowOutside(wanted);
    else
        grddatabook_RowColChange();
}

void frm_Main::WireConditions()
{
    const auto show = [this] {
        records.lstConditions.SetChips(databook::Conditions(records));
    };
    connect(&records.grddatabook, &forms::Grid::Rebound, this, show);
    connect(&records.txtQuickFind, &forms::TextBox::TextChanged, this, show);
    connect(&records.lstConditions, &forms::ChipList::CloseWanted, this, &frm_Main::CloseCondition);
    connect(&records.cmdShowAll, &forms::Control::Clicked, this, &frm_Main::ShowAllRecords);
}

/// What changes the search, and the records that come of it; without them the search stays as it was.
void frm_Main::ShowOtherRecords(const std::function<void()>& change)
{
    const databook::GridState before = records.state;
    change();
    try {
        ShowRecord(m_shownKey);
    } catch (...) {
        records.state = before;
        throw;
    }
    // Given up after an error box: the grid shows what it did.
    if (records.state.sqlText != sources.datsql.RecordSource())
        records.state = before;
}

void frm_Main::CloseCondition(const QString& chip)
{
    const common::RoutineScope scope{"CloseCondition"};
    if (chip == databook::kQuickFindChip)
        m_quickFind->Clear();
    else
        ShowOtherRecords([&] { databook::Relax(records.state, chip); });
}

void frm_Main::ShowAllRecords()
{
    const common::RoutineScope scope{"DisplayAllRecords"};
    m_quickFind->Clear();
    ShowOtherRecords([this] { databook::EndSearch(records.state); });
}

} // namespace vasclip::shell
