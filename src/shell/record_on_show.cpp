#include "shell/record_on_show.h"

#include "common/error_block.h"
#include "databook/delete_records.h"
#include "databook/grid.h"
#include "databook/messages.h"
#include "databook/quick_find.h"
#include "databook/records.h"
#include "photos/front_view.h"
#include "platform/text/text.h"
#include "shell/program.h"
#include "store/fields.h"

#include <QScopeGuard>
#include <QScopedValueRollback>

#include <algorithm>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// What the row holds now, whatever was painted; "" if there is no such row.
QString KeyInRow(const forms::Grid& grid, qint64 row)
{
    const forms::GridSource* source = grid.Source();
    if (source == nullptr || row < 0 || row >= source->RowCount())
        return {};
    const QStringList names = source->FieldNames();
    const auto key = std::find_if(names.cbegin(), names.cend(), [](const QString& name) {
        return name.compare(fields::CENTRALKEY, Qt::CaseInsensitive) == 0;
    });
    return source->Row(row).value(key - names.cbegin());
}

} // namespace

RecordOnShow::RecordOnShow(Program& program)
    : m_program(program)
    , m_records(program.records)
    , m_rows(std::make_unique<databook::GridRows>(program.sources.datsql))
    , m_quickFind(std::make_unique<databook::QuickFind>(
          program.Ports(), program.records, program.sources.datsql, *m_rows, program.status, program.globals))
{}

RecordOnShow::~RecordOnShow() = default;

void RecordOnShow::DisplayAllRecords()
{
    const common::RoutineScope scope{"DisplayAllRecords"};
    const forms::Hourglass hourglass(m_program.Ports().window);
    forms::Grid& grid = m_records.grddatabook;
    {
        const QScopedValueRollback<bool> showing(m_changing, true);
        databook::DisplayAllRecords(m_program.Ports(), m_records, m_program.sources.datsql, *m_rows,
                                    m_program.globals.sortGrid);
        m_quickFind->NarrowAgain();
        grid.SetRow(std::max<qint64>(grid.Row(), 0));
    }
    grddatabook_RowColChange();
}

void RecordOnShow::grddatabook_RowColChange()
{
    if (m_changing || m_program.life.unloaded)
        return;
    const common::RoutineScope scope{"RowColChange"};
    const bool nowhere = m_records.grddatabook.Row() < 0;
    if (nowhere && m_records.grddatabook.RowCount() > 0) // beside it stands a record that it leaves out
        return;
    if (nowhere) {
        ShowNoRecord();
        m_program.status.lblmsg.Show(databook::kNoRecordsToShow, forms::Colour::Blue);
        return;
    }
    if (!m_program.sources.datDatabook.Bound())
        return;
    const QString key = text::Trim(m_records.grddatabook.CurrentText(fields::CENTRALKEY));
    if (key.isEmpty()) {
        ShowNoRecord();
        m_program.status.lblmsg.Show(databook::kGoneMeanwhile, forms::Colour::Blue);
        return;
    }
    m_key = databook::KeyOf(key);
    {
        const common::RoutineScope step{"Address Combo"};
        const QScopedValueRollback<bool> showing(m_changing, true); // CheckStatus looks the key up
        m_records.txtcentralkey.SetText(key);
    }
    m_records.lblDatabookADDR.SetCaption(text::Trim(m_records.grddatabook.CurrentText(fields::ADDRESS)));
    m_records.CheckStatus(m_program.Ports(), m_program.sources.datDatabook, m_program.status);
    if (!m_program.life.starting)
        ShowPhoto();
}

void RecordOnShow::grddatabook_Click()
{
    if (m_records.grddatabook.Row() >= 0 && databook::KeyOf(m_records.txtcentralkey.Text()) != m_key)
        grddatabook_RowColChange();
}

void RecordOnShow::ShowNoRecord()
{
    const QScopedValueRollback<bool> showing(m_changing, true);
    m_key.clear();
    m_records.ShowNone();
    ShowNoPhotos();
}

void RecordOnShow::ShowNoPhotos()
{
    photos::ShowNoPhotos(m_program.photoLists, m_program.Loader(), m_program.slots.geamaintain);
}

/// A record that is in the Databook and not among the rows.
void RecordOnShow::ShowOutside(const QString& key)
{
    const QScopedValueRollback<bool> showing(m_changing, true);
    m_key = key;
    m_records.txtcentralkey.SetText(key);
    m_records.CheckStatus(m_program.Ports(), m_program.sources.datDatabook, m_program.status);
    m_records.lblDatabookADDR.SetCaption(
        text::Trim(store::GetFieldData(m_program.sources.datDatabook, fields::ADDRESS)));
    ShowPhoto();
}

void RecordOnShow::ShowPhoto()
{
    if (m_key.isEmpty() || !m_program.sources.datDatabook.Bound() ||
        !store::FindRecord(m_program.Ports(), m_program.sources.datDatabook, m_key, fields::CENTRALKEY)) {
        ShowNoPhotos();
        return;
    }
    photos::TestFrontView(m_program.sources.datDatabook, m_key, m_program.photoLists, m_program.Loader(),
                          m_program.slots.geamaintain, m_program.Disk(), m_program.globals.G_PhotoDir);
}

/// @return the row of a record; -1 if the grid leaves it out, -2 if there is none
qint64 RecordOnShow::PlaceOf(const QString& key)
{
    if (key.isEmpty() ||
        !store::FindRecord(m_program.Ports(), m_program.sources.datDatabook, key, fields::CENTRALKEY))
        return -2;
    return m_program.sources.datsql.PlaceOf(m_program.sources.datDatabook);
}

void RecordOnShow::ShowRecord(const QString& key)
{
    const common::RoutineScope scope{"ShowRecord"};
    const forms::Hourglass hourglass(m_program.Ports().window);
    const QString wanted = databook::KeyOf(key);
    const QString beside = databook::KeyOf(databook::KeyBeside(m_records.grddatabook));
    const qint64 before = std::max<qint64>(m_records.grddatabook.Row(), 0);
    qint64 row = -2;
    {
        const QScopedValueRollback<bool> showing(m_changing, true);
        // Looking a key up turns the queue; the places below are those among all records.
        m_quickFind->Hold(true);
        const auto release = qScopeGuard([this] { m_quickFind->Hold(false); });
        databook::DisplayAllRecords(m_program.Ports(), m_records, m_program.sources.datsql, *m_rows,
                                    m_program.globals.sortGrid);
        row = PlaceOf(wanted);
        const qint64 next = row == -2 ? PlaceOf(beside) : -1;
        if (row == -1)
            m_records.grddatabook.StandNowhere();
        else
            m_records.grddatabook.SetRow(row >= 0 ? row : next >= 0 ? next : before);
        m_quickFind->NarrowAgain();
        if (row == -2 && m_records.grddatabook.Row() < 0)
            m_records.grddatabook.SetRow(0);
    }
    if (row != -2 && m_records.grddatabook.Row() < 0)
        ShowOutside(wanted);
    else
        grddatabook_RowColChange();
}

bool RecordOnShow::TakeRow(qint64 row, const QString& key)
{
    const common::RoutineScope scope{"TakeRow"};
    const QString there = text::Trim(KeyInRow(m_records.grddatabook, row));
    if (there.isEmpty() || there != text::Trim(key)) {
        m_program.status.lblmsg.Show(
            u"The records have changed under the pointer; nothing was done. Drop it again."_s,
            forms::Colour::Red);
        m_records.grddatabook.Refresh(); // to what stands there now
        return false;
    }
    m_records.grddatabook.SetRow(row);
    return true;
}

} // namespace vasclip::shell
