// Access files: writing one beside the rows a second that are asked for, and reading it beside mdb-export.
//   bench_jet [ROWS]       200,000 rows of ten fields by default

#include "platform/engine/errors.h"
#include "platform/engine/genuine_file.h"
#include "platform/engine/row_store.h"
#include "platform/engine/sql_typer.h"
#include "platform/files/disk.h"
#include "platform/text/time_source.h"

#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <cstdio>
#include <numeric>

#include <sys/resource.h>

using namespace vasclip;
using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastRows = 100'000; ///< a second
const QString kPath = u"C:\\BENCH.MDB"_s;

class Standing final : public text::TimeSource
{
public:
    [[nodiscard]] QDateTime Now() const override { return {QDate(2026, 1, 1), QTime(12, 0)}; }
};

engine::Field Of(const QString& name, engine::FieldType type, int size = 0)
{
    engine::Field field;
    field.name = name;
    field.type = type;
    field.size = size;
    return field;
}

engine::TableDef TenFields()
{
    using enum engine::FieldType;
    engine::TableDef table;
    table.name = u"COMPS"_s;
    table.fields = {Of(u"CENTRALKEY"_s, Text, 35), Of(u"ADDRESS"_s, Text, 35), Of(u"CITY"_s, Text, 20),
                    Of(u"SELLINGPR"_s, Text, 10),  Of(u"N"_s, Long),           Of(u"PRICE"_s, Currency),
                    Of(u"AREA"_s, Double),         Of(u"SOLD"_s, Date),        Of(u"PENDING"_s, Boolean),
                    Of(u"NOTES"_s, Memo)};
    table.indexes = {{u"PrimaryKey"_s, {u"CENTRALKEY"_s}, true, true}};
    return table;
}

/// Seconds of the processor, of this process or of those that it ran.
double Processor(int whose)
{
    rusage usage{};
    getrusage(whose, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Kilobytes of memory that were in use at the most.
qint64 Peak()
{
    QFile status(u"/proc/self/status"_s);
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toLongLong();
    }
    return 0;
}

double Write(engine::Engine& engine, int rows)
{
    QElapsedTimer timer;
    timer.start();
    engine::GenuineFile file(engine, kPath);
    file.Content().CreateTable(TenFields());
    const auto store = file.Content().OpenRows(engine::sql::WholeTable(TenFields()));
    const QDateTime day(QDate(2004, 3, 7), QTime(), Qt::UTC);
    for (int i = 0; i < rows; ++i) {
        const QString number = QString::number((i * 7919LL) % rows);
        static_cast<void>(store->Insert({{0, number + u" OAK STREET"_s}, {1, number + u" Oak Street"_s},
                                         {2, u"Marlow Falls"_s}, {3, number}, {4, static_cast<qlonglong>(i)},
                                         {5, i * 100.25}, {6, i / 7.0}, {7, day.addDays(i % 5000)}, {8, i % 2 == 0},
                                         {9, u"a note of record "_s + number}}));
    }
    file.Finish();
    return static_cast<double>(timer.nsecsElapsed()) / 1e9;
}

/// Every value as text, as an export writes it.
double Read(engine::Engine& engine)
{
    const double begun = Processor(RUSAGE_SELF);
    QFile out(u"/dev/null"_s);
    if (!out.open(QIODevice::WriteOnly))
        return 0;
    const auto database = engine.OpenDatabase(kPath);
    const auto store = database->OpenRows(engine::sql::WholeTable(database->Table(u"COMPS"_s)));
    QList<int> all(store->Shape().fields.size());
    std::iota(all.begin(), all.end(), 0);
    QByteArray line;
    store->ReadKeys([&](std::span<const engine::Bookmark> ids) {
        for (const auto& row : store->Read(ids, all, engine::Longs::Sizes)) {
            line.clear();
            for (const QVariant& value : row->values)
                line += value.toString().toUtf8() + ',';
            out.write(line);
        }
        return true;
    });
    return Processor(RUSAGE_SELF) - begun;
}

double ReadByPeer(const QString& native)
{
    const QString peer = QStandardPaths::findExecutable(u"mdb-export"_s);
    if (peer.isEmpty())
        return 0;
    const double begun = Processor(RUSAGE_CHILDREN);
    QProcess process;
    process.setStandardOutputFile(QProcess::nullDevice());
    process.start(peer, {native, u"COMPS"_s});
    process.waitForFinished(-1);
    return Processor(RUSAGE_CHILDREN) - begun;
}

} // namespace

int main(int argc, char* argv[])
{
    const int rows = argc > 1 ? std::atoi(argv[1]) : 200'000;
    const QTemporaryDir home;
    const files::Disk disk(home.path());
    const Standing time;
    engine::Engine engine(disk, time);
    QDir().mkpath(home.path() + u"/drive_c"_s);
    const qint64 before = Peak();
    const double written = Write(engine, rows);
    const qint64 after = Peak();
    std::printf("write %d rows: %.2f s, %.0f rows a second (at least %.0f), %lld kB of memory more\n", rows, written,
                rows / written, kLeastRows, static_cast<long long>(after - before));
    const double read = Read(engine);
    std::printf("read all values: %.2f s of the processor, %lld kB of memory more\n", read, static_cast<long long>(Peak() - after));
    const double peer = ReadByPeer(home.path() + u"/drive_c/BENCH.MDB"_s);
    if (peer > 0)
        std::printf("mdb-export: %.2f s of the processor, ratio %.2f (at most 1)\n", peer, read / peer);
    else
        std::printf("mdb-export is not installed\n");
    return rows / written >= kLeastRows && (peer == 0 || read <= peer) ? 0 : 1;
}
