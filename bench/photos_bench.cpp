#include "forms/screen.h"
#include "photos/format_picture.h"
#include "platform/engine/database.h"
#include "platform/picture/facts.h"
#include "platform/picture/picture.h"
#include "still_ports.h"
#include "store/data_source.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

/// bench_photos [PICTURES]: filing, thumbnails and memory on pictures of 12 and 48 megapixels, made from the
/// camera pictures of the directory PICTURES (or from noise without one), beside vipsthumbnail doing the same
/// work in a process of its own. Times are processor time, so that a busy machine does not matter.
namespace {

using namespace Qt::Literals::StringLiterals;
using namespace vasclip;

constexpr int kRuns = 7;
constexpr int kPage = 12;
constexpr int kFolder = 500;
constexpr int kThumbnailSide = 200;
constexpr qint64 kHead = 64 * 1024;

double Seconds(const timeval& time)
{
    return double(time.tv_sec) + double(time.tv_usec) / 1e6;
}

double ProcessorSeconds(int who)
{
    rusage usage{};
    getrusage(who, &usage);
    return Seconds(usage.ru_utime) + Seconds(usage.ru_stime);
}

/// Processor seconds of the best of several runs, of this process or of the children it waits for.
template <class Work>
double Best(int who, Work&& work, int runs = kRuns)
{
    double best = 1e9;
    for (int run = 0; run < runs; ++run) {
        const double before = ProcessorSeconds(who);
        work();
        best = std::min(best, ProcessorSeconds(who) - before);
    }
    return best;
}

/// Passes over the settling times, which are not what is measured.
class NoWaits : public forms::Clock
{
public:
    [[nodiscard]] QDateTime Now() const override { return QDateTime::currentDateTime(); }
    void Wait(double) override {}
};

class Numbers : public forms::RandomSource
{
public:
    [[nodiscard]] double Rnd() override { return std::uniform_real_distribution<double>(0.1, 1)(m_engine); }

private:
    std::mt19937 m_engine{5};
};

class NoQuestions : public photos::PhotoQuestions
{
public:
    forms::Answer Overwrite(const QString&, const QString&, const QString&) override { return forms::Answer::Yes; }
    QString View(const QString&, const QString& proposal, const QString&) override { return proposal; }
};

/// A desk to file pictures on, in a home of its own.
struct Desk
{
    explicit Desk(const QString& home)
        : disk(home)
        , engine(disk, clock)
        , databook(engine, u"datDatabook"_s)
    {
        for (const QString& directory : {u"C:\\USER"_s, u"C:\\JPG"_s})
            if (!disk.DirExists(directory))
                disk.MkDir(directory);
        globals.G_UserDir = u"C:\\USER\\"_s;
        globals.G_PhotoDir = u"C:\\JPG\\"_s;
    }
    bool File(const QString& native)
    {
        return photos::FormatPictureNow(desk, disk.ToDrivePath(native).value_or(QString()), desk.geatemp);
    }

    files::Disk disk;
    NoWaits clock;
    engine::Engine engine;
    bench::Nobody prompter{forms::Answer::No};
    bench::NoEvents pump;
    Numbers random;
    bench::NoWindow window;
    forms::NoScreens screens;
    forms::Ports ports{prompter, pump, clock, random, window, screens};
    forms::ControlSet set;
    common::StatusDesk status{set};
    photos::PhotoLists lists{set};
    photos::SlotTable table;
    photos::SlotLoader loader{disk, ports, table};
    common::Globals globals;
    store::DataSource databook;
    NoQuestions questions;
    photos::PhotoDesk desk{ports, disk, globals, databook, lists, loader, status, questions};
};

/// A picture of that size with the grain of a camera.
QByteArray CameraPicture(const QString& source, QSize size, quint32 seed)
{
    QImage image = source.isEmpty() ? QImage(size, QImage::Format_RGB32)
                                    : picture::FromNativeFile(source, source)
                                          .scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                                          .convertToFormat(QImage::Format_RGB32);
    std::mt19937 random(seed);
    for (int y = 0; y < image.height(); ++y) {
        auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int grain = static_cast<int>(random() % 9) - 4;
            const QRgb under = source.isEmpty() ? qRgb(x / 16 % 256, y / 12 % 256, 90) : row[x];
            const auto grained = [grain](int value) { return std::clamp(value + grain, 0, 255); };
            row[x] = qRgb(grained(qRed(under)), grained(qGreen(under)), grained(qBlue(under)));
        }
    }
    return picture::ToJpeg(image, 92);
}

bool Put(const QString& native, const QByteArray& bytes)
{
    QFile file(native);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void Vips(const QStringList& arguments)
{
    QProcess process;
    QProcessEnvironment one = QProcessEnvironment::systemEnvironment();
    one.insert(u"VIPS_CONCURRENCY"_s, u"1"_s);
    process.setProcessEnvironment(one);
    process.start(u"vipsthumbnail"_s, arguments);
    if (!process.waitForFinished(120'000) || process.exitCode() != 0)
        std::fprintf(stderr, "vipsthumbnail: %s\n", process.readAllStandardError().constData());
}

void Tell(const char* what, double ours, double peer, double limit)
{
    std::printf("%-52s %8.1f ms  peer %8.1f ms  ratio %.2f (limit %.2f)\n", what, ours * 1000, peer * 1000,
                ours / peer, limit);
}

/// Kilobytes at the peak of a run of this program in one of its modes.
long PeakOf(const QString& mode, const QString& file)
{
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {mode, file});
    process.waitForFinished(120'000);
    return process.readAllStandardOutput().trimmed().toLong();
}

/// Kilobytes of this process at its peak. What getrusage tells counts the process that started it too.
long OwnPeak()
{
    QFile file(u"/proc/self/status"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray status = file.readAll();
    const qsizetype at = status.indexOf("VmHWM:");
    return at < 0 ? 0 : status.mid(at + 6, status.indexOf(" kB", at) - at - 6).trimmed().toLong();
}

/// A mode of a child process: does one thing and tells its peak.
int Child(const QString& mode, const QString& file)
{
    QTemporaryDir home;
    Desk desk(home.path());
    if (mode == "--file"_L1 && !desk.File(file))
        return 1;
    if (mode == "--decode"_L1)
        (void)picture::LoadWithin(desk.disk, desk.disk.ToDrivePath(file).value_or(QString()), {800, 600});
    std::printf("%ld\n", OwnPeak());
    return 0;
}

void Memory(const QString& file)
{
    const long idle = PeakOf(u"--idle"_s, file);
    const long decode = PeakOf(u"--decode"_s, file) - idle;
    const long filing = PeakOf(u"--file"_s, file) - idle;
    std::printf("%-52s %8.1f MB  peer %8.1f MB  ratio %.2f (limit 1.20)\n",
                "peak of filing 48 megapixels, beside its decode", double(filing) / 1024,
                double(decode) / 1024, double(filing) / double(decode));
}

/// Heads of camera pictures, so many that they make a folder.
QStringList MakeFolder(const QString& directory, const QStringList& sources)
{
    QStringList folder;
    if (sources.isEmpty() || !QDir().mkpath(directory))
        return folder;
    for (int at = 0; at < kFolder; ++at) {
        QFile source(sources[at % sources.size()]);
        const QString copy = directory + u"/DSC%1.JPG"_s.arg(at, 5, 10, QChar(u'0'));
        if (source.open(QIODevice::ReadOnly) && Put(copy, source.read(4 * kHead)))
            folder << copy;
    }
    return folder;
}

void ForgetPages(const QStringList& files)
{
    for (const QString& file : files) {
        const int handle = open(qPrintable(file), O_RDONLY);
        if (handle < 0)
            continue;
        (void)fdatasync(handle);
        (void)posix_fadvise(handle, 0, 0, POSIX_FADV_DONTNEED);
        close(handle);
    }
}

template <class Work>
double BestWall(const QStringList& files, bool cold, Work&& work)
{
    double best = 1e9;
    for (int run = 0; run < kRuns; ++run) {
        if (cold)
            ForgetPages(files);
        timespec before{};
        timespec after{};
        clock_gettime(CLOCK_MONOTONIC, &before);
        work();
        clock_gettime(CLOCK_MONOTONIC, &after);
        best = std::min(best, double(after.tv_sec - before.tv_sec) + double(after.tv_nsec - before.tv_nsec) / 1e9);
    }
    return best;
}

void EmbeddedThumbnails(const QStringList& folder)
{
    if (folder.isEmpty()) {
        std::puts("embedded thumbnails: no camera pictures were given, nothing is measured");
        return;
    }
    for (const bool cold : {false, true}) {
        const double heads = BestWall(folder, cold, [&] {
            std::vector<char> head(kHead);
            for (const QString& name : folder) {
                const int handle = open(qPrintable(name), O_RDONLY);
                if (handle < 0 || read(handle, head.data(), head.size()) < 0)
                    std::abort();
                close(handle);
            }
        });
        int found = 0;
        const double read = BestWall(folder, cold, [&] {
            found = 0;
            for (const QString& name : folder)
                found += picture::EmbeddedThumbnailBytes(name).jpeg.isEmpty() ? 0 : 1;
        });
        const double decoded = BestWall(folder, cold, [&] {
            for (const QString& name : folder)
                (void)picture::EmbeddedThumbnailOfNativeFile(name);
        });
        std::printf("500 files, %d with thumbnails, %s cache\n", found, cold ? "cold" : "warm");
        Tell("  thumbnails read, beside 64 KB heads (wall time)", read, heads, 1.2);
        Tell("  thumbnails read and decoded", decoded, heads, 1.2);
    }
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (argc == 3 && arguments[1].startsWith("--"_L1))
        return Child(arguments[1], arguments[2]);
    QStringList sources;
    if (argc > 1)
        for (const QFileInfo& file : QDir(arguments[1]).entryInfoList({u"*.jpg"_s}, QDir::Files, QDir::Name))
            sources << file.absoluteFilePath();
    const auto source = [&](int at) { return sources.isEmpty() ? QString() : sources[at % sources.size()]; };

    QTemporaryDir work;
    QStringList page;
    for (int at = 0; at < kPage; ++at) {
        page << work.filePath(u"P%1.JPG"_s.arg(at));
        if (!Put(page.last(), CameraPicture(source(at), {4000, 3000}, static_cast<quint32>(at))))
            return 1;
    }
    const QString large = work.filePath(u"LARGE.JPG"_s);
    if (!Put(large, CameraPicture(source(0), {8000, 6000}, 48)))
        return 1;

    const bool hasVips = !QStandardPaths::findExecutable(u"vipsthumbnail"_s).isEmpty();
    if (!hasVips)
        std::puts("vipsthumbnail (libvips-tools) is not installed: filing and pages stand without their peer");
    Desk desk(work.filePath(u"home"_s));
    bool filed = true;
    const double filing = Best(RUSAGE_SELF, [&] { filed = desk.File(page[0]) && filed; });
    if (!filed) {
        std::fprintf(stderr, "nothing was filed: %s\n", qPrintable(desk.desk.notSaved));
        return 1;
    }
    const double thumbs = Best(RUSAGE_SELF, [&] {
        for (const QString& file : page)
            (void)picture::FromNativeFile(file, file, kThumbnailSide);
    });
    if (hasVips) {
        const double start = Best(RUSAGE_CHILDREN, [] { Vips({u"--help"_s}); });
        const double reduced = Best(RUSAGE_CHILDREN, [&] {
            Vips({u"--size"_s, u"800x600!"_s, u"-o"_s, work.filePath(u"out.jpg[Q=90]"_s), page[0]});
        });
        Tell("filing 12 megapixels, beside vipsthumbnail", filing, reduced, 1.0);
        Tell("  the same without the start of its process", filing, reduced - start, 1.0);
        const double peer = Best(RUSAGE_CHILDREN, [&] {
            Vips(QStringList{u"--size"_s, QString::number(kThumbnailSide), u"-o"_s,
                             work.filePath(u"%s-small.jpg"_s)} +
                 page);
        });
        Tell("a page of twelve thumbnails, beside vipsthumbnail", thumbs, peer, 1.0);
        Tell("  the same without the start of its process", thumbs, peer - start, 1.0);
    } else {
        std::printf("filing 12 megapixels %.1f ms, a page of twelve thumbnails %.1f ms\n", filing * 1000,
                    thumbs * 1000);
    }
    Memory(large);
    EmbeddedThumbnails(MakeFolder(work.filePath(u"folder"_s), sources));
    return 0;
}
