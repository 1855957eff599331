#include "app/places.h"
#include "app/vasclip/places_report.h"
#include "app/vasclip/surroundings.h"
#include "app/vasclip/tour/tour.h"
#include "common/error_block.h"
#include "photos/capture_desk.h"
#include "platform/desktop/desktop.h"
#include "platform/desktop/one_copy.h"
#include "platform/desktop/termination.h"
#include "platform/files/native.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/start_up.h"
#include "windows/about_box.h"
#include "windows/guide_window.h"
#include "windows/main_window.h"
#include "windows/orderly_close.h"
#include "windows/splash_window.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QScopeGuard>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

#ifdef __GLIBC__
#include <malloc.h>
#endif

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

namespace {

constexpr qint64 kBlinkMilliseconds = 150;
constexpr int kLookAtLinkMs = 2000;
const QString kSlowStart = u"start/slow"_s;

struct Options
{
    QString home;
    QString tour;
    app::SurroundingOptions around;
    QString places;
    bool quitWhenPainted = false;
    QString commandLine; ///< what the program's own switches are read from
};

/// Options that begin with "--" are taken off the line; the rest is the program's own command line.
std::optional<Options> ReadOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Desktop companion for residential appraisers.\n\nSwitches behind the options: /D a box per "
        u"start-up step, "
        u"/S no message pump, /2 pump at each step, /NOLOAD leave the saved grid layout alone."_s);
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {u"home"_s, u"The program's home (else VASCLIP_HOME, else the user's data directory)."_s, u"DIR"_s},
        {u"socket"_s, u"The forms program's socket, if it is not the home's own."_s, u"PATH"_s},
        {u"time-limit"_s, u"Seconds to wait for an answer of the forms program (5)."_s, u"SECONDS"_s, u"5"_s},
        {u"tour"_s,
         u"Plays the main job through by itself and leaves pictures and the filled report in DIR."_s,
         u"DIR"_s},
        {u"today"_s, u"Takes this day for today; for pictures that look the same again."_s, u"YYYY-MM-DD"_s},
        {u"places"_s, u"Writes where each control stands on the screen to FILE; for automation."_s,
         u"FILE"_s},
        {u"quit-when-painted"_s, u"Ends as soon as the grid stands on the screen; for measuring."_s},
    });
    QStringList own = arguments;
    QStringList rest = shell::TakeSwitches(own);
    parser.process(own);
    Options options;
    options.home = parser.isSet(u"home"_s) ? parser.value(u"home"_s) : files::DefaultHome();
    options.around.socket = parser.value(u"socket"_s);
    options.tour = parser.value(u"tour"_s);
    options.around.recorded = !options.tour.isEmpty();
    if (!options.tour.isEmpty() && !app::IsDemoHome(options.home)) {
        std::fprintf(stderr,
                     "vasclip: the tour changes records, so it plays on a demo home alone, and %s is none. "
                     "vasclip-demo --home DIR makes one.\n",
                     qUtf8Printable(options.home));
        return std::nullopt;
    }
    options.places = parser.value(u"places"_s);
    options.quitWhenPainted = parser.isSet(u"quit-when-painted"_s);
    options.around.today = QDate::fromString(parser.value(u"today"_s), Qt::ISODate);
    if (parser.isSet(u"today"_s) && !options.around.today.isValid()) {
        std::fprintf(stderr, "vasclip: --today takes a day as 2026-06-30.\n");
        return std::nullopt;
    }
    bool number = false;
    const double seconds = parser.value(u"time-limit"_s).toDouble(&number);
    if (!number || seconds <= 0 || seconds > 3600) {
        std::fprintf(stderr, "vasclip: --time-limit takes seconds, above 0 and at most 3600.\n");
        return std::nullopt;
    }
    options.around.linkTimeLimitMs = static_cast<int>(seconds * 1000);
    rest += parser.positionalArguments();
    options.commandLine = rest.join(u' ');
    return options;
}

class App
{
public:
    App(QApplication& app, const Options& options)
        : m_options(options)
        , m_program(options.home,
                    [&](const files::Disk& disk) {
                        return m_around.emplace(app, disk, options.around, [this](int code) { End(code); }).Get();
                    })
        , m_main(m_program)
        , m_splash(m_program.Ports())
        , m_copy(m_program.Disk().Home())
    {}

    int Run()
    {
        std::optional<app::Tour> tour;
        if (!m_options.tour.isEmpty()) {
            QApplication::setAttribute(Qt::AA_DontUseNativeDialogs); // the system's own can't be filled in
            tour.emplace(m_options.tour, QCoreApplication::applicationDirPath() + u"/kelforms"_s);
            if (!tour->StartFormsProgram(m_program.Disk(), m_around->socket))
                return 1;
        }
        if (!Start(tour ? &*tour : nullptr))
            return m_exitCode;
        if (tour) {
            const bool played = m_around->guard.Run([&] { tour->Play(m_main, *m_window, m_around->recorder); });
            m_window->close();
            return played ? tour->Finish(m_around->recorder) : 1;
        }
        const int code = QApplication::exec();
        return code != 0 ? code : m_exitCode;
    }

private:
    bool Start(app::Tour* tour)
    {
        // A start that is done in a blink shows no splash; it comes with the first status line after that.
        std::optional<windows::SplashWindow> splash;
        QElapsedTimer sinceStart;
        sinceStart.start();
        // A step that blocks lets nothing come up in its middle, so one that was slow the last time has the splash
        // before it begins.
        const bool wasSlow = m_around->settings.value(kSlowStart).toBool();
        qint64 lastStep = 0, longest = 0;
        const auto showSplash = [&] {
            longest = std::max(longest, sinceStart.elapsed() - std::exchange(lastStep, sinceStart.elapsed()));
            if (splash || (!tour && !wasSlow && sinceStart.elapsed() < kBlinkMilliseconds))
                return;
            splash.emplace(m_splash.controls, m_around->guard);
            splash->show();
        };
        const auto watching =
            QObject::connect(&m_splash.lstSplash, &forms::ListBox::ItemsChanged, qApp, showSplash);
        const auto watched = qScopeGuard([&] {
            QObject::disconnect(watching);
            m_around->talk.onSlow = {};
        });
        // One that answers late holds up a step in which no status line comes.
        bool told = false;
        m_around->talk.onSlow = [&] {
            if (std::exchange(told, true))
                return;
            m_splash.ShowSplashStatus(u"%1 answers slowly; Esc goes on without it"_s.arg(m_main.globals.formsProgram));
            showSplash();
        };
        shell::StartUpOptions start;
        start.commandLine = m_options.commandLine;
        start.previousInstance = [this] { return !m_copy.IsFirst(); };
        start.places = app::Places(m_program.Disk());
        start.version = QCoreApplication::applicationVersion();
        start.findWindowCaption = desktop::FindWindowCaption;
        start.homeIsReadOnly = !files::native::MayWrite(m_program.Disk().Home());
        const bool loaded = m_around->guard.Run([&] { m_main.Form_load(start, m_splash); });
        longest = std::max(longest, sinceStart.elapsed() - lastStep);
        if (const bool slow = longest >= kBlinkMilliseconds; slow != wasSlow)
            m_around->settings.setValue(kSlowStart, slow);
        if (!loaded) {
            m_exitCode = m_exitCode == 0 ? 1 : m_exitCode;
            return false;
        }
        if (tour)
            tour->Shoot(*splash, u"starting"_s);
        return m_around->guard.Run([&] { ShowWindow(); });
    }

    void ShowWindow()
    {
        m_window.emplace(m_main.controls, m_main.drags.Router(), m_main, m_around->guard, m_around->theme, m_around->settings);
        m_window->ShowMap(m_main.map);
        m_around->desktop.SetMainWindow(&*m_window);
        m_around->prompter.SetOwner(&*m_window);
        m_around->screens.SetOwner(&*m_window);
        m_window->setWindowTitle(m_main.Caption());
        QObject::connect(&m_main, &shell::frm_Main::CaptionChanged, &*m_window,
                         [this] { m_window->setWindowTitle(m_main.Caption()); });
        QObject::connect(&m_main, &shell::frm_Main::UnloadWanted, &*m_window, [this] { m_window->close(); });
        QObject::connect(&m_main, &shell::frm_Main::AboutWanted, &*m_window, [this] { ShowAbout(); });
        QObject::connect(&m_main, &shell::frm_Main::GuideWanted, &*m_window,
                         [this] { windows::OpenGuide(nullptr, *m_window); });
        QObject::connect(&m_main, &shell::frm_Main::WhatsNewWanted, &*m_window,
                         [this](const QString& changes) { ShowAbout(changes); });
        QObject::connect(&m_main, &shell::frm_Main::ResetSizeWanted, &*m_window,
                         [this] { m_window->ResetSize(); });
        m_window->ShowTabColours(m_main.globals.tabMask);
        QObject::connect(&m_main, &shell::frm_Main::TabColoursChanged, &*m_window,
                         [this](bool themed) { m_window->ShowTabColours(themed); });
        if (!m_around->ByExchange()) {
            QObject::connect(&m_around->watch, &conduit::LinkWatch::Seen, &m_main, &shell::frm_Main::LinkSeen);
            QObject::connect(&m_main, &shell::frm_Main::LinkLookWanted, &m_around->watch, &conduit::LinkWatch::Look);
        }
        QObject::connect(&m_main, &shell::frm_Main::EndWanted, qApp, [this] { std::_Exit(m_exitCode); });
        QObject::connect(&*m_window, &windows::MainWindow::Unload, &*m_window, [this] {
            m_window->hide();
            m_around->guard.Run([this] { m_main.Form_Unload(); });
            QApplication::exit(m_exitCode);
        });
        if (m_options.quitWhenPainted)
            QObject::connect(&*m_window, &windows::MainWindow::FirstPainted, qApp, [] { std::_Exit(0); });
        QObject::connect(
            &*m_window, &windows::MainWindow::FirstPainted, &m_main,
            [this] {
                m_around->guard.Run([this] { m_main.ShowRecordPhoto(); });
                m_main.Capture().Folder().SetPatience(photos::CaptureFolder::kShortPatience);
                m_around->guard.Run([this] { m_main.ShowCapture(); });
                m_around->guard.Run([this] { m_main.CheckDatabook(engine::CheckDepth::Quiet); });
                if (!m_around->ByExchange())
                    m_around->watch.Start(kLookAtLinkMs);
            },
            Qt::QueuedConnection);
        m_orderlyClose.emplace(*m_window);
        m_termination.emplace([this] { m_orderlyClose->Start(); });
        m_window->show();
        if (!m_options.places.isEmpty())
            m_places.emplace(*m_window, m_options.places);
    }

    void ShowAbout(const QString& changes = {})
    {
        const auto& g = m_main.globals;
        windows::AboutBox box(
            {g.productName,
             QCoreApplication::applicationVersion(),
             g.companyName,
             {{u"Databook"_s, g.G_DataDir + g.G_DataFile},
              {u"Settings"_s, g.applicationIni},
              {u"Home"_s, QDir::toNativeSeparators(m_program.Disk().Home())},
              {g.formsProgram, g.formsProgramVersion.isEmpty() ? u"not seen yet"_s : g.formsProgramVersion}},
             changes},
            &*m_window);
        box.exec();
    }

    /// A rule has ended the program: the window closes without asking.
    void End(int code)
    {
        m_exitCode = code;
        if (m_window)
            QTimer::singleShot(0, &*m_window, [this] { m_window->close(); });
    }

    Options m_options;
    std::optional<app::Surroundings> m_around;
    shell::Program m_program;
    shell::frm_Main m_main;
    shell::frm_Splash m_splash;
    desktop::OneCopy m_copy;
    std::optional<windows::MainWindow> m_window;
    std::optional<app::PlacesReport> m_places;
    std::optional<windows::OrderlyClose> m_orderlyClose;
    std::optional<desktop::Termination> m_termination;
    int m_exitCode = 0;
};

/// Gives the memory of a picture back to the system when the picture goes. The allocator would else, once it has seen a few,
/// keep them among what is small and stays, and a map that is looked around in would take three times what it holds.
void ReturnPictures()
{
#ifdef __GLIBC__
    constexpr int kPicture = 256 * 1024;
    mallopt(M_MMAP_THRESHOLD, kPicture);
#endif
}

} // namespace

int main(int argc, char* argv[])
{
    ReturnPictures();
    if (!desktop::CanShowWindows()) {
        std::fputs("Vasclip: there is no display, so the window is out of sight\n", stderr);
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    std::optional<desktop::SystemColours> colours(std::in_place);
    QApplication app(argc, argv);
    colours.reset();
    QApplication::setApplicationName(u"Vasclip"_s);
    QApplication::setApplicationVersion(u"" VASCLIP_VERSION ""_s);
    const auto options = ReadOptions(QApplication::arguments());
    if (!options)
        return 2;
    try {
        return App(app, *options).Run();
    } catch (const RuntimeError& failure) {
        QTextStream(stderr) << u"Vasclip can't start: "_s << failure.Description() << Qt::endl;
        QMessageBox::critical(nullptr, u"Vasclip can't start"_s, failure.Description() + u'.');
    }
    return 1;
}
