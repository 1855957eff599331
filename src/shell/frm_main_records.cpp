// The "Add a comp" area of the main screen: what its buttons and keys lead to.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "databook/delete_records.h"
#include "databook/frm_mass_city.h"
#include "databook/messages.h"
#include "databook/records.h"
#include "platform/text/text.h"

#include <QScopeGuard>

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
    AfterAction();
}

void frm_Main::CompEditRecord()
{
    databook::CompEditRecord(Records());
    AfterAction();
}

/// Several selected rows are deleted together, unless another address than the row's stands in the box.
void frm_Main::CompDeleteRecord()
{
    const bool many = records.grddatabook.SelectedCount() > 1 &&
                      databook::KeyOf(records.txtcentralkey.Text()) == m_shownKey;
    if (!many) {
        databook::CompDeleteRecord(Records());
        AfterAction();
        return;
    }
    const QString beside = databook::KeyBeside(records.grddatabook);
    const QStringList keys = databook::SelectedKeys(records.grddatabook);
    // The queue turns between two records.
    records.grddatabook.SetEnabled(false);
    fraAddaComp.SetEnabled(false);
    const auto free = qScopeGuard([this] {
        records.grddatabook.SetEnabled(true);
        fraAddaComp.SetEnabled(true);
        records.grddatabook.SetFocus();
    });
    databook::CompDeleteRecords(Records(), keys, beside);
}

void frm_Main::CompCopyRecord()
{
    databook::CompCopyRecord(Records());
    AfterAction();
}

void frm_Main::CompRenameRecord()
{
    databook::CompRenameRecord(Records());
    AfterAction();
}

/// The record may have gone meanwhile, or be where the grid does not show it.
void frm_Main::AfterAction()
{
    if (m_unloaded || m_shownKey.isEmpty())
        return;
    if (!records.cmdEdit.Enabled())
        ShowRecordPhoto();
    const QString said = status.lblmsg.Caption();
    if (records.grddatabook.Row() < 0 && !said.endsWith(databook::kNotAmongShown))
        status.lblmsg.Show(said + databook::kNotAmongShown, status.lblmsg.Fore());
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
        ShowRecord(m_shownKey);
}

} // namespace vasclip::shell
