#include "shell/frm_change_db.h"

using namespace Qt::Literals::StringLiterals;

namespace vasclip::shell {

frm_ChangeDB::frm_ChangeDB(const QString& directory, const QStringList& offered, const QString& current)
    : Screen(u"frm_ChangeDB"_s)
    , lblDirectory(controls, u"lblDirectory"_s)
    , lstdatabases(controls, u"lstdatabases"_s)
    , cmdOk(controls, u"cmdOk"_s)
    , cmdCancel(controls, u"cmdCancel"_s)
{
    SetCaption(u"Change Current Database"_s);
    cmdOk.SetCaption(u"&OK"_s);
    cmdCancel.SetCaption(u"&Cancel"_s);
    lblDirectory.SetCaption(offered.isEmpty() ? u"No database with comps lies in %1"_s.arg(directory)
                                              : u"Databases in %1"_s.arg(directory));
    for (const QString& name : offered)
        lstdatabases.AddItem(name);
    lstdatabases.SetListIndex(lstdatabases.IndexOf(current));
    cmdOk.SetEnabled(lstdatabases.ListIndex() >= 0);
    connect(&lstdatabases, &forms::ListBox::ListIndexChanged, this,
            [this] { cmdOk.SetEnabled(lstdatabases.ListIndex() >= 0); });
    connect(&lstdatabases, &forms::Control::DoubleClicked, this, &frm_ChangeDB::cmdOk_Click);
    connect(&cmdOk, &forms::Control::Clicked, this, &frm_ChangeDB::cmdOk_Click);
    connect(&cmdCancel, &forms::Control::Clicked, this, [this] { Unload(); });
}

void frm_ChangeDB::cmdOk_Click()
{
    m_chosen = lstdatabases.List(lstdatabases.ListIndex());
    if (!m_chosen.isEmpty())
        Unload();
}

} // namespace vasclip::shell
