// Measures the engine against the bare SQLite interface on one large Databook, in one run.
//   VASCLIP_BENCH_RECORDS=1000000  records of the Databook (made once in a temporary directory)
//   VASCLIP_BENCH_DIR=DIR          keeps the Databook there for the next run

#include "platform/engine/collation.h"
#include "platform/engine/database.h"
#include "platform/engine/sqlite/functions.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <random>
#include <sqlite3.h>

#include <malloc.h>

namespace {

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

const QString kFile = u"C:\\DATABOOK.MDB"_s;
const QString kGrid =
    u"SELECT COMPS.FRONT,COMPS.CENTRALKEY,COMPS.ADDRESS, COMPS.PHOTOS, COMPS.CITY, COMPS.GLA, "
    "COMPS.SELLINGPR, COMPS.SALEDATE FROM COMPS ORDER BY COMPS.SELLINGPR DESC"_s;

qint64 Records()
{
    const qint64 wanted = qEnvironmentVariable("VASCLIP_BENCH_RECORDS").toLongLong();
    return wanted > 0 ? wanted : 1'000'000;
}

QString Key(qint64 number)
{
    // Spread over the index as addresses are.
    const qint64 spread = number * 7919 % 1'000'003;
    return u"%1 %2 STREET APT %3"_s
        .arg(QString::number(100 + spread % 9899),
             QString::number(spread / 9899 + 1) + QChar(u'A' + static_cast<int>(spread % 26)),
             QString::number(number))
        .leftJustified(35);
}

struct OneMoment : text::TimeSource
{
    [[nodiscard]] QDateTime Now() const override { return QDateTime(QDate(2024, 5, 17), QTime(9, 0)); }
};

struct Databook
{
    Databook()
    {
        const QString kept = qEnvironmentVariable("VASCLIP_BENCH_DIR");
        home = std::make_unique<files::Disk>(kept.isEmpty() ? scratch.path() : kept);
        engine = std::make_unique<engine::Engine>(*home, time);
        native = home->ToNative(kFile);
        if (!QFileInfo::exists(native))
            Make();
    }

    void Make() const
    {
        engine::TableDef table;
        table.name = u"COMPS"_s;
        const auto add = [&](const QString& name, int size, engine::SortsAs sorts = engine::SortsAs::Text) {
            engine::Field field;
            field.name = name;
            field.size = size;
            field.sortsAs = sorts;
            if (size == 0)
                field.type = name == u"PHOTOS" ? engine::FieldType::Memo : engine::FieldType::LongBinary;
            table.fields.append(field);
        };
        add(u"CENTRALKEY"_s, 35);
        add(u"COMPID"_s, 7);
        add(u"FRONT"_s, 1);
        add(u"ADDRESS"_s, 35);
        add(u"CITY"_s, 20);
        add(u"GLA"_s, 5, engine::SortsAs::Number);
        add(u"SELLINGPR"_s, 7, engine::SortsAs::Number);
        add(u"SALEDATE"_s, 10, engine::SortsAs::Date);
        for (int i = 1; i <= 120; ++i)
            add(u"FIELD%1"_s.arg(i), 20);
        add(u"PHOTOS"_s, 0);
        add(u"FRONTPHOTO"_s, 0);
        table.indexes = {{u"Centralkey"_s, {u"CENTRALKEY"_s}, true, true}};

        const auto database = engine->CreateDatabase(kFile);
        database->CreateTable(table);
        const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
        std::mt19937 random(4711);
        engine::Transaction all(*database);
        for (qint64 i = 0; i < Records(); ++i) {
            rows->AddNew();
            rows->SetValue(0, Key(i));
            rows->SetValue(2, u"1"_s);
            rows->SetValue(3, Key(i));
            rows->SetValue(4, i % 3 ? u"SALEM"_s : u"Dover"_s);
            rows->SetValue(5, QString::number(600 + random() % 4000));
            rows->SetValue(6, QString::number(40'000 + random() % 900'000));
            rows->SetValue(
                7, u"%1/%2/%3"_s.arg(1 + random() % 12).arg(1 + random() % 28).arg(1990 + random() % 30));
            for (int field = 8; field < 38; ++field)
                rows->SetValue(field, u"ABOVE AVG"_s);
            rows->SetValue(128, u"FRONT VIEW|ABCDEFGH\r\n"_s);
            rows->Update();
        }
        all.Commit();
    }

    QTemporaryDir scratch;
    std::unique_ptr<files::Disk> home;
    OneMoment time;
    std::unique_ptr<engine::Engine> engine;
    QString native;
};

/// A plain SQLite connection with the same collation and the number function.
struct Bare
{
    explicit Bare(const QString& path)
    {
        sqlite3_open_v2(path.toUtf8().constData(), &handle, SQLITE_OPEN_READWRITE, nullptr);
        engine::RegisterCollation(handle);
    }
    ~Bare() { sqlite3_close(handle); }
    sqlite3* handle = nullptr;
};

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

int failures = 0;

void Report(const char* what, double value, const char* unit, double limit)
{
    const bool kept = value <= limit;
    failures += kept ? 0 : 1;
    std::printf("%-58s %8.2f %-6s limit %5.1f  %s\n", what, value, unit, limit, kept ? "kept" : "BROKEN");
}

std::vector<QString> RandomKeys(int count)
{
    std::mt19937_64 random(99);
    std::vector<QString> keys;
    for (int i = 0; i < count; ++i)
        keys.push_back(Key(static_cast<qint64>(random() % static_cast<quint64>(Records()))));
    return keys;
}

void FindRecords(const Databook& book)
{
    constexpr int kRounds = 7;
    constexpr int kLookUps = 20'000;
    const std::vector<QString> keys = RandomKeys(kLookUps);
    std::vector<QByteArray> utf8;
    for (const QString& key : keys)
        utf8.push_back(key.toUtf8());
    const Bare bare(book.native);
    const auto database = book.engine->OpenDatabase(kFile);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v3(bare.handle, "SELECT vas_id FROM COMPS WHERE CENTRALKEY = ?1", -1,
                       SQLITE_PREPARE_PERSISTENT, &statement, nullptr);
    std::vector<double> ratios;
    qint64 found = 0;
    double ours = 0;
    for (int round = 0; round < kRounds; ++round) {
        QElapsedTimer clock;
        clock.start();
        for (const QByteArray& key : utf8) {
            sqlite3_bind_text(statement, 1, key.constData(), static_cast<int>(key.size()), SQLITE_STATIC);
            found += sqlite3_step(statement) == SQLITE_ROW ? 1 : 0;
            sqlite3_reset(statement);
        }
        const auto plain = static_cast<double>(clock.nsecsElapsed());
        clock.restart();
        for (const QString& key : keys) {
            table->SetIndex(u"Centralkey"_s);
            table->Seek(u"="_s, key.trimmed());
            found -= table->NoMatch() ? 0 : 1;
        }
        ours = static_cast<double>(clock.nsecsElapsed());
        ratios.push_back(ours / plain);
    }
    sqlite3_finalize(statement);
    if (found != 0)
        std::printf("the look-ups disagree by %lld records\n", static_cast<long long>(found));
    std::printf("one look-up takes %.2f us\n", ours / kLookUps / 1000);
    Report("look-up by key / prepared look-up of SQLite", Median(ratios), "x", 2.0);
}

qint64 BytesInUse()
{
    const struct mallinfo2 info = mallinfo2();
    return static_cast<qint64>(info.uordblks + info.hblkhd);
}

void OpenGrid(const Databook& book)
{
    constexpr int kRounds = 5;
    const Bare bare(book.native);
    const auto database = book.engine->OpenDatabase(kFile);
    std::vector<double> ratios;
    double seconds = 0;
    for (int round = 0; round < kRounds; ++round) {
        QElapsedTimer clock;
        clock.start();
        {
            sqlite3_stmt* statement = nullptr;
            sqlite3_prepare_v2(bare.handle, "SELECT vas_id FROM COMPS ORDER BY CAST(SELLINGPR AS REAL) DESC",
                               -1, &statement, nullptr);
            std::vector<qint64> ids;
            while (sqlite3_step(statement) == SQLITE_ROW)
                ids.push_back(sqlite3_column_int64(statement, 0));
            sqlite3_finalize(statement);
            benchmark::DoNotOptimize(ids.data());
        }
        const auto plain = static_cast<double>(clock.nsecsElapsed());
        clock.restart();
        const auto grid = database->OpenRecordset(kGrid, engine::RecordsetType::Dynaset);
        for (qint64 row = 0; row < std::min<qint64>(50, grid->RecordCount()); ++row)
            benchmark::DoNotOptimize(grid->Peek(row, {0, 1, 2, 3, 4, 5, 6, 7}));
        const auto ours = static_cast<double>(clock.nsecsElapsed());
        seconds = ours / 1e9;
        ratios.push_back(ours / plain);
    }
    std::printf("the grid opens in %.2f s\n", seconds);
    Report("grid sorted by price, first 50 rows / SQLite keys", Median(ratios), "x", 1.5);

    const qint64 before = BytesInUse();
    const auto grid = database->OpenRecordset(kGrid, engine::RecordsetType::Dynaset);
    Report("memory of the open grid, bytes a record",
           static_cast<double>(BytesInUse() - before) / static_cast<double>(grid->RecordCount()), "bytes",
           40.0);

    std::mt19937_64 random(7);
    double worst = 0;
    double total = 0;
    constexpr int kPeeks = 2000;
    for (int i = 0; i < kPeeks; ++i) {
        const auto row = static_cast<qint64>(random() % static_cast<quint64>(grid->RecordCount()));
        // Work, not waiting: the machine may be busy with other things.
        const std::clock_t start = std::clock();
        benchmark::DoNotOptimize(grid->Peek(row, {0, 1, 2, 3, 4, 5, 6, 7}));
        const double milliseconds = static_cast<double>(std::clock() - start) * 1000.0 / CLOCKS_PER_SEC;
        worst = std::max(worst, milliseconds);
        total += milliseconds;
    }
    Report("a row at a random place, mean", total / kPeeks, "ms", 2.0);
    Report("a row at a random place, worst of 2000", worst, "ms", 2.0);
}

void Seek(benchmark::State& state, const Databook& book)
{
    const auto database = book.engine->OpenDatabase(kFile);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    table->SetIndex(u"Centralkey"_s);
    const std::vector<QString> keys = RandomKeys(1000);
    std::size_t next = 0;
    for (auto _ : state) {
        table->Seek(u"="_s, keys[next++ % keys.size()]);
        benchmark::DoNotOptimize(table->NoMatch());
    }
}

void Move(benchmark::State& state, const Databook& book)
{
    const auto database = book.engine->OpenDatabase(kFile);
    const auto table = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    table->SetIndex(u"Centralkey"_s);
    table->MoveFirst();
    for (auto _ : state) {
        benchmark::DoNotOptimize(table->Value(0));
        table->MoveNext();
        if (table->Eof())
            table->MoveFirst();
    }
}

} // namespace

int main(int argc, char** argv)
{
    const Databook book;
    std::printf("%lld records, %lld MB\n", static_cast<long long>(Records()),
                static_cast<long long>(QFileInfo(book.native).size() >> 20));
    FindRecords(book);
    OpenGrid(book);
    benchmark::RegisterBenchmark("Seek", Seek, std::cref(book));
    benchmark::RegisterBenchmark("MoveNextAndValue", Move, std::cref(book));
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return failures == 0 ? 0 : 1;
}
