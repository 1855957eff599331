// The start and the stop of the main window, in their fixed order.

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "databook/layouts.h"
#include "link/link_desk.h"
#include "platform/text/text.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "shell/tracer.h"

#include <QScopeGuard>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

void frm_Main::LocateInis(const SystemPlaces& places, Silence silence)
{
    auto& prompter = m_base.ports.prompter;
    globals.isVista = places.isVista;
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
    const auto reader = common::ProfileReader(m_base.disk, globals);
    common::ReadGlobals(globals, reader);
    common::ReadiniSettings(globals, reader);
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

void frm_Main::TurnOnMaps()
{
    const bool plain = globals.mapName.toUpper().contains(u"KORVAT"_s);
    tabSource.SetTabCaption(1, plain ? u"Atlas"_s : globals.mapName);
}

void frm_Main::ReadCaption()
{
    SetCaption(globals.productName + u" -  Version "_s + m_version + u"  -  Connection = "_s +
               text::Folded(globals.G_DataDir) + text::Folded(globals.G_DataFile));
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

void frm_Main::Form_load(const StartUpOptions& options, frm_Splash& splash)
{
    const common::RoutineScope scope{"Form_load"};
    auto& ports = m_base.ports;
    m_version = options.version;
    m_link->productVersion = options.version;

    if (options.previousInstance && options.previousInstance()) {
        ports.prompter.Box(
            u"Program Already Running in Memory"_s,
            u"The current application is already running in memory. If the application is not visible, "
            u"please end the existing process in the Windows Task Manager."_s);
        throw forms::EndOfProgram{1};
    }
    const Switches switches(options.commandLine);
    Tracer tracer(switches, ports);
    ports.window.AppActivate();

    tracer.TraceStep(u"GetIniDir"_s);
    LocateInis(options.places, Silence::Ask);
    tracer.TraceStep(u"LocateIni"_s, u"Application INI - "_s + globals.applicationIni);
    tracer.TraceStep(u"LocateKelIni"_s, u"Appraisal INI - "_s + globals.kelIni);

    splash.lblCompany.SetCaption(globals.companyName);
    splash.lblVersion.SetCaption(u"Version "_s + m_version);
    splash.ShowSplashStatus(u"Application INI  - "_s + globals.applicationIni);
    splash.ShowSplashStatus(u"Appraisal INI - "_s + globals.kelIni);

    const auto step = [&](const QString& routine, const QString& status, const QString& detail = {}) {
        tracer.TraceStep(routine, detail);
        if (!status.isEmpty())
            splash.ShowSplashStatus(status);
        tracer.Pump();
    };

    step(u"ReadGlobals"_s, u"Loading Configuration Settings"_s);
    ReadSettings();
    step(u"TurnOnMaps"_s, u"Checking for Integrated Mapping Application"_s);
    TurnOnMaps();
    ReadCaption();
    step(u"ReadiniSettings"_s, u"Reading User Defined Settings"_s);
    step(u"LoadMenu"_s, u"Adding Pop-up Menus"_s);
    LoadHelpMenu();
    tabSource.SetTab(0);
    step(u"CheckCompDBF2"_s, u"Checking data - "_s + globals.G_DataDir);
    step(u"Connect2Databook"_s, {}, globals.G_DataDir + globals.G_DataFile);
    ConnectDatabook();
    step(u"Connect2mdb"_s, u"Connecting to "_s + QString::fromLatin1(common::Globals::kMappingFile));
    ConnectMapping();
    step(u"SetFormatText"_s, u"Formatting Grid text"_s);
    databook::SetFormatText(records.grddatabook);
    step(u"LoadCompType"_s, u"Setting Formtypes for Search menu"_s);
    records.LoadCompType();
    m_starting = true; // the grid comes first, the photo of its row when it stands on the screen
    const auto started = qScopeGuard([this] { m_starting = false; });
    step(u"RefreshAppraisal"_s, u"Refreshing program from KEL"_s);
    RefreshAppraisal();
    step(u"SetGridSettings"_s, {});
    PrepareGrid(!switches.noLoad, splash);
    step(u"DisplayAllRecords"_s, u"Loading grid interface"_s);
    splash.ShowSplashStatus(u"Displaying Comp Records"_s);
    DisplayAllRecords();
    step(u"Finalize"_s, u"Finalizing Start-up"_s);
    globals.mapDetail = 3;
    ports.window.AppActivate();
}

void frm_Main::Form_Unload()
{
    if (m_unloaded)
        return;
    m_unloaded = true;
    const common::RoutineScope scope{"Form_Unload"};
    auto& clock = m_base.ports.clock;
    auto& prompter = m_base.ports.prompter;
    const auto reported = [&](const std::function<void()>& step) {
        try {
            common::Guarded(prompter, step);
        } catch (const RuntimeError& failure) {
            common::ReportError(prompter, failure);
        }
    };

    clock.Wait(0.5);
    if (!globals.applicationIni.isEmpty())
        common::SaveSettings(globals, m_base.disk);
    clock.Wait(0.2);
    if (m_gridReady)
        reported([&] {
            databook::SaveGrid(m_base.disk, records.grddatabook,
                               globals.G_ProgramDir + databook::kUserLayouts, databook::kCurrentLayout);
        });
    records.grddatabook.Rebind(nullptr);
    sources.datsql.Close();
    sources.datDatabook.Close();
    sources.datComp2Kel_CURRENT.Close();
    clock.Wait(0.2);
    reported([&] {
        for (const QString& pattern : {u"tempdat_*"_s, u"Report_*"_s}) {
            for (const QString& name : m_base.disk.Dir(globals.G_UserDir + pattern))
                m_base.disk.Kill(globals.G_UserDir + name);
        }
    });
    clock.Wait(0.2);
}

} // namespace vasclip::shell
