#include "databook/frm_rename.h"

#include "common/error_block.h"
#include "databook/records.h"
#include "platform/text/text.h"
#include "store/fields.h"
#include "store/store.h"

namespace vasclip::databook {

using namespace Qt::Literals::StringLiterals;

frm_Rename::frm_Rename(const forms::Ports& ports, store::DataSource& databook, RenameMode mode,
                       const QString& key, const QStringList& newNames)
    : Screen(u"frm_Rename"_s)
    , lblCentral(controls, u"lblCentral"_s)
    , cboNewName(controls, u"cboNewName"_s)
    , lblmsg(controls, u"lblmsg"_s)
    , cmdRename(controls, u"cmdRename"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
    , m_ports(ports)
    , m_databook(databook)
    , m_key(KeyOf(key))
{
    const bool copy = mode == RenameMode::Copy;
    SetCaption(copy ? u"Copy Record"_s : u"Rename Search Address"_s);
    cmdRename.SetCaption(copy ? u"&Copy"_s : u"&Rename"_s);
    cmdCancel.SetCaption(u"Cancel"_s);
    lblCentral.SetCaption(m_key);
    for (const QString& name : newNames)
        if (!text::Trim(name).isEmpty() && KeyOf(name) != m_key && cboNewName.IndexOf(name) < 0)
            cboNewName.AddItem(text::Trim(name));
    connect(&cmdRename, &forms::Control::Clicked, this, &frm_Rename::cmdRename_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
}

void frm_Rename::Form_Load()
{
    const common::RoutineScope scope{"frm_Rename"};
    // Most new addresses differ from the old one in a few characters.
    const bool found = store::FindRecord(m_ports, m_databook, m_key, fields::CENTRALKEY);
    const QString address = found ? store::GetFieldData(m_databook, fields::ADDRESS) : QString();
    cboNewName.SetText(address.isEmpty() ? m_key : address);
    cboNewName.SetFocus();
}

void frm_Rename::cmdRename_Click()
{
    const common::RoutineScope scope{"frm_Rename"};
    const bool rename = QString(cmdRename.Caption()).remove(u"&"_s).startsWith(u"Rena"_s);
    const QString name = cboNewName.Text();
    const RecordResult result = rename ? RenameRecord(m_ports, m_databook, m_key, name)
                                       : CopyRecord(m_ports, m_databook, m_key, name);
    if (!result) {
        lblmsg.Show(result.message, forms::Colour::Red);
        cboNewName.SetFocus();
        return;
    }
    m_newKey = KeyOf(name);
    Unload();
}

} // namespace vasclip::databook
