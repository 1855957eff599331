// The start of the main window, in its fixed order.

#include "common/error_block.h"
#include "common/given_up.h"
#include "common/paths.h"
#include "databook/grid.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "shell/tracer.h"

#include <QScopeGuard>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Thrown to leave the start, silently, where the user has given a step up.
struct Abandoned
{};

constexpr qsizetype kLongestCaption = 255;

} // namespace

/// One statement of the start. A device that is not there is passed over; the rest is the central error block's.
void frm_Main::StartStep(const std::function<void()>& step)
{
    try {
        if (!common::Guarded(m_base.ports.prompter, [&] {
                try {
                    step();
                } catch (const RuntimeError& failure) {
                    if (failure.Number() != error::kDeviceUnavailable)
                        throw;
                }
            }))
            throw Abandoned{};
    } catch (const RuntimeError&) {
        // What another user holds, and the user will not wait for, the start goes without.
        if (!common::TakeGivenUp())
            throw;
    }
}

/// A statement about the capture directory: there, and nowhere else, a bad name stands for a drive without its
/// disk.
void frm_Main::WithCaptureDisk(const SystemPlaces& places, const std::function<void()>& step)
{
    const QString before = globals.G_CaptureDir;
    for (;;) {
        try {
            return step();
        } catch (const RuntimeError& failure) {
            // Where another directory does not help the name was another one.
            if (failure.Number() != error::kBadFileName || globals.G_CaptureDir != before)
                throw;
        }
        if (!AskForDisk())
            globals.G_CaptureDir =
                m_base.disk.DirExists(u"C:\\"_s) ? u"C:\\"_s : common::CkRSlash(places.executableDir);
    }
}

/// @return true if the user says that the disk is in the drive
bool frm_Main::AskForDisk()
{
    return m_base.ports.prompter.MsgBox(
               forms::Buttons::OkCancel, forms::Icon::None, u"Place a floppy in the Drive"_s,
               u"Drive is empty or unreadable.  It may be due to the "_s + globals.G_CaptureDir +
                   u" drive not being inserted or available.  Please insert a floppy disk (or sandisk card) "
                   u"to correct this problem.  Hit cancel to set the directory to C:\\."_s) ==
           forms::Answer::Ok;
}

void frm_Main::RefuseSecondCopy(const StartUpOptions& options, const QString& title, const QString& text)
{
    if (!options.previousInstance || !options.previousInstance())
        return;
    m_base.ports.prompter.Box(title, text);
    throw forms::EndOfProgram{1};
}

void frm_Main::Form_load(const StartUpOptions& options, frm_Splash& splash)
{
    const common::RoutineScope scope{"Form_load"};
    m_version = options.version;
    m_link->productVersion = options.version;
    m_readOnlyHome = options.homeIsReadOnly;
    m_starting = true; // the grid comes first, the photo of its row when it stands on the screen
    const auto started = qScopeGuard([this] { m_starting = false; });
    try {
        TakeStartSteps(options, splash);
    } catch (const Abandoned&) {
        // The window comes with what there is; the user has been asked.
    }
}

void frm_Main::TakeStartSteps(const StartUpOptions& options, frm_Splash& splash)
{
    auto& ports = m_base.ports;
    RefuseSecondCopy(
        options, u"Program Already Running in Memory"_s,
        u"The current application is already running in memory. If the application is not visible, "
        u"please end the existing process in the Windows Task Manager."_s);
    const Switches switches(options.commandLine);
    Tracer tracer(switches, ports);
    tracer.TraceStep(u"CKPreviousInstance"_s);
    tracer.TraceStep(u"FindWindow"_s);
    if (options.findWindowCaption)
        globals.formsCaption = options.findWindowCaption(u"ClassKel"_s).left(kLongestCaption);
    tracer.TraceStep(u"Command"_s, options.commandLine);
    tracer.TraceStep(u"AppActivate"_s);
    ports.window.AppActivate();
    tracer.TraceStep(u"CKPreviousInstance"_s);
    RefuseSecondCopy(options, {},
                     u"You are already running this application.  Click OK and Press Ctrl Escape."_s);

    tracer.TraceStep(u"GetIniDir"_s);
    LocateInis(options.places, Silence::Ask);
    tracer.TraceStep(u"LocateIni"_s, u"Application INI - "_s + globals.applicationIni);
    tracer.TraceStep(u"LocateKelIni"_s, u"Appraisal INI - "_s + globals.kelIni);
    tracer.TraceStep(u"ReadNames"_s);

    tracer.TraceStep(u"frm_Splash"_s);
    splash.lblCompany.SetCaption(globals.companyName);
    splash.lblVersion.SetCaption(u"Version "_s + m_version);
    splash.ShowSplashStatus(u"Application INI  - "_s + globals.applicationIni);
    splash.ShowSplashStatus(u"Appraisal INI - "_s + globals.kelIni);

    // A status line and a turn of the queue stand before each step.
    const auto step = [&](const QString& routine, const QString& status, const std::function<void()>& work,
                          const QString& detail = {}) {
        tracer.TraceStep(routine, detail);
        if (!status.isEmpty())
            splash.ShowSplashStatus(status);
        tracer.Pump();
        StartStep(work);
    };

    step(u"ReadGlobals"_s, u"Loading Configuration Settings"_s, [&] { ReadSettings(); });
    step(u"TurnOnMaps"_s, u"Checking for Integrated Mapping Application"_s,
         [&] { TurnOnMaps(options.places); });
    step(u"ReadCaption"_s, {}, [&] { ReadCaption(); });
    step(u"ReadiniSettings"_s, u"Reading User Defined Settings"_s, [&] { ReadiniSettings(); });
    step(u"LoadMenu"_s, u"Adding Pop-up Menus"_s, [&] { LoadMenu(); });
    step(u"tabSource"_s, {}, [&] { tabSource.SetTab(0); });
    const QString databook = globals.G_DataDir + globals.G_DataFile;
    step(
        u"CheckCompDBF2"_s, u"Checking data - "_s + globals.G_DataDir, [] {}, databook);
    step(
        u"Connect2Databook"_s, {}, [&] { OpenDatabook(); }, databook);
    step(u"Connect2mdb"_s, u"Connecting to "_s + QString::fromLatin1(common::Globals::kMappingFile),
         [&] { ConnectMapping(); });
    step(u"DisplayCamera"_s, u"Verifying Capture Directory"_s, [&] {
        WithCaptureDisk(options.places, [&] {
            VerifyCaptureDirectory();
            m_capture->SetSystemDrive(options.places.windowsDirectory.left(2));
            m_capture->check4CaptureDir();
            m_capture->DisplayCamera(); // its pictures come when the grid stands
        });
    });
    step(u"ViewFilCapture"_s, u"Displaying Capture Pictures"_s,
         [&] { WithCaptureDisk(options.places, [&] { m_capture->ViewFilCapture(); }); });
    step(u"SetGearImages"_s, u"Setting GEAR image controls"_s,
         [&] { photos::SetGearImages(slots, *m_slotLoader); });
    step(u"SetFormatText"_s, u"Formatting Grid text"_s,
         [&] { databook::SetFormatText(records.grddatabook); });
    step(u"LoadCompType"_s, u"Setting Formtypes for Search menu"_s, [&] { records.LoadCompType(); });
    step(u"RefreshAppraisal"_s, u"Refreshing program from KEL"_s, [&] { RefreshAppraisal(); });
    step(u"AddGenViews2CBO"_s, u"Adding Saved General Views"_s, [&] { AddGenViews2CBO(); });
    step(u"CreatePatternBrush"_s, u"Configuring Tabbed background colors"_s,
         [&] { Q_EMIT TabColoursChanged(globals.tabMask); });
    step(u"checkUpdate"_s, u"Checking for Update Program Changes"_s, [&] { checkUpdate(); });
    step(u"SetGridSettings"_s, {}, [&] { PrepareGrid(!switches.noLoad, splash); });
    step(u"DisplayAllRecords"_s, u"Loading grid interface"_s, [&] {
        splash.ShowSplashStatus(u"Displaying Comp Records"_s);
        DisplayFirstRecords();
    });
    step(u"Finalize"_s, u"Finalizing Start-up"_s, [&] { globals.mapDetail = 3; });
    ports.window.AppActivate();
}

} // namespace vasclip::shell
