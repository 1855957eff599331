#include "shell/start_steps.h"

#include "common/error_block.h"
#include "common/paths.h"
#include "common/settings.h"
#include "databook/grid.h"
#include "databook/layouts.h"
#include "platform/text/text.h"
#include "shell/frm_splash.h"
#include "shell/ini_location.h"
#include "shell/program.h"

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

QString StreetIniCopy(const Program& program)
{
    return text::Folded(program.globals.G_ProgramDir + u"pwstreet.ini"_s);
}

void LocateMapInis(Program& program, const SystemPlaces& places)
{
    common::Globals& globals = program.globals;
    const files::Disk& disk = program.Disk();
    const auto locate = [&](const QString& name) {
        return LocateIni(disk, program.Prompter(), name, IniKind::Application, globals.iniDir,
                         places.windowsDirectory, Silence::Silent);
    };
    globals.mapPointIni = locate(u"mappoint.ini"_s);
    globals.pwStreetIni = locate(u"pwstreet.ini"_s);
}

void ReadLocated(Program& program)
{
    common::Globals& globals = program.globals;
    if (const QString copy = StreetIniCopy(program); program.Disk().FileExists(copy))
        globals.pwStreetIni = copy;
    common::ReadStreetPaths(globals, common::ProfileReader(program.Disk(), globals));
}

} // namespace

void ReadMapPlaces(Program& program, const SystemPlaces& places)
{
    LocateMapInis(program, places);
    ReadLocated(program);
}

void TurnOnMaps(Program& program, const SystemPlaces& places, forms::TabControl& tabSource)
{
    const common::Globals& globals = program.globals;
    const files::Disk& disk = program.Disk();
    LocateMapInis(program, places);
    const QString copy = StreetIniCopy(program);
    try {
        if (!disk.FileExists(copy) && disk.FileExists(globals.pwStreetIni))
            disk.FileCopy(globals.pwStreetIni, copy);
    } catch (const RuntimeError&) {
        // It is read where it was found.
    }
    ReadLocated(program);
    const bool plain = globals.mapName.toUpper().contains(u"KORVAT"_s);
    tabSource.SetTabCaption(1, plain ? u"Atlas"_s : globals.mapName);
}

void VerifyCaptureDirectory(const Program& program)
{
    if (program.globals.G_CaptureDir.isEmpty())
        return;
    try {
        static_cast<void>(program.Disk().Found(program.globals.G_CaptureDir, files::Directory));
    } catch (const RuntimeError& failure) {
        throw RuntimeError(error::kBadFileName, failure.Description());
    }
}

void checkUpdate(const Program& program)
{
    const QString waiting = program.globals.G_ProgramDir + u"Update\\update.exe"_s;
    if (program.life.readOnlyHome || !program.Disk().FileExists(waiting))
        return;
    program.Disk().FileCopy(waiting, program.globals.G_ProgramDir + u"update.exe"_s);
    program.Disk().Kill(waiting);
}

void PrepareGrid(Program& program, bool loadUserLayout, frm_Splash& splash)
{
    using common::Guarded;
    auto& prompter = program.Prompter();
    auto& grid = program.records.grddatabook;
    const QString userFile = program.globals.G_ProgramDir + databook::kUserLayouts;
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
    if (program.life.readOnlyHome) {
        if (loadUserLayout && program.Disk().FileExists(userFile))
            reported("LoadGrid",
                     [&] { databook::LoadGrid(program.Disk(), grid, userFile, databook::kCurrentLayout); });
        return;
    }
    reported("SaveGrid", [&] {
        databook::SaveGrid(program.Disk(), grid, program.globals.G_ProgramDir + databook::kProgramLayouts,
                           databook::kDefaultLayout);
    });
    failed = 0;
    program.life.gridReady = reported("SaveGrid", [&] {
        if (loadUserLayout)
            databook::SaveGrid(program.Disk(), grid, userFile, databook::kDefaultLayout);
        else // asked to keep off the user's file; a bad one is told now and not at exit
            (void)databook::LayoutFile::ReadOrNew(program.Disk(), userFile);
    });
    if (!loadUserLayout)
        return;
    splash.ShowSplashStatus(u"Loading Saved Grid Layout"_s);
    if (failed == databook::kInvalidLayoutFile) // told already
        return;
    reported("RefreshLayoutFile", [&] { databook::RefreshLayoutFile(program.Disk(), userFile); });
    reported("LoadGrid",
             [&] { databook::LoadGrid(program.Disk(), grid, userFile, databook::kCurrentLayout); });
}

} // namespace vasclip::shell
