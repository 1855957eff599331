#include "link_counts.h"

#include "drops/send_record.h"
#include "forms/screen.h"
#include "link/refresh.h"
#include "link/transfer.h"
#include "still_ports.h"
#include "store/schema.h"
#include "support/counting_back_end.h"
#include "support/recording_conduit.h"

#include <cstdio>
#include <cstdlib>

namespace vasclip::bench {

using namespace Qt::Literals::StringLiterals;

namespace {

constexpr int kComps = 9;

class Yes : public forms::Prompter
{
public:
    forms::Answer MsgBox(forms::Buttons buttons, forms::Icon, const QString& title, const QString& text) override
    {
        if (buttons == forms::Buttons::YesNo)
            return forms::Answer::Yes;
        std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        return forms::Answer::Ok;
    }
    QString OpenDialog(const QString&, const QString&, const QString&) override { return {}; }
    QString ChooseDirectory(const QString&, const QString&) override { return {}; }
};

class CountedTurns : public forms::EventPump
{
public:
    void DoEvents() override { ++turns; }
    int turns = 0;
};

QString KeyOf(int comp)
{
    return u"%1 OAK STREET"_s.arg(11 + comp);
}

/// A report of nine comps, each with an address and an area, and a Databook that has them all.
struct Desk
{
    explicit Desk(const QString& home)
        : disk(home)
    {
        engine.AddBackEnd(std::make_unique<tests::CountingBackEnd>(disk, rows));
        Fill(u"C:\\DATABOOK.MDB"_s, u"COMPS"_s, kComps, [](engine::Recordset& record, int i) {
            record.SetValue(u"CENTRALKEY"_s, KeyOf(i + 1).leftJustified(35));
            record.SetValue(u"ADDRESS"_s, KeyOf(i + 1));
            record.SetValue(u"GLA"_s, u"1850"_s);
            record.SetValue(u"PHOTOS"_s, u"FRONT VIEW|P%1\r\nREAR VIEW|R%1\r\n"_s.arg(i));
        });
        // Three pages of three comps; a row of cells for each field of a page.
        Fill(u"C:\\Comp2Kel.mdb"_s, u"Comp2Kel"_s, 6, [](engine::Recordset& record, int i) {
            record.SetValue(u"FORMTYPE"_s, u"UA5"_s);
            record.SetValue(u"FORMNAME"_s, u"UA5"_s);
            record.SetValue(u"FIELDNAME"_s, i < 3 ? u"ADDRESS"_s : u"GLA"_s);
            record.SetValue(u"ROW"_s, QString::number(i + 5));
            record.SetValue(u"CELL"_s, u"3"_s);
            record.SetValue(u"COMPTYPE"_s, u"SALE"_s);
            record.SetValue(u"COMP"_s, QString::number(i % 3 * 3 + 1));
            record.SetValue(u"OFFSET"_s, u"2"_s);
        });
        store::Connect2Databook(ports, sources, u"C:\\DATABOOK.MDB"_s, u"COMPS"_s);
        store::Connect2mdb(ports, sources.datComp2Kel_CURRENT, u"C:\\Comp2Kel.mdb"_s, u"Comp2Kel"_s,
                           store::SourceKind::Query);
        txtDDE.Answer(u"KEL|Query"_s, u"ActiveReports"_s, u"SMITH,"_s);
        txtDDE.Answer(u"KEL|SMITH"_s, u"ListForms"_s, u"UA5,COMPPAGE,"_s);
        FillReport();
    }

    void Fill(const QString& path, const QString& table, int count,
              const std::function<void(engine::Recordset&, int)>& row)
    {
        store::MakeDatabase(engine, path);
        const auto database = engine.OpenDatabase(path);
        const auto record = database->OpenRecordset(table, engine::RecordsetType::Table);
        for (int i = 0; i < count; ++i) {
            record->AddNew();
            row(*record, i);
            record->Update();
        }
    }
    /// Puts all but the last comp into the report, whose cells a first refresh asks for in their order.
    void FillReport()
    {
        (void)link::RefreshAppraisal(desk);
        for (const QString& entry : txtDDE.Take())
            if (entry.startsWith(u"item UA5|"_s) && entry.section(u'|', 1, 1).toInt() < 8)
                addresses.append(entry.mid(5));
        for (int comp = 1; comp < kComps; ++comp)
            Put(comp);
        (void)link::RefreshAppraisal(desk);
        for (int i = 1; i < kComps; ++i) {
            if (report.txtComp(i).Text() != KeyOf(i)) {
                std::fprintf(stderr, "comp %d of the report is \"%s\"\n", i, qPrintable(report.txtComp(i).Text()));
                std::exit(1);
            }
        }
    }

    /// A comp's address into its cell of the report.
    void Put(int comp) { txtDDE.Answer(u"KEL|SMITH"_s, addresses.value(comp - 1), KeyOf(comp)); }

    QStringList addresses; ///< the cells, from the first comp on
    files::Disk disk;
    StoppedClock clock;
    tests::RowCounts rows;
    engine::Engine engine{disk, clock};
    Yes prompter;
    CountedTurns pump;
    FixedNumber random;
    NoWindow window;
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
    test::RecordingConduit txtDDE;
    link::LinkDesk desk{{.txtDDE = txtDDE,
                         .ports = ports,
                         .status = status,
                         .kelIni =
                             [](const QString& section, const QString& key) {
                                 const bool comps = key.startsWith(u"COMPARABLES_"_s);
                                 return comps && section == u"3X5_PHOTO_PAGES"_s ? u"COMPPAGE"_s : QString();
                             },
                         .fileVersion = {}},
                        {.report = report, .addr = addr, .state = state, .slots = slots, .loader = loader},
                        {.sources = sources, .globals = globals, .lists = lists, .disk = disk}};
};

struct Limits
{
    int seeks, records;
};

/// @return false above the limits
bool Print(Desk& desk, const char* what, const std::function<void()>& work, const Limits* most = nullptr)
{
    desk.rows = {};
    desk.pump.turns = 0;
    work();
    const tests::RowCounts& rows = desk.rows;
    const bool fine = !most || (rows.seeks <= most->seeks && rows.records <= most->records);
    std::printf("%-44s %5d %8d %12d %8d %6d  %s\n", what, rows.seeks, rows.records, rows.photoLists, rows.changes,
                desk.pump.turns, !most ? "" : fine ? "ok" : "TOO MANY");
    return fine;
}

} // namespace

bool PrintLinkCounts(const QString& home)
{
    Desk desk(home);
    const link::SlotRef last{link::Group::Sales, kComps};
    const auto drop = [&] {
        if (drops::SendRecord(desk.desk, last, KeyOf(kComps), drops::WithPhoto::No).message.isEmpty())
            std::exit(1);
    };
    constexpr Limits kDrop{3, 1};
    std::printf("%-44s %5s %8s %12s %8s %6s\n", "eight comps in the report", "seeks", "records", "photo lists",
                "changes", "turns");
    (void)Print(desk, "a refresh", [&] { (void)link::RefreshAppraisal(desk.desk); });
    const bool fine = Print(desk, "a record dropped on the ninth slot", drop, &kDrop);
    desk.Put(kComps);
    desk.txtDDE.unscripted = u"1900"_s; // another area than the records have
    (void)Print(desk, "a transfer of nine comps", [&] {
        const link::TransferTally tally = link::TransferComps(desk.desk, true, 0, link::What::Data);
        if (tally.replaced != kComps) {
            std::fprintf(stderr, "%s\n", qPrintable(tally.Text()));
            std::exit(1);
        }
    });
    return fine;
}

} // namespace vasclip::bench
