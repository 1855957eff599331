// The grid and the look-ups on a Databook of a million comps, against the bare SQLite API in the same run.
// usage: bench_grid [ROWS]

#include "databook/grid.h"
#include "forms/screen.h"
#include "forms/system_ports.h"
#include "platform/engine/sqlite/functions.h"
#include "still_ports.h"
#include "store/schema.h"
#include "store/store.h"

#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <random>
#include <vector>

using namespace Qt::StringLiterals;

using namespace vasclip;

namespace {

/// Processor time of the work, so that whatever else the machine does is left out; the files are in its
/// memory.
double Seconds(const std::function<void()>& work)
{
    const std::clock_t begin = std::clock();
    work();
    return static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
}

/// The quickest of a few runs: what the work takes when nothing else does.
double Best(int runs, const std::function<void()>& work)
{
    double best = Seconds(work);
    for (int run = 1; run < runs; ++run)
        best = std::min(best, Seconds(work));
    return best;
}

QString KeyOf(qint64 row)
{
    // Spread over the index, as addresses are.
    return u"%1 STREET %2"_s.arg((row * 7919) % 100003).arg(row).leftJustified(35);
}

void Fill(engine::Engine& engine, const QString& path, qint64 rows)
{
    store::MakeDatabase(engine, path);
    const auto database = engine.OpenDatabase(path, engine::OpenMode::Exclusive);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    engine::Transaction all(*database);
    std::mt19937 random(7);
    for (qint64 row = 0; row < rows; ++row) {
        const QString key = KeyOf(row);
        table->AddNew();
        table->SetValue(u"CENTRALKEY"_s, key);
        table->SetValue(u"ADDRESS"_s, key);
        table->SetValue(u"CITY"_s, u"Elm Grove"_s);
        table->SetValue(u"ST"_s, u"WA"_s);
        table->SetValue(u"ZIP"_s, QString::number(98000 + row % 900));
        table->SetValue(u"GLA"_s, QString::number(700 + random() % 4000));
        table->SetValue(u"SELLINGPR"_s, QString::number(50000 + random() % 950000));
        table->SetValue(u"SALEDATE"_s, u"3/%1/2004"_s.arg(1 + row % 28));
        table->SetValue(u"PHOTOS"_s, u"FRONT VIEW|ABCDEFGH\r\n"_s);
        table->SetValue(u"FRONT"_s, u"1"_s);
        table->Update();
    }
    all.Commit();
}

/// Resident memory of this process that no file backs, in bytes: what was allocated, without the page cache.
qint64 OwnMemory()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("RssAnon:"))
            return line.mid(8).trimmed().split(' ').first().toLongLong() * 1024;
    return 0;
}

/// A second handle on the file, as the peer that everything is measured against.
class Bare
{
public:
    explicit Bare(const QString& native)
    {
        sqlite3_open_v2(native.toUtf8().constData(), &m_handle, SQLITE_OPEN_READONLY, nullptr);
        engine::RegisterCollation(m_handle);
    }
    ~Bare() { sqlite3_close(m_handle); }
    sqlite3_stmt* Prepare(const char* sql)
    {
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_prepare_v2(m_handle, sql, -1, &statement, nullptr) != SQLITE_OK) {
            std::fprintf(stderr, "%s: %s\n", sql, sqlite3_errmsg(m_handle));
            std::exit(1);
        }
        return statement;
    }

private:
    sqlite3* m_handle = nullptr;
};

void Line(const char* what, double value, const char* unit, double limit)
{
    std::printf("%-58s %10.3f %-6s (at most %g)%s\n", what, value, unit, limit,
                value > limit ? "  OVER" : "");
}

} // namespace

int main(int argc, char** argv)
{
    const qint64 count = argc > 1 ? std::atoll(argv[1]) : 1'000'000;
    const QTemporaryDir home;
    const files::Disk disk(home.path());
    const bench::StoppedClock time;
    engine::Engine engine(disk, time);
    bench::Nobody prompter;
    bench::NoEvents pump;
    bench::StoppedClock clock;
    bench::FixedNumber random;
    bench::NoWindow window;
    forms::NoScreens screens;
    const forms::Ports ports{prompter, pump, clock, random, window, screens};
    const QString path = u"C:\\DATABOOK.MDB"_s;
    std::printf("%lld comps, made in %.1f s\n", static_cast<long long>(count),
                Seconds([&] { Fill(engine, path, count); }));

    store::Sources sources(engine);
    store::Connect2mdb(ports, sources.datDatabook, path, u"COMPS"_s, store::SourceKind::Table);
    sources.datsql.SetDatabaseName(path);
    Bare bare(disk.ToNative(path));

    // Look-ups: the same 20,000 keys, warm.
    constexpr int kLookups = 20'000;
    std::mt19937_64 dice(11);
    std::vector<QString> keys;
    for (int i = 0; i < kLookups; ++i)
        keys.push_back(KeyOf(static_cast<qint64>(dice() % static_cast<std::uint64_t>(count))));
    int found = 0;
    const double ours = Best(5, [&] {
        for (const QString& key : keys)
            found += store::FindRecord(ports, sources.datDatabook, key, u"CENTRALKEY"_s);
    });
    std::vector<QByteArray> bytes;
    for (const QString& key : keys)
        bytes.push_back(key.toUtf8());
    sqlite3_stmt* lookup = bare.Prepare("SELECT rowid FROM COMPS WHERE CENTRALKEY = ?1");
    const double theirs = Best(5, [&] {
        for (const QByteArray& key : bytes) {
            sqlite3_bind_text(lookup, 1, key.constData(), static_cast<int>(key.size()), SQLITE_STATIC);
            found += sqlite3_step(lookup) == SQLITE_ROW && sqlite3_column_int64(lookup, 0) > 0;
            sqlite3_reset(lookup);
        }
    });
    sqlite3_finalize(lookup);
    if (found != 10 * kLookups) {
        std::fprintf(stderr, "only %d of %d look-ups found their record\n", found, 10 * kLookups);
        return 1;
    }
    std::printf("a look-up: FindRecord %.2f us, bare %.2f us\n", ours / kLookups * 1e6,
                theirs / kLookups * 1e6);
    Line("FindRecord, times a bare prepared look-up", ours / theirs, "x", 2);

    // The grid by price: keys and the first screen.
    constexpr int kScreen = 40;
    forms::ControlSet set;
    databook::RecordDesk desk(set);
    databook::GridRows rows(sources.datsql);
    const qint64 before = OwnMemory();
    const auto open = [&] {
        databook::DisplayAllRecords(ports, desk, sources.datsql, rows, 3);
        for (int row = 0; row < kScreen; ++row)
            if (rows.Row(row).isEmpty())
                std::exit(1);
    };
    open();
    const double memory = static_cast<double>(OwnMemory() - before) / static_cast<double>(count);
    const double grid = Best(3, open);
    const double query = Best(3, [&] {
        sqlite3_stmt* all = bare.Prepare("SELECT rowid FROM COMPS ORDER BY CAST(SELLINGPR AS REAL) DESC");
        std::vector<qint64> ids;
        while (sqlite3_step(all) == SQLITE_ROW)
            ids.push_back(sqlite3_column_int64(all, 0));
        sqlite3_finalize(all);
        if (static_cast<qint64>(ids.size()) != count)
            std::exit(1);
    });
    std::printf("the grid by price: ours %.3f s, bare keys %.3f s\n", grid, query);
    Line("opening the grid, times the bare query of the keys", grid / query, "x", 1.5);
    Line("memory of the open grid", memory, "B/row", 40);

    // Scrolling anywhere: one row each time, then a screen.
    std::vector<double> jumps;
    for (int i = 0; i < 5'000; ++i) {
        const qint64 row = static_cast<qint64>(dice() % static_cast<std::uint64_t>(count));
        jumps.push_back(Seconds([&] {
            if (rows.Row(row).isEmpty())
                std::exit(1);
        }));
    }
    std::sort(jumps.begin(), jumps.end());
    std::printf("a jump to a row: median %.3f ms, 99th of 100 %.3f ms\n", jumps[jumps.size() / 2] * 1e3,
                jumps[jumps.size() * 99 / 100] * 1e3);
    Line("a jump to any row, the slowest of 5,000", jumps.back() * 1e3, "ms", 2);
    double slowest = 0;
    for (int i = 0; i < 500; ++i) {
        const qint64 top =
            static_cast<qint64>(dice() % static_cast<std::uint64_t>(std::max<qint64>(1, count - kScreen)));
        slowest = std::max(slowest, Seconds([&] {
                               for (int row = 0; row < kScreen; ++row)
                                   (void)rows.Row(top + row);
                           }));
    }
    std::printf("a jump to a whole screen of %d rows, the slowest of 500: %.3f ms\n", kScreen, slowest * 1e3);
    return 0;
}
