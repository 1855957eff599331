#include "shell/media.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/frm_calendar.h"
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
#include "shell/program.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

QStringList OrphanLines(Program& program, const std::function<bool()>& goOn)
{
    if (!program.sources.datDatabook.Bound())
        return {};
    const photos::StoreCheck check =
        photos::CheckStore(program.sources.datDatabook, program.Disk(), program.globals.G_PhotoDir,
                           [&goOn](int) { return goOn(); });
    QStringList lines;
    for (const photos::LostPhoto& lost : check.lost)
        lines.append(u"%1: the photo %2 (%3.jpg) is gone"_s.arg(text::Trim(lost.key), lost.view, lost.stem));
    const QStringList inReport = link::PicturesOfReport(program.Link());
    for (const QString& name : check.unnamed)
        if (!inReport.contains(text::Folded(common::CkRSlash(program.globals.G_PhotoDir) + name)))
            lines.append(u"%1%2: no record names it"_s.arg(program.globals.G_PhotoDir, name));
    return lines;
}

/// @param word  kind of the drive that pictures come from; @param from  how the caption names it
void CopyPhotos(Program& program, const QString& word, const QString& from)
{
    const common::RoutineScope scope{"CopyPhotos"};
    photos::PhotoOwners owners(program.sources.datDatabook, program.globals.G_Table);
    photos::frm_CopyPics screen({.ports = program.Ports(),
                                 .disk = program.Disk(),
                                 .globals = program.globals,
                                 .recordOf = [&owners](const QString& stem) { return owners.Of(stem); }},
                                program.globals, program.Loader(), word, from + program.globals.G_CaptureDir);
    program.Ports().screens.ShowModal(screen);
    program.Capture().RefreshCapture();
    if (!screen.Done().isEmpty())
        program.status.lblmsg.Show(screen.Done(), forms::Colour::Blue);
}

} // namespace

void ShowTrash(Program& program)
{
    const common::RoutineScope scope{"ShowTrash"};
    photos::frm_Trash screen({program.Ports(), program.Disk(), program.globals}, program.Loader(),
                             [&program](forms::TextBox& box, const QString& title) {
                                 databook::GetCalandarDate(program.Ports(), box, title);
                             });
    program.Ports().screens.ShowModal(screen);
    program.Capture().RefreshCapture();
}

void CopyFromFloppy(Program& program)
{
    CopyPhotos(program, u"FLOPPY"_s, u"Copy from Floppy to "_s);
}

void CopyFromReader(Program& program)
{
    CopyPhotos(program, u"REMOVABLE"_s, u"Copy from Removal Media to "_s);
}

void CopyFromRom(Program& program)
{
    CopyPhotos(program, u"ROM"_s, u"Copy from ROM drive to "_s);
}

void FindPhotos(Program& program)
{
    const common::RoutineScope scope{"FindPhotos"};
    photos::frm_SearchPics screen(
        program.Ports(), program.Disk(), program.globals,
        [&program](const std::function<bool()>& goOn) { return OrphanLines(program, goOn); });
    program.Ports().screens.ShowModal(screen);
    if (screen.Chosen().isEmpty() || !program.Disk().DirExists(screen.Chosen()))
        return;
    common::WriteSetting(*common::FindSetting(&common::Globals::G_CaptureDir), screen.Chosen(),
                         program.globals, program.Disk());
    program.Capture().DisplayCamera();
    program.status.lblmsg.Show(u"The capture directory is %1 now."_s.arg(program.globals.G_CaptureDir),
                               forms::Colour::Blue);
}

void ShowGeneralViews(Program& program)
{
    const common::RoutineScope scope{"ShowGeneralViews"};
    photos::frm_GenView screen(program.Ports(), program.Disk(), program.globals, program.Loader(), {}, {});
    program.Ports().screens.ShowModal(screen);
    if (screen.ListChanged())
        photos::AddGenViews2CBO(program.lstGenViews, program.report.cboGeneral, program.Disk(),
                                program.globals);
}

} // namespace vasclip::shell
