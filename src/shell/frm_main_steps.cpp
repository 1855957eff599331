// What the steps of the start do.

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "databook/layouts.h"
#include "link/link_desk.h"
#include "photos/gen_views.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/menus.h"
#include "shell/start_up.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::LocateInis(const SystemPlaces& places, Silence silence)
{
    auto& prompter = m_base.ports.prompter;
    globals.isVista = places.isVista;
    globals.windowsName = places.windowsName;
    SystemPlaces looked = places;
    looked.isVista = places.isVista && silence == Silence::Ask; // the notice is for people at the screen
    const IniDirectory found = GetIniDir(m_base.disk, prompter, looked);
    globals.iniDir = found.directory;
    globals.preferredIniDir = found.preferred;
    globals.applicationIni = LocateIni(m_base.disk, prompter, u"VAS2000.INI"_s, IniKind::Application,
                                       globals.iniDir, places.windowsDirectory, silence);
    globals.kelIni = LocateIni(m_base.disk, prompter, u"KEL.INI"_s, IniKind::Appraisal, globals.iniDir,
                               places.windowsDirectory, silence);
    common::ReadNames(globals, common::ProfileReader(m_base.disk, globals));
}

void frm_Main::ReadSettings()
{
    common::ReadGlobals(globals, common::ProfileReader(m_base.disk, globals));
    ReadiniSettings();
    m_settingsRead = true;
}

void frm_Main::ReadiniSettings()
{
    common::ReadiniSettings(globals, common::ProfileReader(m_base.disk, globals));
    LockAddresses();
}

/// The addresses of the report's tabs come from the report and from drops; unless they are locked they can be
/// typed over.
void frm_Main::LockAddresses()
{
    const bool locked = globals.lockAddr != 0;
    report.txtSubject.SetLocked(locked);
    for (const auto* boxes : {&report.txtComp, &report.txtAltComp, &report.txtListing, &report.txtRental,
                              &report.txtgeneraladdr})
        for (int i = boxes->First(); i <= boxes->Last(); ++i)
            (*boxes)(i).SetLocked(locked);
}

void frm_Main::Connect(store::DataSource& source, const QString& path, const std::function<void()>& open)
{
    try {
        open();
    } catch (const RuntimeError& failure) {
        // Nothing works without this file; say what is wrong with it and stop before anything is changed.
        common::ReportError(m_base.ports.prompter,
                            RuntimeError(failure.Number(), u"%1 can't be opened for %2. %3"_s.arg(
                                                               path, source.Name(), failure.Description())));
        throw forms::EndOfProgram{1};
    }
}

void frm_Main::ConnectDatabook()
{
    const common::RoutineScope scope{"Connect2Databook"};
    const QString path = globals.G_DataDir + globals.G_DataFile;
    Connect(sources.datDatabook, path,
            [&] { store::Connect2Databook(m_base.ports, sources, path, globals.G_Table); });
    if (!LookAtDatabook(engine::CheckDepth::Opening))
        m_base.ports.prompter.Info(
            u"Databook Damaged"_s,
            u"%1 is damaged: %2. It is open for reading only. Restore it from a backup, or let 'vasctl databook copy "
            u"FILE' make a new one of what can be read."_s.arg(path, engine::DamageOf(sources.datDatabook.Database())));
}

void frm_Main::ConnectMapping()
{
    const common::RoutineScope scope{"Connect2mdb"};
    const QString path = globals.G_UserDir + QString::fromLatin1(common::Globals::kMappingFile);
    Connect(sources.datComp2Kel_CURRENT, path, [&] {
        store::Connect2mdb(m_base.ports, sources.datComp2Kel_CURRENT, path,
                           QString::fromLatin1(common::Globals::kMappingTable),
                           engine::RecordsetType::Dynaset);
    });
}

/// The street control reads its paths from a copy of pwstreet.ini in the program directory. A directory that
/// takes none leaves the file where it was found.
void frm_Main::TurnOnMaps(const SystemPlaces& places)
{
    const files::Disk& disk = m_base.disk;
    const auto locate = [&](const QString& name) {
        return LocateIni(disk, m_base.ports.prompter, name, IniKind::Application, globals.iniDir,
                         places.windowsDirectory, Silence::Silent);
    };
    globals.mapPointIni = locate(u"mappoint.ini"_s);
    globals.pwStreetIni = locate(u"pwstreet.ini"_s);
    const QString copy = text::Folded(globals.G_ProgramDir + u"pwstreet.ini"_s);
    try {
        if (!disk.FileExists(copy) && disk.FileExists(globals.pwStreetIni))
            disk.FileCopy(globals.pwStreetIni, copy);
    } catch (const RuntimeError&) {
        // It is read where it was found.
    }
    if (disk.FileExists(copy))
        globals.pwStreetIni = copy;
    common::ReadStreetPaths(globals, common::ProfileReader(disk, globals));
    const bool plain = globals.mapName.toUpper().contains(u"KORVAT"_s);
    tabSource.SetTabCaption(1, plain ? u"Atlas"_s : globals.mapName);
}

void frm_Main::ReadCaption()
{
    SetCaption(globals.productName + u" -  Version "_s + m_version + u"  -  Connection = "_s +
               text::Folded(globals.G_DataDir) + text::Folded(globals.G_DataFile));
}

/// What the pop-ups, the Setup and the Help menu show follows the settings.
void frm_Main::LoadMenu()
{
    mnuSetupItem.SetEntryChecked(kImageNamesEntry, globals.imageFileNames == u"ON"_s);
    mnuSetupItem.SetEntryChecked(kImageListEntry, globals.imageListBox == u"ON"_s);
    mnuHelpItem.SetEntryEnabled(kWebsiteEntry, !globals.website.isEmpty());
    LoadHelpMenu();
}

/// A directory that cannot even be looked for stands for a drive without its disk.
void frm_Main::VerifyCaptureDirectory() const
{
    if (globals.G_CaptureDir.isEmpty())
        return;
    try {
        static_cast<void>(m_base.disk.Found(globals.G_CaptureDir, files::Directory));
    } catch (const RuntimeError& failure) {
        throw RuntimeError(error::kBadFileName, failure.Description());
    }
}

/// A new updater waits in the Update directory until the program starts.
void frm_Main::checkUpdate() const
{
    const QString waiting = globals.G_ProgramDir + u"Update\\update.exe"_s;
    if (m_readOnlyHome || !m_base.disk.FileExists(waiting))
        return;
    m_base.disk.FileCopy(waiting, globals.G_ProgramDir + u"update.exe"_s);
    m_base.disk.Kill(waiting);
}

void frm_Main::AddGenViews2CBO()
{
    photos::AddGenViews2CBO(lstGenViews, report.cboGeneral, m_base.disk, globals);
}

void frm_Main::PrepareGrid(bool loadUserLayout, frm_Splash& splash)
{
    using common::Guarded;
    auto& prompter = m_base.ports.prompter;
    auto& grid = records.grddatabook;
    const QString userFile = globals.G_ProgramDir + databook::kUserLayouts;
    // A layout file that cannot be read or written costs the layout, never the start.
    int failed = 0;
    const auto reported = [&](const char* routine, const std::function<void()>& step) {
        const common::RoutineScope scope{routine};
        try {
            return Guarded(prompter, step);
        } catch (const RuntimeError& failure) {
            failed = failure.Number();
            common::ReportError(prompter, failure);
            return false;
        }
    };

    splash.ShowSplashStatus(u"Verifying Default Grid Settings"_s);
    databook::SetGridSettings(grid, u"DEFAULT"_s);
    if (m_readOnlyHome) {
        if (loadUserLayout && m_base.disk.FileExists(userFile))
            reported("LoadGrid",
                     [&] { databook::LoadGrid(m_base.disk, grid, userFile, databook::kCurrentLayout); });
        return;
    }
    reported("SaveGrid", [&] {
        databook::SaveGrid(m_base.disk, grid, globals.G_ProgramDir + databook::kProgramLayouts,
                           databook::kDefaultLayout);
    });
    failed = 0;
    m_gridReady = reported("SaveGrid", [&] {
        if (loadUserLayout)
            databook::SaveGrid(m_base.disk, grid, userFile, databook::kDefaultLayout);
        else // asked to keep off the user's file; a bad one is told now and not at exit
            (void)databook::LayoutFile::ReadOrNew(m_base.disk, userFile);
    });
    if (!loadUserLayout)
        return;
    splash.ShowSplashStatus(u"Loading Saved Grid Layout"_s);
    if (failed == databook::kInvalidLayoutFile) // told already
        return;
    reported("RefreshLayoutFile", [&] { databook::RefreshLayoutFile(m_base.disk, userFile); });
    reported("LoadGrid", [&] { databook::LoadGrid(m_base.disk, grid, userFile, databook::kCurrentLayout); });
}

} // namespace vasclip::shell
