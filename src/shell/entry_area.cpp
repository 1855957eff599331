#include "shell/entry_area.h"

#include "comments/frm_fkey.h"
#include "common/error_block.h"
#include "databook/city_list.h"
#include "databook/delete_records.h"
#include "databook/grid.h"
#include "databook/load_comp_form.h"
#include "databook/messages.h"
#include "databook/records.h"
#include "platform/text/text.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "store/fields.h"

#include <QScopeGuard>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

EntryArea::EntryArea(Program& program, RecordOnShow& shown, forms::Control& frame)
    : m_program(program)
    , m_records(program.records)
    , m_shown(shown)
    , m_frame(frame)
    , m_twin(program.sources.datDatabook, program.globals.G_Table, [this]() -> std::optional<databook::TypedAddress> {
        const QString typed = text::Trim(m_records.txtcentralkey.Text());
        if (typed.isEmpty() || !m_records.cmdAdd.Enabled()) // no new comp
            return std::nullopt;
        return databook::TypedAddress{typed, typed, {}};
    })
{
    connect(&m_twin, &databook::TwinWatch::Changed, this, &EntryArea::ShowTwin);
    connect(&m_records.cmdTwin, &forms::Control::Clicked, this, [this] {
        if (const QString twin = m_twin.Twin(); !twin.isEmpty())
            m_shown.ShowRecord(twin);
    });
    connect(&m_records.cmdEdit, &forms::Control::Clicked, this, &EntryArea::CompEditRecord);
    connect(&m_records.grddatabook, &forms::Control::DoubleClicked, this, [this] {
        m_shown.grddatabook_Click();
        CompEditRecord();
    });
    connect(&m_records.txtcentralkey, &forms::TextBox::TextChanged, this, &EntryArea::txtcentralkey_Change);
    connect(&m_records.txtcentralkey, &forms::Control::LostFocus, this, &EntryArea::txtcentralkey_LostFocus);
    connect(&m_records.cmdAdd, &forms::Control::Clicked, this, &EntryArea::CompAddRecord);
    connect(&m_records.cmdDelete, &forms::Control::Clicked, this, &EntryArea::CompDeleteRecord);
    connect(&m_records.cmdCopy, &forms::Control::Clicked, this, &EntryArea::CompCopyRecord);
    connect(&m_records.cmdRename, &forms::Control::Clicked, this, &EntryArea::CompRenameRecord);
}

EntryArea::~EntryArea() = default;

databook::RecordWork EntryArea::Records()
{
    return {.ports = m_program.Ports(),
            .desk = m_records,
            .status = m_program.status,
            .databook = m_program.sources.datDatabook,
            .globals = m_program.globals,
            .disk = m_program.Disk(),
            .loadCompForm = [this](const QString& key) { return LoadCompForm(key); },
            .showRecord = [this](const QString& key) { m_shown.ShowRecord(key); },
            .newNames = ReportAddresses()};
}

/// Addresses of the open report's comps, slot by slot.
QStringList EntryArea::ReportAddresses() const
{
    QStringList addresses;
    const auto add = [&addresses](const forms::ControlArray<forms::TextBox>& boxes) {
        for (int i = boxes.First(); i <= boxes.Last(); ++i)
            if (const QString address = text::Trim(boxes(i).Text()); !address.isEmpty())
                addresses.append(address);
    };
    add(m_program.report.txtComp);
    add(m_program.report.txtAltComp);
    add(m_program.report.txtListing);
    add(m_program.report.txtRental);
    return addresses;
}

void EntryArea::CompAddRecord()
{
    databook::CompAddRecord(Records());
    AfterAction();
}

void EntryArea::CompEditRecord()
{
    databook::CompEditRecord(Records());
    AfterAction();
}

/// Several selected rows are deleted together, unless another address than the row's stands in the box.
void EntryArea::CompDeleteRecord()
{
    const bool many = m_records.grddatabook.SelectedCount() > 1 &&
                      databook::KeyOf(m_records.txtcentralkey.Text()) == m_shown.Key();
    if (!many) {
        databook::CompDeleteRecord(Records());
        AfterAction();
        return;
    }
    const QString beside = databook::KeyBeside(m_records.grddatabook);
    const QStringList keys = databook::SelectedKeys(m_records.grddatabook);
    // The queue turns between two records.
    m_records.grddatabook.SetEnabled(false);
    m_frame.SetEnabled(false);
    const auto free = qScopeGuard([this] {
        m_records.grddatabook.SetEnabled(true);
        m_frame.SetEnabled(true);
        m_records.grddatabook.SetFocus();
    });
    databook::CompDeleteRecords(Records(), keys, beside);
}

void EntryArea::CompCopyRecord()
{
    databook::CompCopyRecord(Records());
    AfterAction();
}

void EntryArea::CompRenameRecord()
{
    databook::CompRenameRecord(Records());
    AfterAction();
}

/// The record may have gone meanwhile, or be where the grid does not show it.
void EntryArea::AfterAction()
{
    if (m_program.life.unloaded || m_shown.Key().isEmpty())
        return;
    if (!m_records.cmdEdit.Enabled())
        m_shown.ShowPhoto();
    const QString said = m_program.status.lblmsg.Caption();
    if (m_records.grddatabook.Row() < 0 && !said.endsWith(databook::kNotAmongShown))
        m_program.status.lblmsg.Show(said + databook::kNotAmongShown, m_program.status.lblmsg.Fore());
}

/// While an address is typed the buttons tell what can be done with it.
void EntryArea::txtcentralkey_Change()
{
    if (!m_program.sources.datDatabook.Bound() || m_shown.Changing()) {
        m_twin.Forget();
        return;
    }
    m_twin.Typed();
    const QString typed = m_records.txtcentralkey.Text();
    const bool found = store::FindRecord(m_program.Ports(), m_program.sources.datDatabook,
                                         databook::KeyOf(typed), fields::CENTRALKEY);
    if (typed == m_records.txtcentralkey.Text()) // the look-up turned the queue
        m_records.ButtonStatus(found ? u"Found"_s : u"Not Found"_s);
}

void EntryArea::ShowTwin()
{
    const bool there = !m_twin.Twin().isEmpty();
    m_records.lblTwin.Show(there ? databook::TwinText(m_twin.Twin()) : QString(), forms::Colour::Red);
    m_records.lblTwin.SetVisible(there);
    m_records.cmdTwin.SetVisible(there);
}

/// An address that is there brings its type; one that is not leaves the type that was chosen for it.
void EntryArea::txtcentralkey_LostFocus()
{
    if (m_program.sources.datDatabook.Bound() &&
        store::FindRecord(m_program.Ports(), m_program.sources.datDatabook,
                          databook::KeyOf(m_records.txtcentralkey.Text()), fields::CENTRALKEY))
        m_records.CheckStatus(m_program.Ports(), m_program.sources.datDatabook, m_program.status);
}

bool EntryArea::LoadCompForm(const QString& key)
{
    const common::RoutineScope scope{"LoadCompForm"};
    if (!store::FindRecord(m_program.Ports(), m_program.sources.datDatabook, databook::KeyOf(key),
                           fields::CENTRALKEY))
        return false;
    const QString type = store::GetFieldData(m_program.sources.datDatabook, fields::APPRSLTYPE);
    m_entryKey = databook::KeyOf(key);
    if (!m_functionKeys)
        m_functionKeys = std::make_unique<comments::frm_FKey>(comments::FKeyDesk{
            m_program.Ports(), m_program.Engine(), m_program.globals, [this] { return m_entryKey; }});
    forms::ControlSet unseen;
    forms::ListBox cities(unseen, u"cboCity"_s);
    databook::LoadCities(cities, m_program.Disk(), m_program.globals);
    const databook::EntryDesk desk{
        m_program.Ports(), m_program.Engine(),   m_program.DatabookPath(),      m_program.globals.G_Table,
        cities.Items(),    m_functionKeys.get(), &m_program.sources.datDatabook};
    if (!databook::LoadCompForm(desk, m_entryKey, type))
        return false;
    m_shown.Rows().Forget();
    m_records.grddatabook.Refresh();
    return true;
}

} // namespace vasclip::shell
