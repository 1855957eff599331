// Sending a comp over a local socket to another process, against the bare round trips of the same bytes over
// the same kind of socket; and transferring nine comps into the Databook, against the bare requests and
// record updates that it consists of; and what both ask of the Databook, in counts. usage: bench_link [FIELDS [ROUNDS]]

#include "forms/screen.h"
#include "link/send_bulk.h"
#include "link/transfer.h"
#include "link_counts.h"
#include "platform/conduit/link_server.h"
#include "platform/conduit/protocol.h"
#include "platform/conduit/socket_conduit.h"
#include "still_ports.h"
#include "store/schema.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QTemporaryDir>

#include <sched.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

using Clock = std::chrono::steady_clock;

double Seconds(const std::function<void()>& work)
{
    const Clock::time_point begin = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

double SecondsOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

/// What every cell of the report holds.
const QString kCell = u"1850"_s;

/// Takes everything and keeps nothing.
class Swallow : public conduit::LinkHandler
{
public:
    QString Request(const QString&, const QString& item) override
    {
        return item == "ActiveReports"_L1 ? u"SMITH,"_s : QString(kCell);
    }
    void Poke(const QString&, const QString&, const QString&) override {}
    void Execute(const QString&, const QString&) override {}
};

/// A process of its own that ends with this one.
class Child
{
public:
    explicit Child(const std::function<void()>& work)
        : m_process(fork())
    {
        if (m_process != 0)
            return;
        work();
        _exit(0);
    }
    ~Child()
    {
        if (m_process > 0) {
            kill(m_process, SIGTERM);
            waitpid(m_process, nullptr, 0);
        }
    }
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;
    /// Processor time so far.
    [[nodiscard]] double Seconds() const
    {
        clockid_t clock{};
        return clock_getcpuclockid(m_process, &clock) == 0 ? SecondsOf(clock) : 0;
    }

    [[nodiscard]] pid_t Process() const { return m_process; }

private:
    pid_t m_process;
};

/// Processors of this machine that this process may use.
std::vector<int> Processors()
{
    cpu_set_t set;
    CPU_ZERO(&set);
    std::vector<int> found;
    if (sched_getaffinity(0, sizeof set, &set) == 0)
        for (int i = 0; i < CPU_SETSIZE; ++i)
            if (CPU_ISSET(i, &set))
                found.push_back(i);
    return found;
}

/// Keeps a process (0 this one) on the processors named.
void Keep(pid_t process, const std::vector<int>& processors)
{
    cpu_set_t set;
    CPU_ZERO(&set);
    for (const int i : processors)
        CPU_SET(i, &set);
    if (sched_setaffinity(process, sizeof set, &set) != 0)
        std::perror("sched_setaffinity");
}

void ServeLink(const QString& path)
{
    int argc = 0;
    QCoreApplication app(argc, nullptr);
    Swallow handler;
    conduit::ServerOptions options;
    options.socketPath = path;
    options.program = u"bench"_s;
    conduit::LinkServer server(handler, options);
    server.Listen();
    QCoreApplication::exec();
}

/// Answers each line with the bytes that the link answers, looking at nothing.
void ServeBare(const QString& path, const std::vector<QByteArray>& answers)
{
    int argc = 0;
    QCoreApplication app(argc, nullptr);
    QLocalServer server;
    QObject::connect(&server, &QLocalServer::newConnection, &server, [&] {
        QLocalSocket* socket = server.nextPendingConnection();
        auto next = std::make_shared<std::size_t>(0);
        QObject::connect(socket, &QLocalSocket::readyRead, socket, [socket, next, &answers] {
            for (auto lines = socket->readAll().count('\n'); lines > 0; --lines)
                socket->write(answers[(*next)++ % answers.size()]);
            socket->flush();
        });
    });
    if (!server.listen(path))
        _exit(1);
    QCoreApplication::exec();
}

class Loud : public forms::Prompter
{
public:
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon, const QString& title,
                         const QString& text) override
    {
        if (buttons == forms::Buttons::YesNo) // may a record be replaced?
            return forms::Answer::Yes;
        std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        std::exit(1);
    }
    QString OpenDialog(const QString&, const QString&, const QString&) override { return {}; }
    QString ChooseDirectory(const QString&, const QString&) override { return {}; }
};

/// The quickest of all rounds, by the clock on the wall and in processor time of both ends.
struct Best
{
    double wall = 1e9, processor = 1e9;

    void Round(const Child& other, const std::function<void()>& work)
    {
        const auto used = [&other] { return SecondsOf(CLOCK_PROCESS_CPUTIME_ID) + other.Seconds(); };
        const double before = used();
        wall = std::min(wall, Seconds(work));
        processor = std::min(processor, used() - before);
    }
};

/// A desk with one comp and a mapping of so many fields.
/// @param transfer  map text columns of COMPS, each once, and make the records of kTransferred comps
struct Bench
{
    Bench(const QString& home, const QString& socket, int fields, bool transfer = false)
        : disk(home)
        , txtDDE(conduit::MakeSocketConduit(Options(socket)))
    {
        Fill(u"C:\\DATABOOK.MDB"_s, u"COMPS"_s, transfer ? kTransferred : 1,
             [](engine::Recordset& rows, int i) {
                 rows.SetValue(u"CENTRALKEY"_s, KeyOf(i).leftJustified(35));
                 rows.SetValue(u"ADDRESS"_s, KeyOf(i));
                 rows.SetValue(u"GLA"_s, u"1850"_s);
             });
        const QStringList columns = TextColumns();
        const QStringList bases = transfer ? QStringList{u"1"_s, u"4"_s, u"7"_s} : QStringList{u"4"_s};
        const int ours = fields * static_cast<int>(bases.size());
        Fill(u"C:\\Comp2Kel.mdb"_s, u"Comp2Kel"_s, ours + kOtherRows, [&](engine::Recordset& rows, int i) {
            const int field = i % fields;
            rows.SetValue(u"FORMTYPE"_s, i < ours ? u"UA5"_s : u"F%1"_s.arg(i % kOtherForms));
            rows.SetValue(u"FORMNAME"_s, u"UA5"_s);
            rows.SetValue(u"FIELDNAME"_s, transfer         ? columns[field % columns.size()]
                                          : field % 2 == 0 ? u"ADDRESS"_s
                                                           : u"GLA"_s);
            rows.SetValue(u"ROW"_s, QString::number(field + 1));
            rows.SetValue(u"CELL"_s, u"3"_s);
            rows.SetValue(u"COMPTYPE"_s, u"SALE"_s);
            rows.SetValue(u"COMP"_s, bases[i / fields % bases.size()]);
            rows.SetValue(u"OFFSET"_s, u"2"_s);
        });
        store::Connect2Databook(ports, sources, u"C:\\DATABOOK.MDB"_s, u"COMPS"_s);
        store::Connect2mdb(ports, sources.datComp2Kel_CURRENT, u"C:\\Comp2Kel.mdb"_s, u"Comp2Kel"_s,
                           store::SourceKind::Query);
        if (!store::FindRecord(ports, sources.datDatabook, KeyOf(0), u"CENTRALKEY"_s))
            std::exit(1);
        addr.txtFormType.SetText(u"UA5"_s);
        addr.txtKelReport.SetText(u"SMITH"_s);
        for (int i = 0; transfer && i < kTransferred; ++i)
            report.txtComp(i + 1).SetText(KeyOf(i));
    }
    static QString KeyOf(int comp) { return u"%1 OAK STREET"_s.arg(12 + comp); }
    /// Of COMPS, without those that are more than their text.
    QStringList TextColumns()
    {
        const QStringList special{u"CENTRALKEY"_s, u"ADDRESS"_s,  u"APPRSLTYPE"_s, u"PRICEFLD"_s,
                                  u"SALEFLD"_s,    u"SALEDATE"_s, u"LOADDATE"_s,   u"NEIGHBORHD"_s,
                                  u"CITY"_s,       u"ST"_s,       u"ZIP"_s,        u"LEASEDATE"_s,
                                  u"FRONT"_s};
        const auto rows = engine.OpenDatabase(u"C:\\DATABOOK.MDB"_s)
                              ->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        QStringList columns;
        for (const engine::Field& field : rows->Fields())
            if (field.type == engine::FieldType::Text && field.size >= 4 &&
                !special.contains(field.name.toUpper()))
                columns.append(field.name);
        return columns;
    }
    void Transfer()
    {
        if (link::TransferComps(desk, true, 0, link::What::Data).replaced != kTransferred)
            std::exit(1);
    }
    /// What a transfer cannot do without: for each comp, finding its record and updating as many fields.
    void UpdateRecords(const QStringList& columns)
    {
        engine::Recordset& record = sources.datDatabook.Recordset();
        for (int i = 0; i < kTransferred; ++i) {
            if (!store::FindRecord(ports, sources.datDatabook, KeyOf(i), u"CENTRALKEY"_s))
                std::exit(1);
            record.Edit();
            for (const QString& column : columns)
                record.SetValue(column, m_flip ? u"1850"_s : u"1851"_s);
            record.Update();
        }
        m_flip = !m_flip;
    }
    static conduit::SocketOptions Options(const QString& socket)
    {
        conduit::SocketOptions options;
        options.socketPath = socket;
        return options;
    }
    void Fill(const QString& path, const QString& table, int count,
              const std::function<void(engine::Recordset&, int)>& row)
    {
        store::MakeDatabase(engine, path);
        const auto database = engine.OpenDatabase(path);
        engine::Transaction transaction(*database);
        const auto rows = database->OpenRecordset(table, engine::RecordsetType::Table);
        for (int i = 0; i < count; ++i) {
            rows->AddNew();
            row(*rows, i);
            rows->Update();
        }
        transaction.Commit();
    }
    void Send()
    {
        if (!m_sent) // what is measured is the send
            m_sent = store::ReadRecord(sources.datDatabook, KeyOf(0));
        if (!link::SendBulk(desk, m_sent.value(), u"UA5"_s, u"SMITH"_s, 5, u"SALE"_s).complete)
            std::exit(1);
    }

    std::optional<store::Record> m_sent;
    static constexpr int kTransferred = 9;
    // A mapping has the rows of every form there is.
    static constexpr int kOtherForms = 65;
    static constexpr int kOtherRows = 20'000;

    files::Disk disk;
    bench::StoppedClock clock;
    engine::Engine engine{disk, clock};
    Loud prompter;
    bench::NoEvents pump;
    bench::FixedNumber random;
    bench::NoWindow window;
    forms::NoScreens screens;
    forms::Ports ports{prompter, pump, clock, random, window, screens};
    forms::ControlSet set;
    common::Globals globals;
    common::StatusDesk status{set};
    link::ReportControls report{set};
    link::frm_Addr addr;
    link::LinkState state;
    photos::SlotControls slots{set};
    photos::SlotTable table;
    photos::SlotLoader loader{disk, ports, table};
    photos::PhotoLists lists{set};
    store::Sources sources{engine};
    std::unique_ptr<conduit::Conduit> txtDDE;
    link::LinkDesk desk{
        {.txtDDE = *txtDDE,
         .ports = ports,
         .status = status,
         .kelIni = link::ReadsKelIni(disk, {}),
         .fileVersion = {}},
        {.report = report,
         .addr = addr,
         .state = state,
         .slots = slots,
         .loader = loader},
        {.sources = sources,
         .globals = globals,
         .lists = lists,
         .disk = disk}};

private:
    bool m_flip = false;
};

void RoundTrips(QLocalSocket& socket, const std::vector<QByteArray>& questions)
{
    for (const QByteArray& question : questions) {
        socket.write(question);
        QByteArray answer;
        while (!answer.endsWith('\n')) {
            if (!socket.waitForReadyRead(5000))
                std::exit(1);
            answer += socket.readAll();
        }
    }
}

void WaitForSocket(const QString& path)
{
    for (int i = 0; i < 500; ++i) {
        QLocalSocket socket;
        socket.connectToServer(path);
        if (socket.waitForConnected(100))
            return;
        usleep(10000);
    }
    std::fprintf(stderr, "nobody listens at %s\n", qPrintable(path));
    std::exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    const int fields = argc > 1 ? std::atoi(argv[1]) : 60;
    const int rounds = argc > 2 ? std::atoi(argv[2]) : 40;
    if (fields < 1 || rounds < 1) {
        std::fprintf(stderr, "usage: bench_link [FIELDS [ROUNDS]]\n");
        return 2;
    }
    QTemporaryDir directory;
    const bool counts = bench::PrintLinkCounts(directory.filePath(u"counts"_s));
    const QString linkPath = directory.filePath(u"link.sock"_s);
    const QString barePath = directory.filePath(u"bare.sock"_s);

    // The bytes that the send exchanges, for the bare side to carry.
    std::vector<QByteArray> questions, answers;
    for (int i = 0; i < fields; ++i) {
        questions.push_back(conduit::Encode(
            conduit::LinkMessage{i + 1, conduit::Verb::Poke, u"KEL|SMITH"_s, u"UA5|%1|5"_s.arg(i + 1),
                                 i % 2 == 0 ? u"12 Oak Street"_s : u"1850"_s}));
        answers.push_back(conduit::Encode(conduit::LinkAnswer{i + 1, conduit::LinkAnswer::Kind::Ok, {}, 0}));
    }

    const Child linkServer([&] { ServeLink(linkPath); });
    const Child bareServer([&] { ServeBare(barePath, answers); });
    int noArguments = 0;
    QCoreApplication app(noArguments, nullptr);
    WaitForSocket(linkPath);
    WaitForSocket(barePath);

    Bench bench(directory.filePath(u"home"_s), linkPath, fields);
    QLocalSocket bare;
    bare.connectToServer(barePath);
    if (!bare.waitForConnected(5000))
        return 1;

    // Who wakes whom on which processor decides more than the work does, and left to itself the system places
    // a pair now so, now so. Both pairs are therefore measured in each of the two places: the ends together
    // on one processor, and on two. In turn, so that whatever else the machine does meets both alike; the
    // quickest round of each counts.
    double ratio = 0;
    const auto compare = [&](const char* place) {
        double send = 1e9, trips = 1e9;
        for (int round = 0; round < rounds; ++round) {
            send = std::min(send, Seconds([&] { bench.Send(); }));
            trips = std::min(trips, Seconds([&] { RoundTrips(bare, questions); }));
        }
        std::printf("SendBulk of %d fields, %s  %8.3f ms  %6.1f us a field\n", fields, place, send * 1e3,
                    send * 1e6 / fields);
        std::printf("bare round trips                      %8.3f ms  %6.1f us a field\n", trips * 1e3,
                    trips * 1e6 / fields);
        std::printf("ratio                                 %8.2f  (at most 1.50)  %s\n", send / trips,
                    send / trips <= 1.5 ? "ok" : "TOO SLOW");
        ratio = std::max(ratio, send / trips);
    };
    const std::vector<int> processors = Processors();
    if (!processors.empty()) {
        const auto place = [&](int here, int there) {
            Keep(0, {here});
            Keep(linkServer.Process(), {there});
            Keep(bareServer.Process(), {there});
        };
        place(processors.front(), processors.front());
        compare("one processor ");
        if (processors.size() > 1) {
            place(processors.front(), processors.back());
            compare("two processors");
        }
        Keep(0, processors);
        Keep(linkServer.Process(), processors);
    } else {
        compare("anywhere      ");
    }

    // The same for nine comps on their way back.
    questions.clear();
    answers.clear();
    for (int i = 0; i < fields * Bench::kTransferred; ++i) {
        questions.push_back(conduit::Encode(conduit::LinkMessage{
            i + 1, conduit::Verb::Request, u"KEL|SMITH"_s, u"UA5|%1|5"_s.arg(i % fields + 1), {}}));
        answers.push_back(
            conduit::Encode(conduit::LinkAnswer{i + 1, conduit::LinkAnswer::Kind::Text, kCell, 0}));
    }
    const QString cellPath = directory.filePath(u"cell.sock"_s);
    const Child cellServer([&] { ServeBare(cellPath, answers); });
    WaitForSocket(cellPath);
    Bench back(directory.filePath(u"back"_s), linkPath, fields, true);
    const QStringList columns = back.TextColumns().mid(0, fields);
    QLocalSocket cells;
    cells.connectToServer(cellPath);
    if (!cells.waitForConnected(5000))
        return 1;
    // Fifteen milliseconds are long enough for others to come between, so the processor time decides.
    double backRatio = 0;
    const auto compareBack = [&](const char* place) {
        Best transfer, parts;
        for (int round = 0; round < rounds; ++round) {
            transfer.Round(linkServer, [&] { back.Transfer(); });
            parts.Round(cellServer, [&] {
                RoundTrips(cells, questions);
                back.UpdateRecords(columns);
            });
        }
        const double measured = transfer.processor / parts.processor;
        std::printf("TransferComps of 9 comps, %s %8.3f ms  %8.3f ms processor time of both ends\n", place,
                    transfer.wall * 1e3, transfer.processor * 1e3);
        std::printf("bare requests and updates                %8.3f ms  %8.3f ms\n", parts.wall * 1e3,
                    parts.processor * 1e3);
        std::printf("ratio                                    %8.2f     %8.2f  (at most 1.50)  %s\n",
                    transfer.wall / parts.wall, measured, measured <= 1.5 ? "ok" : "TOO SLOW");
        backRatio = std::max(backRatio, measured);
    };
    if (!processors.empty()) {
        const auto place = [&](int here, int there) {
            Keep(0, {here});
            Keep(linkServer.Process(), {there});
            Keep(cellServer.Process(), {there});
        };
        place(processors.front(), processors.front());
        compareBack("one processor ");
        if (processors.size() > 1) {
            place(processors.front(), processors.back());
            compareBack("two processors");
        }
    } else {
        compareBack("anywhere      ");
    }
    return counts && ratio <= 1.5 && backRatio <= 1.5 ? 0 : 1;
}
