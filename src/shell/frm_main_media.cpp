// What the menus lead to around the capture directory: the trash, copying, finding, views.

#include "shell/frm_main.h"

#include "common/error_block.h"
#include "databook/frm_calendar.h"
#include "common/paths.h"
#include "common/settings.h"
#include "link/slot_photos.h"
#include "photos/capture_desk.h"
#include "photos/frm_copy_pics.h"
#include "photos/frm_gen_view.h"
#include "photos/frm_search_pics.h"
#include "photos/frm_trash.h"
#include "photos/gen_views.h"
#include "photos/photo_owners.h"
#include "photos/store_check.h"
#include "platform/text/text.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

bool frm_Main::MediaChosen(const QString& array, int index)
{
    if (array == u"mnuFileItem"_s && index == 2)
        CopyPhotos(u"FLOPPY"_s, u"Copy from Floppy to "_s + globals.G_CaptureDir);
    else if (array == u"mnuFileItem"_s && index == 3)
        CopyPhotos(u"REMOVABLE"_s, u"Copy from Removal Media to "_s + globals.G_CaptureDir);
    else if (array == u"mnuFileItem"_s && index == 4)
        CopyPhotos(u"ROM"_s, u"Copy from ROM drive to "_s + globals.G_CaptureDir);
    else if (array == u"mnuFileItem"_s && index == 6)
        FindPhotos();
    else if (array == u"mnuMaintItem"_s && index == 4)
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
    m_capture->RefreshCapture();
}

void frm_Main::CopyPhotos(const QString& word, const QString& caption)
{
    const common::RoutineScope scope{"CopyPhotos"};
    photos::PhotoOwners owners(sources.datDatabook, globals.G_Table);
    photos::frm_CopyPics screen({.ports = m_base.ports,
                                 .disk = m_base.disk,
                                 .globals = globals,
                                 .recordOf = [&owners](const QString& stem) { return owners.Of(stem); }},
                                globals, *m_slotLoader, word, caption);
    m_base.ports.screens.ShowModal(screen);
    m_capture->RefreshCapture();
    if (!screen.Done().isEmpty())
        status.lblmsg.Show(screen.Done(), forms::Colour::Blue);
}

/// The directory chosen becomes the capture directory, also of later runs.
void frm_Main::FindPhotos()
{
    const common::RoutineScope scope{"FindPhotos"};
    photos::frm_SearchPics screen(
        m_base.ports, m_base.disk, globals,
        [this](const std::function<bool()>& goOn) { return OrphanLines(goOn); });
    m_base.ports.screens.ShowModal(screen);
    if (screen.Chosen().isEmpty() || !m_base.disk.DirExists(screen.Chosen()))
        return;
    common::WriteSetting(*common::FindSetting(&common::Globals::G_CaptureDir), screen.Chosen(), globals,
                         m_base.disk);
    m_capture->DisplayCamera();
    status.lblmsg.Show(u"The capture directory is %1 now."_s.arg(globals.G_CaptureDir), forms::Colour::Blue);
}

QStringList frm_Main::OrphanLines(const std::function<bool()>& goOn) const
{
    if (!sources.datDatabook.Bound())
        return {};
    const photos::StoreCheck check = photos::CheckStore(sources.datDatabook, m_base.disk, globals.G_PhotoDir,
                                                        [&goOn](int) { return goOn(); });
    QStringList lines;
    for (const photos::LostPhoto& lost : check.lost)
        lines.append(u"%1: the photo %2 (%3.jpg) is gone"_s.arg(text::Trim(lost.key), lost.view, lost.stem));
    const QStringList inReport = link::PicturesOfReport(*m_link);
    for (const QString& name : check.unnamed)
        if (!inReport.contains(text::Folded(common::CkRSlash(globals.G_PhotoDir) + name)))
            lines.append(u"%1%2: no record names it"_s.arg(globals.G_PhotoDir, name));
    return lines;
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
