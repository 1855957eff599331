// The entry screens, from the main screen.

#include "shell/frm_main.h"

#include "comments/frm_fkey.h"
#include "common/error_block.h"
#include "databook/city_list.h"
#include "databook/grid.h"
#include "databook/load_comp_form.h"
#include "databook/records.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

bool frm_Main::LoadCompForm(const QString& key)
{
    const common::RoutineScope scope{"LoadCompForm"};
    if (!store::FindRecord(m_base.ports, sources.datDatabook, databook::KeyOf(key), u"CENTRALKEY"_s))
        return false;
    const QString type = store::GetFieldData(sources.datDatabook, u"APPRSLTYPE"_s);
    m_entryKey = databook::KeyOf(key);
    if (!m_functionKeys)
        m_functionKeys = std::make_unique<comments::frm_FKey>(
            comments::FKeyDesk{m_base.ports, m_base.engine, globals, [this] { return m_entryKey; }});
    forms::ControlSet unseen;
    forms::ListBox cities(unseen, u"cboCity"_s);
    databook::LoadCities(cities, m_base.disk, globals);
    const databook::EntryDesk desk{
        m_base.ports,        m_base.engine,  globals.G_DataDir + globals.G_DataFile,
        globals.G_Table,     cities.Items(), m_functionKeys.get(),
        &sources.datDatabook};
    if (!databook::LoadCompForm(desk, m_entryKey, type))
        return false;
    m_rows->Forget();
    records.grddatabook.Refresh();
    return true;
}

} // namespace vasclip::shell
