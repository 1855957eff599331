#include "shell/setup.h"

#include "common/error_block.h"
#include "common/settings.h"
#include "photos/capture_desk.h"
#include "platform/text/text.h"
#include "shell/databook_in_use.h"
#include "shell/frm_config.h"
#include "shell/help.h"
#include "shell/menus.h"
#include "shell/program.h"
#include "shell/record_on_show.h"
#include "shell/window_wants.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

Setup::Setup(Program& program, RecordOnShow& shown, DatabookInUse& databook, Menus& menus, WindowWants& wants)
    : m_program(program)
    , m_shown(shown)
    , m_databook(databook)
    , m_menus(menus)
    , m_wants(wants)
{
    connect(&program.Capture(), &photos::CaptureDesk::ViewChanged, this, &Setup::ShowViewTicks);
}

void Setup::ShowConfiguration()
{
    const common::RoutineScope scope{"ShowConfiguration"};
    common::Globals& globals = m_program.globals;
    const common::Globals before = globals;
    frm_Config config(m_program.Engine(), m_program.Ports(), globals);
    m_program.Ports().screens.ShowModal(config);
    const bool moved =
        text::Folded(m_program.DatabookPath()) != text::Folded(before.G_DataDir + before.G_DataFile) ||
        text::Folded(globals.G_Table) != text::Folded(before.G_Table);
    if (moved) {
        const QString wanted = globals.G_DataDir;
        globals.G_DataDir = before.G_DataDir;
        // A path without a Databook would not let the program start again: the old one stays in the ini too.
        if (!m_databook.SwitchDatabook(wanted, globals.G_DataFile))
            common::WriteSetting(*common::FindSetting(&common::Globals::G_DataDir), before.G_DataDir, globals,
                                 m_program.Disk());
    } else if (globals.sortGrid != before.sortGrid || globals.ignorePending != before.ignorePending) {
        m_shown.DisplayAllRecords();
    }
    photos::CaptureDesk& capture = m_program.Capture();
    if (globals.G_CaptureDir != before.G_CaptureDir)
        capture.DisplayCamera();
    if (globals.imageListBox != before.imageListBox || globals.imageFileNames != before.imageFileNames) {
        capture.ViewFilCapture();
        capture.DisplayImageLabels();
    }
    m_program.LockAddresses();
    LoadMenu();
    Q_EMIT m_wants.TabColoursChanged(globals.tabMask);
    if (config.ResetWanted())
        Q_EMIT m_wants.ResetSizeWanted();
}

void Setup::ToggleManualEntry()
{
    databook::RecordDesk& records = m_program.records;
    const bool show = !records.txtcentralkey.Visible();
    for (forms::Control* control : std::initializer_list<forms::Control*>{
             &records.lblAddingaComp, &records.txtcentralkey, &records.cboapprslType, &records.cmdAdd,
             &records.cmdCopy, &records.cmdRename, &records.cmdEdit, &records.cmdDelete,
             &records.cmdAddManual})
        control->SetVisible(show);
    m_menus.mnuSetupItem.SetEntryCaption(kManualEntry,
                                         show ? u"Hide Manual Detail"_s : u"Show Manual Detail"_s);
}

void Setup::LoadMenu()
{
    m_menus.mnuSetupItem.SetEntryChecked(kImageNamesEntry, m_program.globals.imageFileNames == u"ON"_s);
    m_menus.mnuSetupItem.SetEntryChecked(kImageListEntry, m_program.globals.imageListBox == u"ON"_s);
    m_menus.mnuHelpItem.SetEntryEnabled(kWebsiteEntry, !m_program.globals.website.isEmpty());
    LoadHelpMenu(m_program, m_menus.mnuHelpItem);
}

void Setup::ShowViewTicks()
{
    m_menus.mnuSetupItem.SetEntryChecked(kImageNamesEntry, m_program.Capture().NamesOn());
    m_menus.mnuSetupItem.SetEntryChecked(kImageListEntry, m_program.Capture().ListMode());
    m_menus.popThumb_M.SetEntryChecked(kThumbNamesEntry, m_program.Capture().NamesOn());
    m_menus.popThumb_M.SetEntryChecked(kThumbListEntry, m_program.Capture().ListMode());
}

} // namespace vasclip::shell
