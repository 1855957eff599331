// The "Add a comp" area of the main screen: what its buttons and keys lead to.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "databook/frm_mass_city.h"
#include "databook/grid.h"
#include "databook/records.h"
#include "platform/text/text.h"

#include <QScopedValueRollback>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

databook::RecordWork frm_Main::Records()
{
    return {.ports = m_base.ports,
            .desk = records,
            .status = status,
            .databook = sources.datDatabook,
            .globals = globals,
            .disk = m_base.disk,
            .loadCompForm = [this](const QString& key) { return LoadCompForm(key); },
            .showRecord = [this](const QString& key) { ShowRecord(key); },
            .newNames = ReportAddresses()};
}

/// Addresses of the open report's comps, slot by slot.
QStringList frm_Main::ReportAddresses() const
{
    QStringList addresses;
    const auto add = [&addresses](const forms::ControlArray<forms::TextBox>& boxes) {
        for (int i = boxes.First(); i <= boxes.Last(); ++i)
            if (const QString address = text::Trim(boxes(i).Text()); !address.isEmpty())
                addresses.append(address);
    };
    add(report.txtComp);
    add(report.txtAltComp);
    add(report.txtListing);
    add(report.txtRental);
    return addresses;
}

void frm_Main::CompAddRecord()
{
    databook::CompAddRecord(Records());
}

void frm_Main::CompEditRecord()
{
    databook::CompEditRecord(Records());
}

void frm_Main::CompDeleteRecord()
{
    databook::CompDeleteRecord(Records());
}

void frm_Main::CompCopyRecord()
{
    databook::CompCopyRecord(Records());
}

void frm_Main::CompRenameRecord()
{
    databook::CompRenameRecord(Records());
}

void frm_Main::ShowRecord(const QString& key)
{
    const common::RoutineScope scope{"ShowRecord"};
    const forms::Hourglass hourglass(m_base.ports.window);
    qint64 row = records.grddatabook.Row();
    bool inGrid = false;
    {
        const QScopedValueRollback<bool> showing(m_showingRecords, true);
        databook::DisplayAllRecords(m_base.ports, records, sources.datsql, *m_rows, globals.sortGrid);
        if (store::FindRecord(m_base.ports, sources.datDatabook, databook::KeyOf(key), u"CENTRALKEY"_s)) {
            const qint64 place =
                sources.datsql.Recordset().PositionOf(sources.datDatabook.Recordset().GetBookmark());
            inGrid = place >= 0;
            if (inGrid)
                row = place;
        }
        records.grddatabook.SetRow(row);
    }
    grddatabook_RowColChange();
    if (!inGrid &&
        store::FindRecord(m_base.ports, sources.datDatabook, databook::KeyOf(key), u"CENTRALKEY"_s)) {
        // A search that leaves the record out is on display.
        records.txtcentralkey.SetText(databook::KeyOf(key));
        records.CheckStatus(m_base.ports, sources.datDatabook, status);
    }
}

/// While an address is typed the buttons tell what can be done with it.
void frm_Main::txtcentralkey_Change()
{
    if (!sources.datDatabook.Bound() || m_showingRecords)
        return;
    const QString typed = records.txtcentralkey.Text();
    const bool found =
        store::FindRecord(m_base.ports, sources.datDatabook, databook::KeyOf(typed), u"CENTRALKEY"_s);
    if (typed == records.txtcentralkey.Text()) // the look-up turned the queue
        records.ButtonStatus(found ? u"Found"_s : u"Not Found"_s);
}

/// An address that is there brings its type; one that is not leaves the type that was chosen for it.
void frm_Main::txtcentralkey_LostFocus()
{
    if (sources.datDatabook.Bound() &&
        store::FindRecord(m_base.ports, sources.datDatabook, databook::KeyOf(records.txtcentralkey.Text()),
                          u"CENTRALKEY"_s))
        records.CheckStatus(m_base.ports, sources.datDatabook, status);
}

void frm_Main::MassCity()
{
    databook::frm_MassCity screen(m_base.ports, sources.datDatabook, globals, m_base.disk);
    m_base.ports.screens.ShowModal(screen);
    if (screen.HasChanged())
        ShowRecord(text::Trim(records.grddatabook.CurrentText(u"CENTRALKEY"_s)));
}

} // namespace vasclip::shell
