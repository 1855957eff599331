// Records out of the Databook and in again, beside a bare INSERT ... SELECT between two SQLite files with the same
// indexes; pictures beside copying the same bytes, and the memory that one picture takes, by its size; a rehearsal against
// many records.
// usage: bench_upkeep [RECORDS [PICTURES [REHEARSED [DATABOOK]]]]

#include "still_ports.h"

#include "forms/screen.h"
#include "store/bulk_rows.h"
#include "store/fields.h"
#include "store/record.h"
#include "store/schema.h"
#include "store/store.h"
#include "upkeep/export_table.h"
#include "upkeep/import_table.h"
#include "upkeep/rehearsal.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace vasclip;
using namespace Qt::StringLiterals;

namespace {

const QString kTable = u"COMPS"_s;
constexpr qsizetype kPictureBytes = 200 * 1024;

double Seconds(const std::function<void()>& work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

/// The best of three: a busy machine only adds.
double Best(const std::function<void()>& prepare, const std::function<void()>& work)
{
    double best = 1e9;
    for (int round = 0; round < 3; ++round) {
        prepare();
        best = std::min(best, Seconds(work));
    }
    return best;
}

struct Bench
{
    QTemporaryDir directory;
    files::Disk disk{directory.path()};
    bench::StoppedClock clock;
    engine::Engine engine{disk, clock};
    bench::Nobody prompter{forms::Answer::Yes};
    bench::NoEvents pump;
    bench::FixedNumber random;
    bench::NoWindow window;
    forms::NoScreens screens;
    forms::Ports ports{prompter, pump, clock, random, window, screens};
    common::Globals globals;
    store::DataSource databook{engine, u"datDatabook"_s};

    Bench()
    {
        for (const QString& name : {u"C:\\JPG"_s, u"C:\\OUT"_s, u"C:\\USER"_s, u"C:\\COPY"_s})
            disk.MkDir(name);
        globals.G_Table = kTable;
        globals.G_DataDir = globals.G_ProgramDir = u"C:\\"_s;
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
        globals.writeProtectPhotos = false;
    }
    upkeep::TransferDesk Desk() { return {.databook = databook, .globals = globals, .ports = ports}; }
    QString Native(const QString& path) const { return disk.ToNative(path); }
    void Kill(const QString& path) const
    {
        if (disk.Found(path, files::ReadOnly))
            disk.Kill(path);
    }
    void Make(const QString& path, qint64 from, qint64 count, bool pictures)
    {
        Kill(path);
        store::MakeDatabase(engine, path);
        const auto database = engine.OpenDatabase(path);
        engine::Transaction all(*database);
        const auto rows = database->OpenRecordset(kTable, engine::RecordsetType::Table);
        for (qint64 i = from; i < from + count; ++i) {
            const QString address = u"%1 %2 MEADOW %3 ROAD"_s.arg(i % 9000 + 1).arg(i % 2 ? u"NORTH"_s : u"SOUTH"_s).arg(i);
            rows->AddNew();
            rows->SetValue(fields::CENTRALKEY, address.leftJustified(35, u' ', true));
            rows->SetValue(fields::ADDRESS, address.left(35));
            rows->SetValue(fields::CITY, u"CALDER"_s);
            rows->SetValue(fields::ST, u"OR"_s);
            rows->SetValue(fields::ZIP, u"97001"_s);
            rows->SetValue(fields::GLA, QString::number(1000 + i % 2500));
            rows->SetValue(fields::SELLINGPR, QString::number(150000 + i % 400000));
            rows->SetValue(fields::SALEDATE, u"%1/%2/2019"_s.arg(i % 12 + 1).arg(i % 28 + 1));
            rows->SetValue(fields::PHOTOS, pictures ? u"FRONT VIEW|%1\r\n"_s.arg(i, 8, 10, QChar(u'0')) : u" "_s);
            rows->Update();
        }
        rows->Close();
        all.Commit();
        database->Close();
    }
    void Bind(const QString& path) { databook.Open(path, kTable, store::SourceKind::Table); }
};

bool GoesOn(qint64, qint64, const QString&)
{
    return true;
}

/// The rows of one file into an empty one, by SQLite alone.
void Bare(const QString& from, const QString& into)
{
    sqlite3* handle = nullptr;
    sqlite3_open(into.toUtf8().constData(), &handle);
    sqlite3_create_collation(handle, "VAS", SQLITE_UTF8, nullptr, [](void*, int n, const void* a, int m, const void* b) {
        const int order = sqlite3_strnicmp(static_cast<const char*>(a), static_cast<const char*>(b), std::min(n, m));
        return order != 0 ? order : n - m;
    });
    const QByteArray sql = "ATTACH '" + from.toUtf8() + "' AS source; INSERT OR IGNORE INTO COMPS SELECT * FROM source.COMPS WHERE CENTRALKEY IS NOT NULL";
    char* message = nullptr;
    if (sqlite3_exec(handle, sql.constData(), nullptr, nullptr, &message) != SQLITE_OK)
        std::fprintf(stderr, "bare copy: %s\n", message);
    sqlite3_close(handle);
}

void Told(const char* what, double ours, double bare, double limit)
{
    std::printf("%-34s %8.2f s beside %8.2f s  ratio %5.2f (limit %.1f)%s\n", what, ours, bare, ours / bare, limit,
                ours / bare > limit ? "  MISSED" : "");
}

void Records(Bench& bench, qint64 count)
{
    const QString source = u"C:\\SOURCE.MDB"_s;
    const QString target = u"C:\\OUT\\OUT.MDB"_s;
    bench.Make(source, 0, count, false);
    const QString empty = u"C:\\OUT\\EMPTY.MDB"_s;
    const double bare = Best(
        [&] {
            bench.Kill(empty);
            store::MakeDatabase(bench.engine, empty);
        },
        [&] { Bare(bench.Native(source), bench.Native(empty)); });
    bench.Bind(source);
    if (qEnvironmentVariableIsSet("BENCH_PARTS")) {
        QStringList keys;
        std::printf("keys %.2f\n", Seconds([&] {
            const store::Rows rows = store::ReadRows(bench.databook, u"SELECT CENTRALKEY FROM [COMPS] ORDER BY CENTRALKEY"_s);
            for (qint64 at = 0; at < rows.Count(); ++at)
                keys.append(rows.At(at)->Values().first().toString());
        }));
        std::printf("there %.2f\n", Seconds([&] { (void)upkeep::KeysThere(bench.databook, kTable, keys); }));
        std::printf("plan %.2f\n", Seconds([&] {
            const auto database = bench.engine.OpenDatabase(source);
            (void)upkeep::PlanImport(bench.Desk(), *database, kTable);
        }));
        std::printf("into %.2f\n", Seconds([&] {
            bench.Kill(target);
            const auto database = bench.engine.CreateDatabase(target);
            (void)store::CopyRows(*database, {u"SELECT * INTO [T] FROM [C:\\SOURCE.MDB].[COMPS]"_s});
        }));
        std::printf("index %.2f\n", Seconds([&] { store::CreateIndex(bench.engine, target, u"T"_s); }));
    }
    const double out = Best([&] { bench.Kill(target); },
                            [&] { (void)upkeep::ExportTable(bench.Desk(), {.target = target, .table = kTable, .search = {}}, GoesOn); });
    const QString mine = u"C:\\MINE.MDB"_s;
    const double in = Best(
        [&] {
            bench.databook.Close();
            bench.Kill(mine);
            store::MakeDatabase(bench.engine, mine);
            bench.Bind(mine);
        },
        [&] { (void)upkeep::ImportTable(bench.Desk(), {.source = source, .table = kTable, .pictures = false}, GoesOn); });
    Told("export", out, bare, 2);
    Told("import", in, bare, 2);
    bench.databook.Close();
}

void Pictures(Bench& bench, int count)
{
    const QString source = u"C:\\SOURCE.MDB"_s;
    const QString target = u"C:\\OUT\\PICTURES.MDB"_s;
    QByteArray picture("\xFF\xD8\xFF");
    picture.resize(kPictureBytes, 'x');
    for (int i = 0; i < count; ++i)
        bench.disk.WriteWhole(u"C:\\JPG\\%1.jpg"_s.arg(i, 8, 10, QChar(u'0')), picture);
    bench.Make(source, 0, count, true);
    const double bare = Best([&] { bench.Kill(u"C:\\COPY\\*.jpg"_s); },
                             [&] {
                                 for (int i = 0; i < count; ++i) {
                                     const QString name = u"%1.jpg"_s.arg(i, 8, 10, QChar(u'0'));
                                     bench.disk.FileCopy(u"C:\\JPG\\"_s + name, u"C:\\COPY\\"_s + name);
                                 }
                             });
    bench.Kill(u"C:\\COPY\\*.jpg"_s);
    bench.Bind(source);
    const double out = Best([&] { bench.Kill(target); }, [&] {
        (void)upkeep::ExportTable(bench.Desk(), {.target = target, .table = kTable, .search = {}, .pictures = true}, GoesOn);
    });
    const QString mine = u"C:\\MINE.MDB"_s;
    const double in = Best(
        [&] {
            bench.databook.Close();
            bench.Kill(mine);
            bench.Kill(u"C:\\JPG\\*.jpg"_s);
            store::MakeDatabase(bench.engine, mine);
            bench.Bind(mine);
        },
        [&] { (void)upkeep::ImportTable(bench.Desk(), {.source = target, .table = kTable, .pictures = true}, GoesOn); });
    Told("export with pictures", out, bare, 1.5);
    Told("import with pictures", in, bare, 1.5);
    bench.databook.Close();
}

double MegabytesHeld(const char* mark)
{
    QFile status(u"/proc/self/status"_s);
    if (status.open(QIODevice::ReadOnly))
        for (const QByteArray& line : status.readAll().split('\n'))
            if (line.startsWith(mark))
                return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

/// The most that a work held beyond what was held before it, in megabytes.
double Peak(const std::function<void()>& work)
{
    QFile forget(u"/proc/self/clear_refs"_s);
    if (!forget.open(QIODevice::WriteOnly) || forget.write("5") != 1 || !forget.flush())
        return -1;
    const double before = MegabytesHeld("VmRSS:");
    work();
    return MegabytesHeld("VmHWM:") - before;
}

/// One picture of each size, out and in by both kinds of file.
void OneLargePicture(Bench& bench)
{
    const QString source = u"C:\\SOURCE.MDB"_s;
    const QString mine = u"C:\\MINE.MDB"_s;
    const QString picture = u"C:\\JPG\\00000000.jpg"_s;
    for (const bool access : {false, true}) {
        const QString target = access ? u"C:\\OUT\\ONE_ACCESS.MDB"_s : u"C:\\OUT\\ONE.MDB"_s;
        for (const int megabytes : {1, 8, 64}) {
            bench.databook.Close();
            bench.Make(source, 0, 1, true);
            {
                QFile file(bench.Native(picture));
                if (!file.open(QIODevice::WriteOnly) || file.write("\xFF\xD8\xFF") != 3 || !file.resize(qint64{megabytes} << 20))
                    return;
            }
            bench.Kill(target);
            bench.Bind(source);
            const double out = Peak([&] {
                (void)upkeep::ExportTable(
                    bench.Desk(), {.target = target, .table = kTable, .search = {}, .pictures = true, .access = access}, GoesOn);
            });
            bench.databook.Close();
            bench.Kill(picture);
            bench.Kill(mine);
            store::MakeDatabase(bench.engine, mine);
            bench.Bind(mine);
            const double in = Peak([&] {
                (void)upkeep::ImportTable(bench.Desk(), {.source = target, .table = kTable, .pictures = true}, GoesOn);
            });
            const bool there = bench.disk.FileExists(picture) && bench.disk.FileLen(picture) == qint64{megabytes} << 20;
            std::printf("one picture of %2d MB, %-7s  export holds %5.1f MB more, import %5.1f MB%s\n", megabytes,
                        access ? "Access" : "Vasclip", out, in, there ? "" : "  LOST");
        }
    }
    bench.databook.Close();
    bench.Kill(picture);
}

void Rehearsed(Bench& bench, qint64 rows, qint64 records)
{
    const QString mine = u"C:\\MINE.MDB"_s;
    const QString theirs = u"C:\\SOURCE.MDB"_s;
    bench.Make(mine, 0, records, false);
    bench.Make(theirs, records - rows / 2, rows, false);
    bench.Bind(mine);
    double best = 1e9;
    double computing = 1e9; // other work on the machine leaves the time of the processor as it is
    qint64 longest = 0; // that the window waits for its turn, in milliseconds
    for (int round = 0; round < 3; ++round) {
        QElapsedTimer since;
        qint64 still = 0;
        const auto step = [&](qint64, qint64, const QString&) {
            still = std::max(still, since.restart());
            return true;
        };
        since.start();
        const std::clock_t before = std::clock();
        best = std::min(best, Seconds([&] {
            const upkeep::Rehearsal rehearsal(bench.Desk(), {.source = theirs, .table = kTable, .pictures = false}, step);
            step(0, 0, {});
            if (round == 0)
                std::printf("%s\n", qPrintable(upkeep::SummaryOf(rehearsal)));
        }));
        computing = std::min(computing, static_cast<double>(std::clock() - before) / CLOCKS_PER_SEC);
        longest = round == 0 ? still : std::min(longest, still);
    }
    std::printf("rehearsal of %lld against %lld       %8.2f s, %.2f s of them computing (limit 5)%s\n",
                static_cast<long long>(rows), static_cast<long long>(records), best, computing, best > 5 ? "  MISSED" : "");
    std::printf("the window has its turn after %lld ms at most\n", static_cast<long long>(longest));
    bench.databook.Close();
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList given = QCoreApplication::arguments();
    const auto number = [&](int at, qint64 otherwise) { return given.size() > at ? given.at(at).toLongLong() : otherwise; };
    Bench bench;
    OneLargePicture(bench);
    Records(bench, number(1, 100000));
    Pictures(bench, static_cast<int>(number(2, 1000)));
    Rehearsed(bench, number(3, 10000), number(4, 1000000));
    return 0;
}
