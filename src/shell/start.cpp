#include "shell/start.h"

#include "comments/comment_file.h"
#include "common/error_block.h"
#include "common/given_up.h"
#include "common/paths.h"
#include "databook/databook_upgrade.h"
#include "databook/grid.h"
#include "link/link_desk.h"
#include "photos/capture_desk.h"
#include "platform/engine/genuine_file.h"
#include "platform/files/reach.h"
#include "shell/convert_offer.h"
#include "shell/databook_in_use.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_steps.h"
#include "shell/tracer.h"

#include <QScopeGuard>

namespace vasclip::shell {

using namespace Qt::Literals::StringLiterals;

namespace {

/// Thrown to leave the start, silently, where the user has given a step up.
struct Abandoned
{};

const QString kCommentTable = u"COMPS"_s;
constexpr qsizetype kLongestCaption = 255;
constexpr std::chrono::milliseconds kPatience{150}; ///< with a disk, before the splash says which one is slow

class Start
{
public:
    explicit Start(frm_Main& main)
        : m_main(main)
        , m_program(main.program)
    {}
    void TakeStartSteps(const StartUpOptions& options, frm_Splash& splash);

private:
    void StartStep(const std::function<void()>& step);
    void WithCaptureDisk(const SystemPlaces& places, const std::function<void()>& step);
    [[nodiscard]] bool AskForDisk();
    void RefuseSecondCopy(const StartUpOptions& options, const QString& title, const QString& text);

    frm_Main& m_main;
    Program& m_program;
};

} // namespace

/// One statement of the start. A device that is not there is passed over; the rest is the central error
/// block's.
void Start::StartStep(const std::function<void()>& step)
{
    try {
        if (!common::Guarded(m_program.Prompter(), [&] {
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

/// A statement about the capture directory: there, and nowhere else, a bad name stands for a drive without
/// its disk.
void Start::WithCaptureDisk(const SystemPlaces& places, const std::function<void()>& step)
{
    const QString before = m_program.globals.G_CaptureDir;
    for (;;) {
        try {
            return step();
        } catch (const RuntimeError& failure) {
            // Where another directory does not help the name was another one.
            if (failure.Number() != error::kBadFileName || m_program.globals.G_CaptureDir != before)
                throw;
        }
        if (!AskForDisk())
            m_program.globals.G_CaptureDir =
                m_program.Disk().DirExists(u"C:\\"_s) ? u"C:\\"_s : common::CkRSlash(places.executableDir);
    }
}

/// @return true if the user says that the disk is in the drive
bool Start::AskForDisk()
{
    return m_program.Prompter().MsgBox(
               forms::Buttons::OkCancel, forms::Icon::None, u"Place a floppy in the Drive"_s,
               u"Drive is empty or unreadable.  It may be due to the "_s + m_program.globals.G_CaptureDir +
                   u" drive not being inserted or available.  Please insert a floppy disk (or sandisk card) "
                   u"to correct this problem.  Hit cancel to set the directory to C:\\."_s) ==
           forms::Answer::Ok;
}

void Start::RefuseSecondCopy(const StartUpOptions& options, const QString& title, const QString& text)
{
    if (!options.previousInstance || !options.previousInstance())
        return;
    m_program.Prompter().Box(title, text);
    throw forms::EndOfProgram{1};
}

void Start::TakeStartSteps(const StartUpOptions& options, frm_Splash& splash)
{
    auto& ports = m_program.Ports();
    RefuseSecondCopy(
        options, u"Program Already Running in Memory"_s,
        u"The current application is already running in memory. If the application is not visible, "
        u"please end the existing process in the Windows Task Manager."_s);
    const Switches switches(options.commandLine);
    Tracer tracer(switches, ports);
    tracer.TraceStep(u"CKPreviousInstance"_s);
    tracer.TraceStep(u"FindWindow"_s);
    if (options.findWindowCaption)
        m_program.globals.formsCaption = options.findWindowCaption(u"ClassKel"_s).left(kLongestCaption);
    tracer.TraceStep(u"Command"_s, options.commandLine);
    tracer.TraceStep(u"AppActivate"_s);
    ports.window.AppActivate();
    tracer.TraceStep(u"CKPreviousInstance"_s);
    RefuseSecondCopy(options, {},
                     u"You are already running this application.  Click OK and Press Ctrl Escape."_s);

    tracer.TraceStep(u"GetIniDir"_s);
    m_program.LocateInis(options.places, Silence::Ask);
    tracer.TraceStep(u"LocateIni"_s, u"Application INI - "_s + m_program.globals.applicationIni);
    tracer.TraceStep(u"LocateKelIni"_s, u"Appraisal INI - "_s + m_program.globals.kelIni);
    tracer.TraceStep(u"ReadNames"_s);

    tracer.TraceStep(u"frm_Splash"_s);
    splash.lblCompany.SetCaption(m_program.globals.companyName);
    splash.lblVersion.SetCaption(u"Version "_s + m_program.version);
    splash.ShowSplashStatus(u"Application INI  - "_s + m_program.globals.applicationIni);
    splash.ShowSplashStatus(u"Appraisal INI - "_s + m_program.globals.kelIni);

    // A status line and a turn of the queue stand before each step.
    const auto step = [&](const QString& routine, const QString& status, const std::function<void()>& work,
                          const QString& detail = {}) {
        tracer.TraceStep(routine, detail);
        if (!status.isEmpty())
            splash.ShowSplashStatus(status);
        tracer.Pump();
        StartStep(work);
    };

    step(u"ReadGlobals"_s, u"Loading Configuration Settings"_s, [&] { m_program.ReadSettings(); });
    step(u"TurnOnMaps"_s, u"Checking for Integrated Mapping Application"_s,
         [&] { TurnOnMaps(m_program, options.places, m_main.tabSource); });
    step(u"ReadCaption"_s, {}, [&] { m_main.databookInUse.ReadCaption(); });
    step(u"ReadiniSettings"_s, u"Reading User Defined Settings"_s, [&] { m_program.ReadiniSettings(); });
    step(u"LoadMenu"_s, u"Adding Pop-up Menus"_s, [&] { m_main.setup.LoadMenu(); });
    step(u"tabSource"_s, {}, [&] { m_main.tabSource.SetTab(0); });
    // A disk that takes its time is waited for beside the window, or no splash could come up.
    const auto reach = [&](const QString& path) {
        const auto say = [&] { splash.ShowSplashStatus(u"Waiting for "_s + path); };
        files::Reach(m_program.Disk(), path, kPatience, say, [&] { ports.pump.DoEvents(); });
    };
    const QString databook = m_program.DatabookPath();
    reach(databook);
    step(
        u"CheckCompDBF2"_s, u"Checking data - "_s + m_program.globals.G_DataDir,
        [&] {
            // One of Access has no fields to append to; what is made of it may have.
            OfferConversion(m_program, databook, m_program.globals.G_Table);
            if (!m_program.life.readOnlyHome && !engine::IsGenuineFile(m_program.Disk(), databook))
                databook::CheckCompDBF2(ports, m_program.Engine(), m_program.globals, m_program.sources.datDatabook,
                                        databook, m_program.globals.G_Table);
        },
        databook);
    step(
        u"Connect2Databook"_s, {}, [&] { m_main.databookInUse.OpenDatabook(); }, databook);
    reach(m_program.MappingPath());
    step(u"Connect2mdb"_s, u"Connecting to "_s + QString::fromLatin1(common::Globals::kMappingFile),
         [&] {
             OfferConversion(m_program, m_program.MappingPath(), QString::fromLatin1(common::Globals::kMappingTable));
             OfferConversion(m_program, comments::CommentFilePath(m_program.globals), kCommentTable);
             m_program.ConnectMapping();
         });
    reach(m_program.globals.G_CaptureDir);
    step(u"DisplayCamera"_s, u"Verifying Capture Directory"_s, [&] {
        WithCaptureDisk(options.places, [&] {
            VerifyCaptureDirectory(m_program);
            m_program.Capture().SetSystemDrive(options.places.windowsDirectory.left(2));
            m_program.Capture().check4CaptureDir();
            m_program.Capture().DisplayCamera(); // its pictures come when the grid stands
        });
    });
    step(u"ViewFilCapture"_s, u"Displaying Capture Pictures"_s,
         [&] { WithCaptureDisk(options.places, [&] { m_program.Capture().ViewFilCapture(); }); });
    step(u"SetGearImages"_s, u"Setting GEAR image controls"_s,
         [&] { photos::SetGearImages(m_program.slots, m_program.Loader()); });
    step(u"SetFormatText"_s, u"Formatting Grid text"_s,
         [&] { databook::SetFormatText(m_program.records.grddatabook); });
    step(u"LoadCompType"_s, u"Setting Formtypes for Search menu"_s,
         [&] { m_program.records.LoadCompType(); });
    step(u"RefreshAppraisal"_s, u"Refreshing program from KEL"_s,
         [&] { m_main.linkLine.RefreshAppraisal(); });
    step(u"AddGenViews2CBO"_s, u"Adding Saved General Views"_s, [&] { m_program.AddGenViews2CBO(); });
    step(u"CreatePatternBrush"_s, u"Configuring Tabbed background colors"_s,
         [&] { Q_EMIT m_main.TabColoursChanged(m_program.globals.tabMask); });
    step(u"checkUpdate"_s, u"Checking for Update Program Changes"_s, [&] { checkUpdate(m_program); });
    step(u"SetGridSettings"_s, {}, [&] { PrepareGrid(m_program, !switches.noLoad, splash); });
    step(u"DisplayAllRecords"_s, u"Loading grid interface"_s, [&] {
        splash.ShowSplashStatus(u"Displaying Comp Records"_s);
        m_main.databookInUse.DisplayFirstRecords();
    });
    step(u"Finalize"_s, u"Finalizing Start-up"_s, [&] { m_program.globals.mapDetail = 3; });
    ports.window.AppActivate();
}

void Form_load(frm_Main& main, const StartUpOptions& options, frm_Splash& splash)
{
    Program& program = main.program;
    const common::RoutineScope scope{"Form_load"};
    program.version = options.version;
    program.Link().productVersion = options.version;
    program.life.readOnlyHome = options.homeIsReadOnly;
    program.life.starting = true; // the grid comes first, the photo of its row when it stands on the screen
    const auto started = qScopeGuard([&program] { program.life.starting = false; });
    try {
        Start(main).TakeStartSteps(options, splash);
    } catch (const Abandoned&) {
        // The window comes with what there is; the user has been asked.
    }
}

} // namespace vasclip::shell
