// Searching a Databook of a million comps: each control of the search screen against the bare SQLite
// statement that gives the same rows on the same file, the quick-find box a keystroke, its lists, and saving
// a record. usage: bench_search [ROWS]

#include "databook/entry_record.h"
#include "databook/frm_search_sql.h"
#include "databook/quick_find.h"
#include "forms/system_ports.h"
#include "platform/engine/collation.h"
#include "platform/engine/sqlite/functions.h"
#include "still_ports.h"
#include "store/schema.h"
#include "store/store.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtEndian>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <random>
#include <vector>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

/// Processor time, so that what else the machine does is not counted.
double Milliseconds(const std::function<void()>& work)
{
    timespec from{};
    timespec to{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &from);
    work();
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &to);
    return static_cast<double>(to.tv_sec - from.tv_sec) * 1e3 +
           static_cast<double>(to.tv_nsec - from.tv_nsec) / 1e6;
}

/// The time on the wall, for what waits for the disk.
double WallMilliseconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

/// Medians of two works that take turns.
/// @param between  what is done before the first one's next turn, not measured
std::pair<double, double> Medians(
    int rounds, double (*measure)(const std::function<void()>&), const std::function<void()>& first,
    const std::function<void()>& second, const std::function<void()>& between = [] {})
{
    std::vector<double> times[2];
    for (int round = 0; round < rounds; ++round) {
        times[0].push_back(measure(first));
        times[1].push_back(measure(second));
        between();
    }
    for (auto& taken : times)
        std::sort(taken.begin(), taken.end());
    return {times[0][times[0].size() / 2], times[1][times[1].size() / 2]};
}

/// Another program has written to the file; as if one of ours had.
void Stamp(sqlite3* bare)
{
    sqlite3_file* file = nullptr;
    unsigned char number[4] = {};
    if (sqlite3_file_control(bare, "main", SQLITE_FCNTL_FILE_POINTER, static_cast<void*>(&file)) !=
            SQLITE_OK ||
        file->pMethods->xRead(file, number, sizeof number, 24) != SQLITE_OK)
        std::exit(1);
    const QByteArray sql = "PRAGMA user_version=" + QByteArray::number(qFromBigEndian<qint32>(number) + 1);
    sqlite3_exec(bare, sql.constData(), nullptr, nullptr, nullptr);
}

/// Until the index of a file that is opened anew can be asked.
double OpenIndex(files::Disk& disk, const QString& path, const QString& table)
{
    const bench::StoppedClock time;
    engine::Engine engine(disk, time);
    const auto database = engine.OpenDatabase(path);
    return WallMilliseconds([&] {
        while (!database->KeepTextIndex(table, databook::QuickFindFields(), 500).whole) {
        }
    });
}

void Fill(engine::Engine& engine, const QString& path, qint64 rows)
{
    store::MakeDatabase(engine, path);
    const auto database = engine.OpenDatabase(path, engine::OpenMode::Exclusive);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    engine::Transaction all(*database);
    std::mt19937 random(7);
    const QStringList streets{u"OAK ST"_s,      u"MAIN ST"_s,   u"ELM CT"_s,   u"FERRY RD"_s,
                              u"CASCADE AVE"_s, u"ALDER AVE"_s, u"MAPLE DR"_s, u"HIGHLAND BLVD"_s,
                              u"SUNSET LN"_s,   u"2ND ST"_s};
    const QStringList cities{u"Elm Grove"_s, u"Port Vale"_s, u"Springfield"_s, u"Riverside"_s,
                             u"Cedar Falls"_s};
    const QStringList notes{u""_s, u"Corner lot, new roof"_s, u"Fireplace, deck, two car garage"_s,
                            u"Updated kitchen"_s};
    const auto pick = [&](const QStringList& from) { return from[static_cast<int>(random() % from.size())]; };
    for (qint64 row = 0; row < rows; ++row) {
        const QString key = u"%1 %2"_s.arg(QString::number(row), pick(streets)).leftJustified(35);
        table->AddNew();
        table->SetValue(u"CENTRALKEY"_s, key);
        table->SetValue(u"ADDRESS"_s, key);
        table->SetValue(u"CITY"_s, pick(cities));
        table->SetValue(u"ST"_s, row % 3 ? u"WA"_s : u"OR"_s);
        table->SetValue(u"ZIP"_s, QString::number(98000 + row % 900));
        table->SetValue(u"COUNTY"_s, u"King"_s);
        table->SetValue(u"NEIGHBORHD"_s, pick(cities) + u" Hills"_s);
        table->SetValue(u"APPRSLTYPE"_s, u"F"_s);
        table->SetValue(u"BEDROOM"_s, QString::number(1 + random() % 5));
        table->SetValue(u"BATH"_s, u"2"_s);
        table->SetValue(u"AGE"_s, QString::number(random() % 90));
        table->SetValue(u"LANDSIZE"_s, QString::number(3000 + random() % 20000));
        table->SetValue(u"NOTES"_s, pick(notes));
        table->SetValue(u"GLA"_s, QString::number(700 + random() % 4000));
        table->SetValue(u"SELLINGPR"_s, QString::number(50000 + random() % 950000));
        table->SetValue(u"PRICEGLA"_s, QString::number(40 + random() % 300));
        table->SetValue(u"SALEDATE"_s, u"3/%1/2004"_s.arg(1 + row % 28));
        table->SetValue(u"LOADDATE"_s, u"4/%1/2004"_s.arg(1 + row % 28));
        table->Update();
    }
    all.Commit();
}

/// The statement that a SQLite program would write for one control.
QByteArray BareSql(const databook::SearchField& row)
{
    const QByteArray field = QString(row.field).toUtf8();
    const QByteArray from = "SELECT vas_id FROM COMPS WHERE ";
    switch (row.kind) {
    case databook::SearchKind::Like:
        return from + "upper(" + field + ") LIKE '%A1%'";
    case databook::SearchKind::Equal:
        return from + "upper(" + field + ") = 'WA'";
    case databook::SearchKind::NumericRange:
    case databook::SearchKind::TextRange:
        return from + "CAST(" + field + " AS REAL) BETWEEN 999 AND 1001";
    case databook::SearchKind::Date:
        break;
    }
    return from + "vas_date(" + field + ") >= 38066";
}

} // namespace

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    const qint64 rows = argc > 1 ? std::atoll(argv[1]) : 1000000;
    QTemporaryDir dir;
    files::Disk disk(dir.path());
    const bench::StoppedClock time;
    engine::Engine engine(disk, time);
    const QString path = u"C:\\DATABOOK.MDB"_s;
    Fill(engine, path, rows);

    bench::Nobody prompter;
    forms::QtEventPump pump;
    forms::SystemClock clock;
    forms::SystemRandom random;
    bench::NoWindow window;
    forms::NoScreens screens;
    const forms::Ports ports{prompter, pump, clock, random, window, screens};
    forms::ControlSet set;
    databook::RecordDesk desk(set);
    common::StatusDesk status(set);
    common::Globals globals;
    globals.G_Table = u"COMPS"_s;
    store::DataSource datsql(engine, u"datsql"_s);
    databook::GridRows gridRows(datsql);
    store::Connect2mdb(ports, datsql, path, u"COMPS"_s, store::SourceKind::Query);
    databook::QuickFind find(ports, desk, datsql, gridRows, status, globals);
    databook::DisplayAllRecords(ports, desk, datsql, gridRows, 1);

    sqlite3* bare = nullptr;
    sqlite3_open(disk.ToNative(path).toUtf8().constData(), &bare);
    engine::RegisterCollation(bare);
    engine::RegisterFunctions(bare, clock);

    std::printf("%lld records\n", static_cast<long long>(rows));
    for (const databook::SearchField& row : databook::SearchFields()) {
        databook::SearchForm form;
        form.texts[row.control] = row.kind == databook::SearchKind::Like    ? u"a1"_s
                                  : row.kind == databook::SearchKind::Equal ? u"wa"_s
                                  : row.kind == databook::SearchKind::Date  ? u"3/20/2004"_s
                                                                            : u"1000"_s;
        if (row.kind != databook::SearchKind::Date && !row.rangeControl.isEmpty())
            form.texts[row.rangeControl] = u"1"_s;
        const databook::SearchStatement statement = databook::BuildSearch(form);
        qint64 ours = 0;
        qint64 theirs = 0;
        const QByteArray sql = BareSql(row);
        const auto [search, plain] = Medians(
            5, Milliseconds,
            [&] {
                databook::ShowSearch(ports, desk, datsql, gridRows, statement);
                ours = datsql.Recordset().RecordCount();
            },
            [&] {
                std::vector<qint64> ids;
                sqlite3_stmt* query = nullptr;
                sqlite3_prepare_v2(bare, sql.constData(), -1, &query, nullptr);
                while (sqlite3_step(query) == SQLITE_ROW)
                    ids.push_back(sqlite3_column_int64(query, 0));
                sqlite3_finalize(query);
                theirs = static_cast<qint64>(ids.size());
            });
        std::printf("%-14s %8lld rows %8.1f ms, bare %8lld rows %8.1f ms, ratio %.2f\n", row.control.data(),
                    static_cast<long long>(ours), search, static_cast<long long>(theirs), plain,
                    search / plain);
    }

    desk.state = {};
    databook::DisplayAllRecords(ports, desk, datsql, gridRows, 1);
    {
        common::Globals settings;
        databook::frm_SearchSQL screen({ports, disk, settings, desk, datsql, gridRows});
        const double open = Milliseconds([&] { screen.Open(); });
        const auto* keys = qobject_cast<forms::ComboBox*>(screen.Box(u"cboSearchKey"_s));
        const double show = Milliseconds([&] {
            for (int line = 0; line < 200; ++line)
                static_cast<void>(keys->List(line));
        });
        std::printf("search screen: open %.2f ms, %d keys, the first 200 shown in %.2f ms, %lld held\n", open,
                    keys->ListCount(), show, static_cast<long long>(keys->Items().size()));
    }
    double slowest = 0;
    int slices = 0;
    const double made = Milliseconds([&] {
        for (bool more = true; more; ++slices)
            slowest = std::max(slowest, Milliseconds([&] { more = find.Work(); }));
    });
    std::printf("text index: made in %.0f ms, %d slices, the slowest %.1f ms\n", made, slices, slowest);
    const double stamped = OpenIndex(disk, path, globals.G_Table);
    sqlite3_exec(bare, "UPDATE COMPS SET COUNTY = 'Skagit' WHERE vas_id = 1", nullptr, nullptr, nullptr);
    const double compared = OpenIndex(disk, path, globals.G_Table);
    std::printf("text index: ready %.2f ms after opening, %.0f ms after another program has written\n",
                stamped, compared);

    for (const QString& words :
         {u"springfield"_s, u"12345 oak"_s, u"riverside garage"_s, u"zz"_s, u"maple dr cedar"_s}) {
        double worst = 0;
        double rest = 0;
        for (qsizetype length = 1; length <= words.size(); ++length) {
            worst = std::max(worst, Milliseconds([&] {
                                 desk.txtQuickFind.SetText(words.left(length));
                                 // the first screen
                                 const auto* source = desk.grddatabook.Source();
                                 for (qint64 row = 0; row < std::min<qint64>(30, source->RowCount()); ++row)
                                     static_cast<void>(source->Row(row));
                             }));
            while (find.Searching())
                rest = std::max(rest, Milliseconds([&] { static_cast<void>(find.Work()); }));
        }
        std::printf(
            "quick find '%s': keystroke at most %.1f ms, slices after it at most %.1f ms, %lld found\n",
            qPrintable(words), worst, rest, static_cast<long long>(desk.grddatabook.Source()->RowCount()));
    }
    desk.txtQuickFind.SetText({});

    // The triggers note a changed city; the bare statement changes a field that the index does not hold.
    const databook::EntryDesk entry{ports, engine, path, globals.G_Table, {}, nullptr, &datsql};
    databook::EntryRecord record(entry, databook::EntryForms().front(), gridRows.Row(0).value(1));
    if (!record.Open())
        return 1;
    sqlite3_stmt* update = nullptr;
    sqlite3_prepare_v2(
        bare,
        "UPDATE COMPS SET COUNTY = ?1, MODIFIEDDATE = '5/17/2024', vas_version = vas_version + 1 "
        "WHERE vas_id = 5000",
        -1, &update, nullptr);
    int number = 0;
    Stamp(bare);
    const auto [save, durable] = Medians(
        200, WallMilliseconds,
        [&] {
            record.SetText(u"CITY"_s, u"City %1"_s.arg(++number));
            if (record.Save() != databook::Stored::Done)
                std::exit(1);
        },
        [&] {
            const QByteArray county = QByteArray("County ") + QByteArray::number(++number);
            sqlite3_bind_text(update, 1, county.constData(), -1, SQLITE_TRANSIENT);
            if (sqlite3_step(update) != SQLITE_DONE)
                std::exit(1);
            sqlite3_reset(update);
        },
        [&] { Stamp(bare); });
    std::printf("save one comp with the index %.2f ms, bare durable update without it %.2f ms, ratio %.2f\n",
                save, durable, save / durable);
    sqlite3_finalize(update);
    sqlite3_close(bare);
    return 0;
}
