// Recalculating 100,000 records, with the account of every field, beside the bare update of the same fields of the same
// records in one transaction, in processor time. usage: bench_maintenance [DIRECTORY [RECORDS]]; the files lie there, by default here

#include "databook/databook_upgrade.h"
#include "forms/screen.h"
#include "platform/engine/sqlite/functions.h"
#include "still_ports.h"
#include "store/schema.h"
#include "store/store.h"
#include "upkeep/repairs.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <sqlite3.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

using namespace vasclip;
using namespace Qt::Literals::StringLiterals;

namespace {

const QString kPath = u"C:\\DATABOOK.MDB"_s;
const QString kFresh = u"C:\\FRESH.MDB"_s;

void Check(int code, sqlite3* handle)
{
    if (code == SQLITE_OK || code == SQLITE_DONE)
        return;
    std::fprintf(stderr, "%s\n", sqlite3_errmsg(handle));
    std::exit(1);
}

/// Records that a recalculation changes in six fields each.
void Fill(engine::Engine& engine, int records)
{
    store::MakeDatabase(engine, kFresh);
    const auto database = engine.OpenDatabase(kFresh);
    engine::Transaction all(*database);
    const auto rows = database->OpenRecordset(u"COMPS"_s, engine::RecordsetType::Table);
    for (int i = 0; i < records; ++i) {
        const QString key = u"%1 ELM ST"_s.arg(i);
        rows->AddNew();
        for (const auto& [field, value] :
             {std::pair{u"CENTRALKEY"_s, key.leftJustified(35)}, {u"ADDRESS"_s, key.leftJustified(35)},
              {u"CITY"_s, u"Alder"_s}, {u"NOTES"_s, u"A quiet street behind the mill"_s},
              {u"SELLINGPR"_s, QString::number(200000 + i)}, {u"GLA"_s, u"1860"_s}, {u"YEARBUILT"_s, u"1985"_s},
              {u"SALEDATE"_s, u"3/7/2004"_s}, {u"LOADDATE"_s, u"4/9/2004"_s},
              {u"PHOTOS"_s, u"FRONT VIEW|%1\r\n"_s.arg(i, 8, 36, QChar(u'0'))}})
            rows->SetValue(field, value);
        rows->Update();
    }
    all.Commit();
    rows->Close();
    database->Close();
}

/// Milliseconds of processor time of this process: other work on the machine leaves it alone.
double Computed()
{
    return static_cast<double>(std::clock()) * 1000 / CLOCKS_PER_SEC;
}

double Bare(const files::Disk& disk, int records)
{
    sqlite3* handle = nullptr;
    Check(sqlite3_open(disk.ToNative(kPath).toUtf8().constData(), &handle), handle);
    engine::RegisterCollation(handle);
    const double begun = Computed();
    Check(sqlite3_exec(handle, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), handle);
    sqlite3_stmt* update = nullptr;
    Check(sqlite3_prepare_v2(handle,
                             "UPDATE COMPS SET PRICEGLA = ?2, AGE = '19', SALEDATE = '03/07/2004', SALESERIAL = "
                             "' 38053', LOADDATE = '04/09/2004', LOADSERIAL = ' 38086', FRONT = '1', vas_version = "
                             "vas_version + 1 WHERE vas_id = ?1",
                             -1, &update, nullptr),
          handle);
    for (int i = 1; i <= records; ++i) {
        const QByteArray price = QByteArray::number((200000 + i) / 1860.0, 'f', 2);
        sqlite3_bind_int(update, 1, i);
        sqlite3_bind_text(update, 2, price.constData(), -1, SQLITE_TRANSIENT);
        Check(sqlite3_step(update), handle);
        sqlite3_reset(update);
    }
    sqlite3_finalize(update);
    Check(sqlite3_exec(handle, "COMMIT", nullptr, nullptr, nullptr), handle);
    const double taken = Computed() - begun;
    sqlite3_close(handle);
    return taken;
}

double MegabytesUsed()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024;
    return 0;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList given = QCoreApplication::arguments();
    const int records = given.size() > 2 ? given[2].toInt() : 100000;
    QTemporaryDir dir(given.value(1, u"."_s) + u"/maintenance-bench-XXXXXX"_s);
    const files::Disk disk(dir.path());
    const bench::StoppedClock time;
    engine::Engine engine(disk, time);
    bench::Nobody prompter;
    bench::NoEvents pump;
    bench::StoppedClock clock;
    bench::FixedNumber random;
    bench::NoWindow window;
    forms::NoScreens screens;
    const forms::Ports ports{prompter, pump, clock, random, window, screens};
    Fill(engine, records);

    double ours = 0, bare = 0;
    constexpr int kRounds = 3;
    for (int round = 0; round < kRounds; ++round) {
        disk.FileCopy(kFresh, kPath);
        const double before = Bare(disk, records);
        bare = round == 0 ? before : std::min(bare, before);
        disk.FileCopy(kFresh, kPath);
        store::DataSource databook(engine, u"datDatabook"_s);
        databook.Open(kPath, u"COMPS"_s, store::SourceKind::Table);
        common::Globals globals;
        upkeep::Account account;
        const double begun = Computed();
        const auto result = upkeep::RunRepair({ports, databook, globals, disk}, upkeep::Repair::Recalc, {}, account,
                                              [](const QString&, qint64, qint64) { return true; });
        const double taken = Computed() - begun;
        if (account.Records() != records || result.end != upkeep::RepairEnd::Done)
            return 1;
        ours = round == 0 ? taken : std::min(ours, taken);
    }
    common::Globals globals;
    globals.G_ProgramDir = u"C:\\"_s;
    globals.G_UserDir = u"C:\\"_s;
    store::MakeDatabase(engine, u"C:\\NEWDATA.MDB"_s);
    QElapsedTimer timer;
    constexpr int kStarts = 50;
    static_cast<void>(databook::HasAllFields(ports, engine, globals, kPath, u"COMPS"_s));
    timer.start();
    for (int i = 0; i < kStarts; ++i)
        static_cast<void>(databook::HasAllFields(ports, engine, globals, kPath, u"COMPS"_s));
    std::printf("the comparison at the start takes %.2f ms\n",
                static_cast<double>(timer.nsecsElapsed()) / 1e6 / kStarts);
    std::printf("recalculate %d records  %8.0f ms, bare update %8.0f ms, ratio %.2f (at most 3.0); %.0f MB at most\n",
                records, ours, bare, ours / bare, MegabytesUsed());
    return 0;
}
