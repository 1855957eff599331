// A search of a thousand comps, put on the map as a user does it: the search screen, the map tab, Comp Locator, on the
// program's own window with its Databook; the time of the processor for all threads.
// usage: bench_locator MAPS LATITUDE LONGITUDE [RECORDS]
//   MAPS       a directory of maps; latitude and longitude in millionths of a degree
//   RECORDS    of the Databook, 10,000 without a word; the search finds 1,000 of them

#include "common/paths.h"
#include "platform/conduit/socket_conduit.h"
#include "platform/street/geocode.h"
#include "platform/street/map_data.h"
#include "shell/frm_main.h"
#include "shell/frm_splash.h"
#include "shell/map_parts.h"
#include "shell/start_up.h"
#include "still_ports.h"
#include "store/schema.h"
#include "support/temp_home.h"
#include "windows/guard.h"
#include "windows/main_window.h"
#include "windows/screens.h"
#include "windows/theme.h"
#include "windows/window_pump.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QSet>
#include <QSettings>
#include <QTabWidget>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <vector>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kWanted = 1000;
constexpr int kRounds = 7;
const QString kDatabook = u"C:\\DATABOOK\\DATABOOK.MDB"_s;
const QString kMapping = u"C:\\VAS2000\\Comp2Kel.mdb"_s;
const QString kNeighborhood = u"Sought"_s;

double SecondsOf(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

struct Spent
{
    double cpu = 0, wall = 0;
};

Spent Of(const std::function<void()>& work)
{
    const double cpu = SecondsOf(CLOCK_PROCESS_CPUTIME_ID);
    const double wall = SecondsOf(CLOCK_MONOTONIC);
    work();
    return {SecondsOf(CLOCK_PROCESS_CPUTIME_ID) - cpu, SecondsOf(CLOCK_MONOTONIC) - wall};
}

[[noreturn]] void Fail(const QString& why)
{
    std::fprintf(stderr, "bench_locator: %s\n", qPrintable(why));
    std::exit(1);
}

/// Addresses of the map around a place, each of another house.
QStringList AddressesOf(const street::MapGeocoder& geocoder, street::Place middle)
{
    QSet<QString> keys;
    QStringList addresses;
    for (int at = 1; at < 40 * kWanted && addresses.size() < kWanted; ++at) {
        const street::Place near{middle.latitude + (at * 7919 % 2001 - 1000) * 25,
                                 middle.longitude + (at * 104729 % 2001 - 1000) * 30};
        for (const street::Candidate& candidate : geocoder.Near(near)) {
            const QString key = candidate.address.section(u',', 0, 0).trimmed().toUpper();
            if (candidate.foundBy == street::FoundBy::Street || key.size() > 35 || keys.contains(key))
                continue;
            const std::vector<street::Candidate> found = geocoder.Find(candidate.address, 2);
            if (found.empty() || !found.front().sure)
                continue;
            keys.insert(key);
            addresses.append(candidate.address);
            break;
        }
    }
    return addresses;
}

void FillDatabook(engine::Engine& engine, const QStringList& addresses, int records)
{
    store::MakeDatabase(engine, kMapping);
    store::MakeDatabase(engine, kDatabook);
    const auto database = engine.OpenDatabase(kDatabook);
    engine::Transaction whole(*database);
    const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    for (int i = 0; i < records; ++i) {
        // Those that are sought lie among the others.
        const bool sought = i % (records / kWanted) == 0 && i / (records / kWanted) < addresses.size();
        const QString address = sought ? addresses[i / (records / kWanted)] : u"%1 Elsewhere Rd"_s.arg(i);
        const QString rest = address.section(u',', 2).trimmed();
        rows->AddNew();
        for (const auto& [field, value] :
             {std::pair{u"CENTRALKEY"_s, address.section(u',', 0, 0).trimmed().toUpper().leftJustified(35)},
              {u"ADDRESS"_s, address.section(u',', 0, 0).trimmed()},
              {u"CITY"_s, address.section(u',', 1, 1).trimmed()},
              {u"ST"_s, rest.left(2)},
              {u"ZIP"_s, rest.mid(3, 5)},
              {u"NEIGHBORHD"_s, sought ? kNeighborhood : u"Other"_s},
              {u"SELLINGPR"_s, u"389000"_s},
              {u"GLA"_s, u"1860"_s},
              {u"SALEDATE"_s, u"05/01/2024"_s},
              {u"FRONT"_s, i % 3 == 0 ? u"1"_s : u"0"_s}})
            rows->SetValue(field, value);
        rows->Update();
    }
    rows->Close();
    whole.Commit();
}

/// The program with its window, without a forms program.
class Desktop
{
public:
    explicit Desktop(const files::Disk& disk)
        : m_wire(conduit::MakeSocketConduit({.socketPath = disk.Home() + u"/nobody"_s, .timeLimitMs = 100}))
        , m_guard(m_prompter, [](int) { Fail(u"a rule ended the program"_s); })
        , m_settings(disk.Home() + u"/window.ini"_s, QSettings::IniFormat)
        , m_theme(*qApp, &m_settings)
        , m_program(disk.Home(), {*m_wire, {m_prompter, m_pump, m_clock, m_random, m_window, m_screens}})
        , main(m_program)
        , m_splash(m_program.Ports())
    {
        m_screens.SetGuard(&m_guard);
        const shell::StartUpOptions options{
            {}, {}, {u"C:\\WINDOWS\\SYSTEM32"_s, u"C:\\WINDOWS"_s, u"C:\\VAS2000\\"_s, false}, u"6.2.1"_s};
        if (!m_guard.Run([&] { main.Form_load(options, m_splash); }))
            Fail(u"the program did not start"_s);
    }
    void Show()
    {
        window = std::make_unique<windows::MainWindow>(main.controls, main.drags.Router(), main, m_guard, m_theme,
                                                       m_settings);
        window->ShowMap(main.map);
        window->resize(1366, 768);
        window->show();
        m_screens.SetOwner(window.get());
        QApplication::processEvents();
    }
    void Press(const QString& name) const
    {
        auto* button = window->findChild<QAbstractButton*>(name);
        if (button == nullptr || !button->isEnabled())
            Fail(u"there is no button "_s + name);
        button->click();
    }
    /// Types into the search screen, searches and leaves it.
    void Search() const
    {
        QTimer watch;
        QObject::connect(&watch, &QTimer::timeout, &watch, [&watch] {
            QWidget* screen = QApplication::activeModalWidget();
            if (screen == nullptr)
                return;
            watch.stop();
            screen->findChild<QLineEdit*>(u"txtNeighbor"_s)->insert(kNeighborhood);
            screen->findChild<QAbstractButton*>(u"cmdSearch"_s)->click();
            screen->findChild<QAbstractButton*>(u"cmdExit"_s)->click();
        });
        watch.start(1);
        Press(u"cmdSearch"_s);
        QApplication::processEvents();
    }

private:
    bench::Nobody m_prompter{forms::Answer::No}; // more than 250 records: they are not to be fewer
    windows::WindowPump m_pump;
    bench::StoppedClock m_clock;
    bench::FixedNumber m_random;
    bench::NoWindow m_window;
    windows::WindowScreens m_screens;
    std::unique_ptr<conduit::Conduit> m_wire;
    windows::EventGuard m_guard;
    QSettings m_settings;
    windows::Theme m_theme;
    shell::Program m_program;

public:
    shell::frm_Main main;
    std::unique_ptr<windows::MainWindow> window;

private:
    shell::frm_Splash m_splash;
};

struct Round
{
    Spent search, tab, placed, drawn;
    [[nodiscard]] double Cpu() const { return search.cpu + tab.cpu + placed.cpu + drawn.cpu; }
    [[nodiscard]] double Wall() const { return search.wall + tab.wall + placed.wall + drawn.wall; }
};

Round Play(Desktop& desktop)
{
    shell::frm_Main& main = desktop.main;
    auto* tabs = desktop.window->findChild<QTabWidget*>(u"tabSource"_s);
    tabs->setCurrentIndex(0);
    QApplication::processEvents();
    Round round;
    round.search = Of([&] { desktop.Search(); });
    round.tab = Of([&] {
        tabs->setCurrentIndex(1);
        QApplication::processEvents();
    });
    street::StreetMap& map = main.map.Engine();
    round.placed = Of([&] { desktop.Press(u"cmdGeoComp"_s); });
    round.drawn = Of([&] {
        map.FinishDrawing();
        desktop.window->repaint();
        QApplication::processEvents();
    });
    if (map.Points().size() != kWanted + 1U)
        Fail(u"%1 points are on the map: %2"_s.arg(map.Points().size()).arg(main.status.lblmsg.Caption()));
    return round;
}

void Print(const char* what, std::vector<Round> rounds, Spent Round::*part)
{
    const auto middle = rounds.begin() + static_cast<std::ptrdiff_t>(rounds.size() / 2);
    std::nth_element(rounds.begin(), middle, rounds.end(),
                     [part](const Round& a, const Round& b) { return (a.*part).cpu < (b.*part).cpu; });
    std::printf("  %-28s %.3f s of the processor, %.3f s on the wall\n", what, ((*middle).*part).cpu,
                ((*middle).*part).wall);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 4 && argc != 5) {
        std::fprintf(stderr, "usage: %s MAPS LATITUDE LONGITUDE [RECORDS]\n", argv[0]);
        return 2;
    }
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const QString directory = QString::fromLocal8Bit(argv[1]);
    const int records = std::max(argc == 5 ? std::atoi(argv[4]) : 10 * kWanted, kWanted);
    QStringList addresses;
    {
        const street::MapData maps(directory);
        const street::MapGeocoder geocoder(maps);
        addresses = AddressesOf(geocoder, {std::atoi(argv[2]), std::atoi(argv[3])});
    }
    if (addresses.size() < kWanted)
        Fail(u"the map has %1 addresses there, not %2"_s.arg(addresses.size()).arg(kWanted));

    const tests::TempHome home;
    for (const QString& made : {u"C:\\WINDOWS"_s, u"C:\\DATABOOK"_s, u"C:\\VAS2000"_s, u"C:\\JPG"_s, u"C:\\KEL"_s,
                                u"C:\\SNAP"_s})
        home.MakeDirs(made);
    home.Put(u"C:\\APPRAISE\\VAS2000.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\VAS2000\r\nPHOTODIR=C:\\JPG\r\nCAPTUREDIR=C:\\SNAP\r\n");
    home.Put(u"C:\\APPRAISE\\KEL.INI"_s, "[DIRECTORIES]\r\nAPPDIR=C:\\KEL\r\n");
    const bench::StoppedClock time;
    {
        engine::Engine engine(home.disk, time);
        FillDatabook(engine, addresses, records);
    }
    Desktop desktop(home.disk);
    desktop.main.globals.cellData = u"Z:"_s + QString(directory).replace(u'/', u'\\');
    desktop.Show();
    desktop.main.report.txtSubject.SetText(addresses.front().section(u',', 0, 0).trimmed());
    desktop.main.addr.txtKelCity.SetText(addresses.front().section(u',', 1, 1).trimmed());
    desktop.main.addr.txtKelState.SetText(addresses.front().section(u',', 2).trimmed().left(2));

    std::vector<Round> rounds;
    for (int i = 0; i < kRounds; ++i) {
        // Each time 1,000 places are found that the Databook does not have yet.
        desktop.main.program.Engine().OpenDatabase(kDatabook)->Execute(
            u"UPDATE COMPS SET LATITUDE = '', LONGITUDE = '', ANCHORED = ''"_s);
        rounds.push_back(Play(desktop));
    }
    std::printf("%d comps of %d, searched for and put on the map; the middle of %d rounds (a round's limit: 2 s)\n", kWanted,
                records, kRounds);
    Print("the search and its screen", rounds, &Round::search);
    Print("the map tab", rounds, &Round::tab);
    Print("found, placed and stored", rounds, &Round::placed);
    Print("the map whole", rounds, &Round::drawn);
    std::sort(rounds.begin(), rounds.end(), [](const Round& a, const Round& b) { return a.Cpu() < b.Cpu(); });
    const Round& middle = rounds[rounds.size() / 2];
    std::printf("  %-28s %.3f s of the processor, %.3f s on the wall; the slowest %.3f s\n", "all of it", middle.Cpu(),
                middle.Wall(), rounds.back().Cpu());
    return 0;
}
