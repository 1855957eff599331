// What the menus lead to around the capture directory: the trash, copying, finding, views.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "databook/frm_calendar.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_trash.h"
#include "photos/gen_views.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

bool frm_Main::MediaChosen(const QString& array, int index)
{
    if (array == u"mnuMaintItem"_s && index == 4)
        ShowTrash();
    else if (array == u"mnuSetupItem"_s && index == 10)
        ShowGeneralViews();
    else
        return false;
    return true;
}

void frm_Main::ShowTrash()
{
    const common::RoutineScope scope{"ShowTrash"};
    photos::frm_Trash screen({m_base.ports, m_base.disk, globals}, *m_slotLoader,
                             [this](forms::TextBox& box, const QString& title) {
                                 databook::GetCalandarDate(m_base.ports, box, title);
                             });
    m_base.ports.screens.ShowModal(screen);
}

void frm_Main::ShowGeneralViews()
{
    const common::RoutineScope scope{"ShowGeneralViews"};
    photos::frm_GenView screen(m_base.ports, m_base.disk, globals, *m_slotLoader, {}, {});
    m_base.ports.screens.ShowModal(screen);
    if (screen.ListChanged())
        photos::AddGenViews2CBO(lstGenViews, report.cboGeneral, m_base.disk, globals);
}

} // namespace vasclip::shell
