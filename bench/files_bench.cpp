#include "platform/files/disk.h"
#include "platform/files/profile.h"
#include "support/temp_home.h"

#include <QFile>
#include <QThread>

#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

using namespace Qt::StringLiterals;

/// Directories of 500, 5,000 and 50,000 names and ini files of 100 to 10,000 keys. Behind the figures stands
/// the growth of each from its smallest to its largest size: the exponent of the size, 1 is linear.
namespace {

using vasclip::files::Directory;
using vasclip::files::ProfileKey;
using vasclip::tests::TempHome;

const QString kIni = u"C:\\VAS2000.INI"_s;
const QString kSection = u"PREFERENCES"_s;

/// A home with one directory of so many photos; made once for each size.
TempHome& PhotoHome(qint64 names)
{
    static std::map<qint64, std::unique_ptr<TempHome>> homes;
    std::unique_ptr<TempHome>& home = homes[names];
    if (!home) {
        home = std::make_unique<TempHome>();
        home->MakeDirs(u"C:\\Photos"_s);
        const QString native = home->disk.ToNative(u"C:\\Photos"_s);
        for (qint64 at = 0; at < names; ++at) {
            QFile file(native + u"/Photo%1.jpg"_s.arg(at, 6, 10, QChar(u'0')));
            if (!file.open(QIODevice::WriteOnly))
                std::abort();
        }
    }
    return *home;
}

QString PhotoPath(qint64 at)
{
    return u"C:\\PHOTOS\\PHOTO%1.JPG"_s.arg(at, 6, 10, QChar(u'0'));
}

/// A directory that somebody just changed: every name is read.
void ReadDirectory(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    const QString native = home.disk.ToNative(u"C:\\Photos"_s) + u"/Changed.bmp"_s;
    for (auto step : state) {
        state.PauseTiming();
        if (!QFile::remove(native)) {
            QFile file(native);
            (void)file.open(QIODevice::WriteOnly);
        }
        state.ResumeTiming();
        benchmark::DoNotOptimize(home.disk.Dir(u"C:\\Photos\\*.jpg"_s));
    }
}

/// The same directory through the bare calls of the system: what reading the names costs at least.
void ReadBare(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    const std::filesystem::path native = home.disk.ToNative(u"C:\\Photos"_s).toStdString();
    for (auto step : state) {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(native))
            names.push_back(entry.path().filename().string());
        benchmark::DoNotOptimize(names.data());
    }
}

/// A directory that nobody changed since it was read.
void ListAgain(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    benchmark::DoNotOptimize(home.disk.Found(u"C:\\Photos\\none*"_s));
    QThread::msleep(20); // until the stamp of the last change is older than the clock's tick
    benchmark::DoNotOptimize(home.disk.Found(u"C:\\Photos\\none*"_s));
    for (auto step : state)
        benchmark::DoNotOptimize(home.disk.Dir(u"C:\\Photos\\*.jpg"_s));
}

void FindExactName(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    const QString path = u"C:\\Photos\\Photo000321.jpg"_s;
    for (auto step : state)
        benchmark::DoNotOptimize(home.disk.Found(path));
}

void FindOtherSpelling(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    qint64 at = 0;
    for (auto step : state)
        benchmark::DoNotOptimize(home.disk.Found(PhotoPath(at++ % state.range(0))));
}

/// A name that is not there: the usual answer when a free one is sought.
void MissName(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    for (auto step : state)
        benchmark::DoNotOptimize(home.disk.Found(u"C:\\PHOTOS\\NONE.JPG"_s));
}

/// Saving photo after photo, each under a name that was looked for first.
void SaveNewFile(benchmark::State& state)
{
    const TempHome& home = PhotoHome(state.range(0));
    qint64 at = 900'000;
    for (auto step : state) {
        const QString path = PhotoPath(at++);
        if (home.disk.Found(path))
            state.SkipWithError("a new name was there");
        home.disk.WriteWhole(path, QByteArrayLiteral("jpeg"));
    }
    home.disk.Kill(u"C:\\PHOTOS\\PHOTO9?????.JPG"_s);
}

QString KeyName(qint64 at)
{
    return u"GENERALVIEW%1"_s.arg(at);
}

QList<ProfileKey> ManyKeys(qint64 count, const QString& value)
{
    QList<ProfileKey> keys;
    for (qint64 at = 0; at < count; ++at)
        keys.append({kSection, KeyName(at), value + QString::number(at)});
    return keys;
}

/// All keys of a file, one call each, as start-up does. Figures are for one key.
void ReadKeys(benchmark::State& state)
{
    const TempHome home;
    vasclip::files::WriteProfileKeys(home.disk, kIni, ManyKeys(state.range(0), u"FRONT VIEW "_s));
    qint64 at = 0;
    for (auto step : state)
        benchmark::DoNotOptimize(vasclip::files::GetPrivateProfileString(
            home.disk, kSection, KeyName(at++ % state.range(0)), QString(), kIni));
}

/// One key into a file of so many: the whole file is replaced, flushed and renamed.
void WriteOneKey(benchmark::State& state)
{
    const TempHome home;
    vasclip::files::WriteProfileKeys(home.disk, kIni, ManyKeys(state.range(0), u"FRONT VIEW "_s));
    qint64 at = 0;
    for (auto step : state) {
        ++at;
        vasclip::files::WritePrivateProfileString(home.disk, kSection, KeyName(at % state.range(0)),
                                                  QString::number(at), kIni);
    }
}

/// All keys as one replacement.
void WriteManyKeys(benchmark::State& state)
{
    const TempHome home;
    qint64 round = 0;
    for (auto step : state) {
        ++round;
        vasclip::files::WriteProfileKeys(home.disk, kIni,
                                         ManyKeys(state.range(0), QString::number(round) + u" VIEW "_s));
    }
}

#define VASCLIP_FILES_SIZES ->Arg(500)->Arg(5'000)->Arg(50'000)->UseRealTime()->Unit(benchmark::kMicrosecond)
#define VASCLIP_INI_SIZES ->Arg(100)->Arg(1'000)->Arg(10'000)->UseRealTime()->Unit(benchmark::kMicrosecond)
BENCHMARK(ReadDirectory) VASCLIP_FILES_SIZES;
BENCHMARK(ReadBare) VASCLIP_FILES_SIZES;
BENCHMARK(ListAgain) VASCLIP_FILES_SIZES;
BENCHMARK(FindExactName) VASCLIP_FILES_SIZES;
BENCHMARK(FindOtherSpelling) VASCLIP_FILES_SIZES;
BENCHMARK(MissName) VASCLIP_FILES_SIZES;
BENCHMARK(SaveNewFile) VASCLIP_FILES_SIZES->Iterations(100);
BENCHMARK(ReadKeys) VASCLIP_INI_SIZES;
BENCHMARK(WriteOneKey) VASCLIP_INI_SIZES->Iterations(100);
BENCHMARK(WriteManyKeys) VASCLIP_INI_SIZES;

/// Prints as usual, and keeps the times for the growth.
class GrowthReporter : public benchmark::ConsoleReporter
{
public:
    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs) {
            if (!run.error_occurred)
                m_times[run.run_name.function_name][std::stod(run.run_name.args)] = {
                    run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
        }
    }

    void PrintGrowth() const
    {
        std::printf("\n%-20s %10s %22s %22s\n", "growth", "size x", "time x (exponent)", "CPU x (exponent)");
        for (const auto& [name, times] : m_times) {
            if (times.size() < 2)
                continue;
            const auto& [smallSize, small] = *times.begin();
            const auto& [largeSize, large] = *times.rbegin();
            const double size = largeSize / smallSize;
            const auto exponent = [size](double factor) { return std::log(factor) / std::log(size); };
            std::printf("%-20s %10.0f %14.2f  (%4.2f) %14.2f  (%4.2f)\n", name.c_str(), size,
                        large.real / small.real, exponent(large.real / small.real), large.cpu / small.cpu,
                        exponent(large.cpu / small.cpu));
        }
    }

private:
    struct Times
    {
        double real = 0;
        double cpu = 0;
    };
    std::map<std::string, std::map<double, Times>> m_times;
};

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv))
        return 1;
    GrowthReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.PrintGrowth();
    return 0;
}
